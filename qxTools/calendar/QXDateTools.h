/// @file
/// Dates: reads them from text without regard to the format settings, writes them in fixed and Chinese forms;
/// weekdays and calendar arithmetic.
///
/// Chinese text is BIG5. Two families of functions read text. StrToDateEx, StrToDate2 and CheckStrDate read
/// numeric forms; they return a code or a default value and never throw. All other functions that take text
/// use StrToDate of the runtime, which reads the short date format of the format settings, and let its
/// EConvertError through. Functions that take a date apart throw EConvertError if it is outside the years 1
/// to 9999.
///
/// The numeric forms:
/// - with a separator, "2024/3/5" or "2024-03-05": year, month and day are read by QXStrTools::IntEx, so text
///   after a number is ignored ("2024/03/05 10:20"). A year below 100 gets 1900 added: 99/3/5 is in 1999.
/// - without a separator, YYYYMMDD or YYMMDD. On purpose: no century is added here, "990315" is in the
/// year 99.
///
/// On purpose: the year is cut to 16 bits, and month and day to 8, before they are checked, so "65540/1/1" is
/// in the year 4. A space before a number ends it: " 2024/3/5" is 5 March 1900.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools::QXDateTools {

// --- Result codes ------------------------------------------------------------

inline constexpr Integer kDateValid = 9000;  ///< The date is valid.
inline constexpr Integer kBadYear = 9001;    ///< The year is not 1 to 9999, or the text has no readable form.
inline constexpr Integer kBadMonth = 9002;   ///< The month is not 1 to 12.
inline constexpr Integer kBadDay = 9003;     ///< The month has no such day.

// --- Encoding ----------------------------------------------------------------

/// Checks year, month and day in that order and stores the date if all are valid; otherwise `date` is
/// unchanged. Returns 9000, or 9001 (year), 9002 (month), 9003 (day). On purpose: 29 February is valid only
/// if 400 divides the year, so 2024-02-29 gives 9003 although IsLeapYear(2024) is true.
QXTOOLS_API Integer EnCodeDateEx(TDateTime& date, std::uint16_t year, std::uint8_t month, std::uint8_t day);

/// Always returns 9000.
/// On purpose: year, month and day are not changed; use Year, Month and Day to decode a date.
QXTOOLS_API Integer DeCodeDateEx(TDateTime date, std::uint16_t& year, std::uint8_t& month, std::uint8_t& day);

// --- Reading numeric forms ---------------------------------------------------

/// Reads a numeric form; the separator is "/" if the text contains one, otherwise "-". Returns 9000 and
/// stores the date, or returns 9001, 9002 or 9003 and leaves `date` unchanged. Without a separator, any
/// length but 6 and 8 gives 9001. On purpose: an empty text stores 0 and returns 9001. If the text contains
/// both separators, this function and StrToDate2 choose different ones.
QXTOOLS_API Integer StrToDateEx(TDateTime& date, std::string_view text);

/// Returns the date of a numeric form; the separator is "-" if the text contains one, otherwise "/". Returns
/// 0 (30 December 1899) if the text is not a date. On purpose: if the text contains both separators, this
/// function and StrToDateEx choose different ones.
QXTOOLS_API TDateTime StrToDate2(std::string_view text);

/// Returns true if StrToDateEx returns 9000 for the text.
QXTOOLS_API bool CheckStrDate(std::string_view text);

// --- Writing -----------------------------------------------------------------

/// Returns year, month and day in 4, 2 and 2 digits with the separator between them: "2024-03-05".
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API std::string DateToStrEx(TDateTime date, char separator);

/// Returns year, month and day in 4, 2 and 2 digits, for file names: "20240305".
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API std::string DateToFile(TDateTime date);

/// Returns the date in Chinese (BIG5) without leading zeros: 2024年3月5日.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API std::string ChinaDate(TDateTime date);

/// Returns the date of a text in the short date format, in Chinese (BIG5): "2024/03/05" gives 2024年3月5日.
/// @throws EConvertError if the text is not a date in the short date format.
QXTOOLS_API std::string ChinaDate(std::string_view text);

/// Returns year and month in Chinese (BIG5) without leading zeros: 2024年3月.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API std::string YearMonthCn(TDateTime date);

/// Returns year and month of a text in the short date format, in Chinese (BIG5): "2024/03/05" gives
/// 2024年3月.
/// @throws EConvertError if the text is not a date in the short date format.
QXTOOLS_API std::string YearMonthCn(std::string_view text);

/// Returns the Chinese name (BIG5) of a weekday, 星期日 to 星期六; 0 is Sunday, and so is 7. Returns "" for
/// any other index.
QXTOOLS_API std::string ChinaWeek(Integer index);

/// Returns the Chinese name (BIG5) of the date's weekday, 星期日 to 星期六.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API std::string ChinaWeek(TDateTime date);

// --- Calendar ----------------------------------------------------------------

/// Returns the year of the date.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API Integer Year(TDateTime date);

/// Returns the month of the date, 1 to 12.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API Integer Month(TDateTime date);

/// Returns the day of the month, 1 to 31.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API Integer Day(TDateTime date);

/// Returns true if 4 divides the year and 100 does not, or if 400 does. Negative years are accepted.
QXTOOLS_API bool IsLeapYear(Integer year);

/// Returns the number of days of a month; 0 if the month is outside 1 to 12.
QXTOOLS_API Integer DaysPerMonth(Integer year, Integer month);

/// Returns the number of days of the date's month.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API Integer DaysPerMonth(TDateTime date);

/// Returns the weekday, 0 for Sunday to 6 for Saturday, by Zeller's congruence. The numbers are not checked,
/// and sums wrap at 32 bits.
QXTOOLS_API Integer Week(Integer year, Integer month, Integer day);

/// Returns the weekday of the date, 0 for Sunday to 6 for Saturday.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API Integer Week(TDateTime date);

/// Returns the weekday of a text in the short date format, 0 for Sunday to 6 for Saturday.
/// @throws EConvertError if the text is not a date in the short date format.
QXTOOLS_API Integer Week(std::string_view text);

/// Returns the number of days from `first` to `second`, both included: 1 for the same day, 0 if `second` is
/// the day before. The distance is rounded, ties to even. A distance that is not a number counts as 0; a
/// result beyond 32 bits is the nearest limit.
QXTOOLS_API Integer DaysOfBetween(TDateTime first, TDateTime second);

/// Returns the number of days between two texts in the short date format, both days included: 1 for the same
/// day.
/// @throws EConvertError if a text is not a date. If both texts are invalid, the exception names the second
/// one.
QXTOOLS_API Integer DaysOfBetween(std::string_view first, std::string_view second);

/// Returns the date `days` later, or earlier if `days` is negative. The time of day is kept.
QXTOOLS_API TDateTime DateAdd(TDateTime date, Integer days);

/// Returns the date `days` later, read and written in the short date format.
/// @throws EConvertError if the text is not a date, or the result is outside the years 1 to 9999.
QXTOOLS_API std::string DateAdd(std::string_view text, Integer days);

/// Returns midnight of the first day of the date's month.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API TDateTime FirstDayOfMonth(TDateTime date);

/// Returns midnight of the last day of the date's month.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API TDateTime LastDayOfMonth(TDateTime date);

/// Returns midnight of today by the shared clock.
QXTOOLS_API TDateTime Today();

}  // namespace qxTools::QXDateTools
