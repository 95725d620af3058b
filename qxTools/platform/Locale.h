/// @file
/// What the locale in force says of dates and numbers.
#pragma once

#include <string>

namespace qxTools {

struct LocaleFormats {
  std::string DatePattern;   ///< As strftime takes it, "%m/%d/%y".
  std::string DecimalPoint;  ///< May be more than one byte.
};

/// The formats of the C locale that setlocale has put in force.
LocaleFormats CurrentLocaleFormats();

}  // namespace qxTools
