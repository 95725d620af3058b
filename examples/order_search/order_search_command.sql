/* 璹虫琩高㏑磅︽把计钡糶痹瓃 */
select O.OrderNo, O.OrderDate, C.CustName as め, G.GoodsName as 珇,
       D.Qty as 计秖, D.Qty * D.Price as 肂
  from OrderHead O
  join OrderDetail D on D.OrderNo = O.OrderNo
  join Customer C on C.CustNo = O.CustNo
  join Goods G on G.Code = D.GoodsCode
 where O.OrderDate between @MM_From and @MM_To
   and C.CustName like @MM_Customer
   and D.Qty >= @MM_Qty
   and O.Status <> '紀'
   and (O.Rush = @MM_Rush or G.Kind = 'きㄣ')   /* ン */
 order by O.OrderDate desc, O.OrderNo
