/// @file
/// Dates of the ROC calendar (民國): reads them from text and writes them.
///
/// The year 1 is 1912; the year before it is 民國前1年 (1911), there is no year 0. Months and days are those
/// of the Gregorian calendar. Years are 1 to 999 in both directions, that is 913 to 2910.
///
/// Text is BIG5. These forms are read and written:
///
///     113/5/1  113.05.01  113-05-01     year, month and day with one separator
///     1130501  990102                   year in three or two digits, month and day in two
///     民國113年5月1日                    also 中華民國113年5月1日 and 113年5月1日 when reading
///     民國一百一十三年五月一日           also 一百十三年, 一一三年 and 元年 when reading
///     民國前1年12月31日  民前1/12/31     before 1912; 民前 goes before each of the numeric forms
///
/// Digits and separators may be full-width characters when reading. Reading is strict: nothing may be around
/// the date or between its parts, and a date that the calendar does not have is refused.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools::QXMinguoDate {

// --- Reading -----------------------------------------------------------------

/// How ReadMinguo read a text.
struct TMinguoReading {
  TDateTime Date = 0;      ///< The date; 0 if the text is not a date.
  const char* Error = "";  ///< Why the text is not a date; "" if it is one.
  const char* Rule = "";   ///< The rule that decided between two readings; "" if there is only one.
  TDateTime Gregorian =
      0;  ///< The reading that the rule refused: the year as a Gregorian one. 0 without a rule.
};

/// Reads a text and reports how: the date, or why it is not one. Never throws.
/// A year of one or two digits without 民國 can also be a Gregorian one. It is always read as a ROC year, and
/// the report names the rule and the other date: "99/1/2" is 2 January 2010, and Gregorian is 2 January 1999
/// (the hundred years are those of the format settings).
QXTOOLS_API TMinguoReading ReadMinguo(std::string_view text);

/// Returns the date of a text: MinguoToDate("113/2/29") is 29 February 2024.
/// @throws EConvertError "'112/2/29' is not a ROC date: the month has only 28 days", with the reason that
/// ReadMinguo reports.
QXTOOLS_API TDateTime MinguoToDate(std::string_view text);

// --- Writing -----------------------------------------------------------------

/// The forms that MinguoToStr writes.
enum TMinguoForm : std::uint8_t {
  mfSlash,    ///< 113/5/1
  mfPoint,    ///< 113.5.1
  mfDash,     ///< 113-5-1
  mfCompact,  ///< 1130501
  mfChinese,  ///< 民國113年5月1日
  mfNumerals  ///< 民國一百一十三年五月一日
};

/// Returns the date as text in BIG5. If `zeros` is true, the year has at least three digits, month and day
/// two: "099/01/02", which also sorts by date. mfCompact always has them; mfNumerals never has. Before 1912
/// the numeric forms begin with 民前 and the Chinese ones with 民國前. ReadMinguo reads each of them back. An
/// unknown form is written as mfSlash.
/// @throws EConvertError if the date is outside the years 913 to 2910.
QXTOOLS_API std::string MinguoToStr(TDateTime date, TMinguoForm form, bool zeros);

/// Returns the ROC year in Chinese numerals (BIG5): 民國一百一十三年, 民國元年 for 1912, 民國前一年 for 1911.
/// @throws EConvertError if the date is outside the years 913 to 2910.
QXTOOLS_API std::string MinguoYearCn(TDateTime date);

/// Returns the ROC year: 113 for 2024, 1 for 1912, -1 for 1911. Never 0.
/// @throws EConvertError if the date is outside the years 1 to 9999.
QXTOOLS_API Integer MinguoYear(TDateTime date);

}  // namespace qxTools::QXMinguoDate
