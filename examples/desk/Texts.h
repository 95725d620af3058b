// What the form says, in code page 950.
#pragma once

namespace desk {

inline constexpr char kTitle[] = "\xAB\xC8\xA4\xE1\xADq\xB3\xE6";            // 客戶訂單
inline constexpr char kOrderNumber[] = "\xADq\xB3\xE6\xBDs\xB8\xB9";         // 訂單編號
inline constexpr char kOrderDate[] = "\xADq\xB3\xE6\xA4\xE9\xB4\xC1";        // 訂單日期
inline constexpr char kCustomerName[] = "\xAB\xC8\xA4\xE1\xA6W\xBA\xD9";     // 客戶名稱
inline constexpr char kDeliveryDate[] = "\xA5\xE6\xB3\x66\xA4\xE9\xB4\xC1";  // 交貨日期
inline constexpr char kCustomer[] =
    "\xA5\xC3\xC2\xD7\xB6T\xA9\xF6\xA6\xB3\xAD\xAD\xA4\xBD\xA5q";             // 永豐貿易有限公司
inline constexpr char kGoods[] = "\xAB~\xA6W";                                // 品名
inline constexpr char kCount[] = "\xBC\xC6\xB6q";                             // 數量
inline constexpr char kPrice[] = "\xB3\xE6\xBB\xF9";                          // 單價
inline constexpr char kAmount[] = "\xAA\xF7\xC3\x42";                         // 金額
inline constexpr char kTotal[] = "\xA6X\xADp";                                // 合計
inline constexpr char kPaid[] = "\xA4\xB8\xBE\xE3";                           // 元整
inline constexpr char kLines[] = "\xADq\xB3\xE6\xA9\xFA\xB2\xD3";             // 訂單明細
inline constexpr char kDeliveries[] = "\xA5X\xB3\x66\xAC\xF6\xBF\xFD";        // 出貨紀錄
inline constexpr char kMore[] = "\xA8\xE4\xA5L";                              // 其他
inline constexpr char kPlacesTitle[] = "\xA4\xE5\xA6r\xA4\x45\xA6\xEC";       // 文字九位
inline constexpr char kBevelsTitle[] = "\xC3\xE4\xAE\xD8\xBBP\xBD\x62\xC0Y";  // 邊框與箭頭
inline constexpr char kSave[] = "\xA6s\xC0\xC9";                              // 存檔
inline constexpr char kClose[] = "\xB5\xB2\xA7\xF4";                          // 結束
inline constexpr char kAskToSave[] =
    "\xADq\xB3\xE6\xA4w\xB8g\xAD\xD7\xA7\xEF\xA1\x41\xADn\xA6s\xC0\xC9\xB6\xDC\xA1H";  // 訂單已經修改，要存檔嗎？
inline constexpr char kOrder[] = "\xADq\xB3\xE6";                                      // 訂單

// In the order of the alignments.
inline constexpr const char* kPlaces[] = {
    "\xA5\xAA\xA4W",     // 左上
    "\xA5\xAA\xA4\xA4",  // 左中
    "\xA5\xAA\xA4U",     // 左下
    "\xA4\xA4\xA4W",     // 中上
    "\xA5\xBF\xA4\xA4",  // 正中
    "\xA4\xA4\xA4U",     // 中下
    "\xA5k\xA4W",        // 右上
    "\xA5k\xA4\xA4",     // 右中
    "\xA5k\xA4U",        // 右下
};

inline constexpr const char* kBevels[] = {
    "\xB3\xE6\xBCh\xAB\xF6\xB6s",  // 單層按鈕
    "\xC2\xF9\xBCh\xAB\xF6\xB6s",  // 雙層按鈕
    "\xB3\xE6\xBCh\xA5W\xAE\xD8",  // 單層凹框
    "\xC2\xF9\xBCh\xA5W\xAE\xD8",  // 雙層凹框
};

struct OrderLine {
  const char* goods;
  int count;
  int price;
};

inline constexpr OrderLine kOrderLines[] = {
    {"\xB0\xAA\xAF\xC5\xBCv\xA6L\xAF\xC8", 120, 95},         // 高級影印紙
    {"\xAD\xEC\xA4l\xB5\xA7\xA1@\xC2\xC5\xA6\xE2", 240, 8},  // 原子筆　藍色
    {"\xB8\xEA\xAE\xC6\xA7\xA8", 60, 35},                    // 資料夾
    {"\xB0v\xAE\xD1\xBE\xF7", 12, 150},                      // 釘書機
    {"\xADp\xBA\xE2\xBE\xF7", 5, 420},                       // 計算機
};

}  // namespace desk
