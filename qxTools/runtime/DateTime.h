/// @file
/// Dates and times of day as TDateTime, and their text in the format settings' short date format.
///
/// A TDateTime is rounded to the nearest millisecond before it is taken apart. Before 30 December 1899 the
/// fraction still counts forward from midnight of the day that the truncated number names: -1.25 is 6 in the
/// morning of 29 December 1899.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <chrono>

namespace qxTools {

/// A day of the calendar.
struct DateParts {
  int Year = 0;   ///< 1 to 9999
  int Month = 0;  ///< 1 to 12
  int Day = 0;    ///< 1 to 31

  friend bool operator==(const DateParts&, const DateParts&) = default;
};

/// A time of day.
struct TimeParts {
  int Hour = 0;         ///< 0 to 23
  int Minute = 0;       ///< 0 to 59
  int Second = 0;       ///< 0 to 59
  int Millisecond = 0;  ///< 0 to 999

  friend bool operator==(const TimeParts&, const TimeParts&) = default;
};

/// Whether the calendar has that date, years 1 to 9999.
QXTOOLS_API bool IsValidDate(int year, int month, int day);

/// The days of `month` (1 to 12).
QXTOOLS_API int DaysInMonth(int year, int month);

/// Midnight of that day.
/// @throws EConvertError on a date that the calendar does not have, or a year outside 1 to 9999.
QXTOOLS_API TDateTime EncodeDate(int year, int month, int day);

/// The day as a number, once the moment is rounded to the millisecond.
/// @throws EConvertError for a moment outside the years 1 to 9999, or not a number.
QXTOOLS_API std::int32_t DayNumber(TDateTime date);

/// The day whose number is 0.
inline constexpr std::chrono::sys_days kDayZero = std::chrono::year{1899} / 12 / 30;

/// Year, month and day. Inline, since handing three numbers through memory takes as long as finding them.
/// @throws EConvertError as DayNumber.
inline DateParts DecodeDate(TDateTime date) {
  const std::chrono::year_month_day parts{kDayZero + std::chrono::days{DayNumber(date)}};
  return {static_cast<int>(parts.year()), static_cast<int>(static_cast<unsigned>(parts.month())),
          static_cast<int>(static_cast<unsigned>(parts.day()))};
}

/// The time of day.
/// @throws EConvertError as DecodeDate.
QXTOOLS_API TimeParts DecodeTime(TDateTime date);

/// The date in the short date format; the time of day is dropped.
/// @throws EConvertError as DecodeDate.
QXTOOLS_API std::string DateToStr(TDateTime date);

/// The date in the short date format, followed by a space and hh:nn:ss when it is not midnight.
/// @throws EConvertError as DecodeDate.
QXTOOLS_API std::string DateTimeToStr(TDateTime date);

/// Reads three numbers in the order of the short date format, parted by the date separator; blanks around
/// them are allowed. A year of one or two digits falls into the format settings' hundred years.
/// @throws EConvertError "'TEXT' is not a valid date" for anything else, and for an impossible date.
QXTOOLS_API TDateTime StrToDate(std::string_view text);

/// Midnight of today, by the shared clock.
QXTOOLS_API TDateTime Date();

}  // namespace qxTools
