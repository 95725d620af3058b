/* 訂單查詢：依客戶、日期與數量
   92/05 修訂：急件一律列出 */
select O.OrderNo, O.OrderDate, C.CustName as 客戶, G.GoodsName as 品名,
       D.Qty as 數量, D.Qty * D.Price as 金額
  from [$Orders] O
  join OrderDetail D on D.OrderNo = O.OrderNo
  join Customer C on C.CustNo = O.CustNo
  join Goods G on G.Code = D.GoodsCode
 where O.OrderDate between @MM_From and @MM_To
   and C.CustName like @MM_Customer
   and D.Qty >= @MM_Qty
   and O.Status <> '作廢'
   and (O.Rush = @MM_Rush or G.Kind = '五金、工具')   /* 急件 */
 order by O.OrderDate desc, O.OrderNo
