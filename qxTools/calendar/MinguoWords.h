// The words of the ROC calendar in BIG5, as they stand in a date.
#pragma once

namespace qxTools::QXMinguoDate {

inline constexpr char kRepublic[] = "\xA5\xC1\xB0\xEA";        // 民國
inline constexpr char kBeforeRepublic[] = "\xA5\xC1\xAB\x65";  // 民前
inline constexpr char kBefore[] = "\xAB\x65";                  // 前
inline constexpr char kFirst[] = "\xA4\xB8";                   // 元
inline constexpr char kYear[] = "\xA6\x7E";                    // 年
inline constexpr char kMonth[] = "\xA4\xEB";                   // 月
inline constexpr char kDay[] = "\xA4\xE9";                     // 日

}  // namespace qxTools::QXMinguoDate
