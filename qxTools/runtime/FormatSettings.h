/// @file
/// The formats of dates and numbers as text: one record for the whole process.
///
/// At first the formats are fixed, so that results do not depend on where a program runs. A host that wants
/// the user's formats calls UseLocale or changes the record.
#pragma once

#include <qxTools/Export.h>

#include <string>

namespace qxTools {

/// The formats of dates and numbers.
struct FormatSettings {
  /// Year, month and day in any order: yyyy or yy, mm or m, dd or d. Each "/" is replaced by the date
  /// separator.
  std::string ShortDateFormat = "yyyy/mm/dd";
  char DateSeparator = '/';     ///< The sign between the parts of a date.
  char DecimalSeparator = '.';  ///< The sign before a fraction.
  /// The first of the hundred years in which a year of one or two digits is read: 1950 to 2049.
  int TwoDigitYearStart = 1950;
};

/// Returns the formats of this process, which may be changed. They are not protected against changes by
/// another thread.
QXTOOLS_API FormatSettings& GetFormatSettings();

/// Sets the date format, the date separator and the decimal separator to those of the current C locale
/// (setlocale). If the locale's dates have words, the date format and separator are unchanged; if they have
/// signs other than ASCII, the separator is "/".
QXTOOLS_API void UseLocale();

}  // namespace qxTools
