/// @file
/// The forms of dates and numbers in the current locale.
#pragma once

#include <string>

namespace qxTools {

/// The forms of dates and numbers.
struct LocaleFormats {
  std::string DatePattern;   ///< The date as strftime takes it, "%m/%d/%y".
  std::string DecimalPoint;  ///< The decimal separator, which may be more than one byte.
};

/// Returns the formats of the C locale that the program has set by setlocale.
LocaleFormats CurrentLocaleFormats();

}  // namespace qxTools
