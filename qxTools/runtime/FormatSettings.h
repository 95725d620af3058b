/// @file
/// How dates and numbers read as text: one record for the whole process.
///
/// It starts fixed, so that output never depends on where a program runs. A host that wants the user's own
/// settings calls UseLocale, or writes the fields.
#pragma once

#include <qxTools/Export.h>

#include <string>

namespace qxTools {

/// The settings.
struct FormatSettings {
  /// Runs of y, m and d (yyyy or yy, mm or m, dd or d), each "/" standing for the date separator.
  std::string ShortDateFormat = "yyyy/mm/dd";
  char DateSeparator = '/';     ///< Between the parts of a date.
  char DecimalSeparator = '.';  ///< In front of a fraction.
  /// First year of the hundred that years of one or two digits are read into: 1950 to 2049.
  int TwoDigitYearStart = 1950;
};

/// The process-wide settings, to read and to write.
QXTOOLS_API FormatSettings& GetFormatSettings();

/// Takes the order of the date's parts, the date separator and the decimal separator from the C locale in
/// force (setlocale). A locale that writes dates in words or with signs beyond ASCII keeps "/".
QXTOOLS_API void UseLocale();

}  // namespace qxTools
