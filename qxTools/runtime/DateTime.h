/// @file
/// Dates and times of day as TDateTime, and as text in the short date format of the format settings.
///
/// A TDateTime is rounded to the nearest millisecond before it is split. Before 30 December 1899 the fraction
/// still counts forward from midnight, and the day is the truncated number: -1.25 is 6:00 on 29 December
/// 1899.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <chrono>

namespace qxTools {

/// A date as three numbers.
struct DateParts {
  int Year = 0;   ///< 1 to 9999
  int Month = 0;  ///< 1 to 12
  int Day = 0;    ///< 1 to 31

  friend bool operator==(const DateParts&, const DateParts&) = default;
};

/// A time of day as four numbers.
struct TimeParts {
  int Hour = 0;         ///< 0 to 23
  int Minute = 0;       ///< 0 to 59
  int Second = 0;       ///< 0 to 59
  int Millisecond = 0;  ///< 0 to 999

  friend bool operator==(const TimeParts&, const TimeParts&) = default;
};

/// Returns whether the calendar has this date. False for years outside 1 to 9999.
QXTOOLS_API bool IsValidDate(int year, int month, int day);

/// Returns the number of days in a month. `month` must be 1 to 12.
QXTOOLS_API int DaysInMonth(int year, int month);

/// Returns a date as TDateTime; the time of day is midnight.
/// @throws EConvertError if the calendar does not have this date, or the year is outside 1 to 9999.
QXTOOLS_API TDateTime EncodeDate(int year, int month, int day);

/// Returns the days since 30 December 1899, after `date` is rounded to the millisecond.
/// @throws EConvertError if the year is outside 1 to 9999, or `date` is not a number.
QXTOOLS_API std::int32_t DayNumber(TDateTime date);

/// The day whose number is 0: 30 December 1899.
inline constexpr std::chrono::sys_days kDayZero = std::chrono::year{1899} / 12 / 30;

/// Returns year, month and day. Inline, because returning three numbers through memory takes as long as
/// calculating them.
/// @throws EConvertError if the year is outside 1 to 9999, or `date` is not a number.
inline DateParts DecodeDate(TDateTime date) {
  const std::chrono::year_month_day parts{kDayZero + std::chrono::days{DayNumber(date)}};
  return {static_cast<int>(parts.year()), static_cast<int>(static_cast<unsigned>(parts.month())),
          static_cast<int>(static_cast<unsigned>(parts.day()))};
}

/// Returns hour, minute, second and millisecond.
/// @throws EConvertError if the year is outside 1 to 9999, or `date` is not a number.
QXTOOLS_API TimeParts DecodeTime(TDateTime date);

/// Returns the date in the short date format. The time of day is ignored.
/// @throws EConvertError if the year is outside 1 to 9999, or `date` is not a number.
QXTOOLS_API std::string DateToStr(TDateTime date);

/// Returns the date in the short date format. Unless the time is midnight, a blank and hours, minutes and
/// seconds follow: "2024/03/05 18:00:00".
/// @throws EConvertError if the year is outside 1 to 9999, or `date` is not a number.
QXTOOLS_API std::string DateTimeToStr(TDateTime date);

/// Reads a date: three numbers in the order of the short date format, separated by the date separator, with
/// or without blanks around them. A year of one or two digits is in the hundred years that begin with
/// TwoDigitYearStart.
/// @throws EConvertError "'TEXT' is not a valid date" for any other text, and for a date that does not exist.
QXTOOLS_API TDateTime StrToDate(std::string_view text);

/// Returns today's date by the library's clock (platform/Clock.h); the time of day is midnight.
QXTOOLS_API TDateTime Date();

}  // namespace qxTools
