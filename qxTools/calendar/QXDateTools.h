/// @file
/// Dates: reading them from text without regard to the format settings, writing them in fixed and Chinese
/// forms, weekdays and calendar arithmetic.
///
/// Chinese text is BIG5. Two families read text. StrToDateEx, StrToDate2 and CheckStrDate read numeric forms,
/// answer codes or neutral values and never raise. All other functions that take a text read it with the
/// runtime's StrToDate, in the short date format of the format settings, and let its EConvertError pass. All
/// that take a date apart raise EConvertError outside the years 1 to 9999.
///
/// The numeric forms:
/// - with a separator, "2024/3/5" or "2024-03-05": year, month and day as IntEx reads them, so that what
///   follows a number is passed over ("2024/03/05 10:20"). A year below 100 gets 1900 added: 99/3/5 is 1999.
/// - without one, YYYYMMDD or YYMMDD. On purpose no century is added here: "990315" is in the year 99.
///
/// On purpose the year is cut to 16 bits and month and day to 8 before they are checked: "65540/1/1" is the
/// year 4. A blank in front of a number ends it: " 2024/3/5" is 5 March 1900.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools::QXDateTools {

// --- Result codes ------------------------------------------------------------

inline constexpr Integer kDateValid = 9000;  ///< a date of the calendar
inline constexpr Integer kBadYear = 9001;    ///< not 1 to 9999
inline constexpr Integer kBadMonth = 9002;   ///< not 1 to 12
inline constexpr Integer kBadDay = 9003;     ///< not a day of the month

// --- Encoding ----------------------------------------------------------------

/// Checks year, month and day in that order and stores the date only on success; answers a result code.
/// On purpose: 29 February is valid only when 400 divides the year, so 2024-02-29 gives 9003 although
/// IsLeapYear(2024) is true.
QXTOOLS_API Integer EnCodeDateEx(TDateTime& date, std::uint16_t year, std::uint8_t month, std::uint8_t day);

/// 9000.
/// On purpose: it decodes nothing and leaves year, month and day as they were. Year, Month and Day decode.
QXTOOLS_API Integer DeCodeDateEx(TDateTime date, std::uint16_t& year, std::uint8_t& month, std::uint8_t& day);

// --- Reading numeric forms ---------------------------------------------------

/// Reads a numeric form, whose separator is "/" where the text holds one and else "-"; answers a result code
/// and stores the date only on success. Without a separator, 9001 for any length but 6 and 8.
/// On purpose: an empty text stores 0 and gives 9001.
QXTOOLS_API Integer StrToDateEx(TDateTime& date, std::string_view text);

/// The date of a numeric form, whose separator is "-" where the text holds one and else "/"; 0 (30 December
/// 1899) when it is none.
/// On purpose: with both in the text the separator is another one than for StrToDateEx.
QXTOOLS_API TDateTime StrToDate2(std::string_view text);

/// Whether StrToDateEx answers 9000.
QXTOOLS_API bool CheckStrDate(std::string_view text);

// --- Writing -----------------------------------------------------------------

/// Year, month and day in 4, 2 and 2 digits, parted by the separator: "2024-03-05".
QXTOOLS_API std::string DateToStrEx(TDateTime date, char separator);

/// Year, month and day in 4, 2 and 2 digits, for file names: "20240305".
QXTOOLS_API std::string DateToFile(TDateTime date);

/// Year, month and day in Chinese, without padding: 2024年3月5日.
QXTOOLS_API std::string ChinaDate(TDateTime date);
QXTOOLS_API std::string ChinaDate(std::string_view text);

/// Year and month in Chinese, without padding: 2024年3月.
QXTOOLS_API std::string YearMonthCn(TDateTime date);
QXTOOLS_API std::string YearMonthCn(std::string_view text);

/// The Chinese name of a weekday, 星期日 to 星期六: 0 is Sunday, and so is 7. "" for any other index.
QXTOOLS_API std::string ChinaWeek(Integer index);
QXTOOLS_API std::string ChinaWeek(TDateTime date);

// --- Calendar ----------------------------------------------------------------

/// The part of the date as a number.
QXTOOLS_API Integer Year(TDateTime date);
QXTOOLS_API Integer Month(TDateTime date);
QXTOOLS_API Integer Day(TDateTime date);

/// By the rule of 4, 100 and 400, negative years too.
QXTOOLS_API bool IsLeapYear(Integer year);

/// The days of a month; 0 for a month outside 1 to 12.
QXTOOLS_API Integer DaysPerMonth(Integer year, Integer month);
QXTOOLS_API Integer DaysPerMonth(TDateTime date);

/// The weekday, 0 for Sunday to 6, by Zeller's congruence. The numbers are not checked; sums wrap at 32 bits.
QXTOOLS_API Integer Week(Integer year, Integer month, Integer day);
QXTOOLS_API Integer Week(TDateTime date);
QXTOOLS_API Integer Week(std::string_view text);

/// The days from first to second, both included: 1 for the same day, 0 when second is the day before. The
/// distance is rounded, ties to even; a distance that is not a number counts as 0, a result beyond 32 bits
/// is the nearest limit. Of two misshapen texts the second is named.
QXTOOLS_API Integer DaysOfBetween(TDateTime first, TDateTime second);
QXTOOLS_API Integer DaysOfBetween(std::string_view first, std::string_view second);

/// The date `days` later; as text, in the short date format.
QXTOOLS_API TDateTime DateAdd(TDateTime date, Integer days);
QXTOOLS_API std::string DateAdd(std::string_view text, Integer days);

/// Midnight of the first and of the last day of the date's month.
QXTOOLS_API TDateTime FirstDayOfMonth(TDateTime date);
QXTOOLS_API TDateTime LastDayOfMonth(TDateTime date);

/// Midnight of today, by the shared clock.
QXTOOLS_API TDateTime Today();

}  // namespace qxTools::QXDateTools
