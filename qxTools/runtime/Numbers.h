/// @file
/// Conversion of numbers to text and back, for the units and Variant.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools {

/// Reads an integer: blanks (optional), a sign (optional), decimal digits.
/// @throws EConvertError "'TEXT' is not a valid integer value" for any other text, and for a number that does
/// not fit 32 bits.
QXTOOLS_API Integer StrToInt(std::string_view text);

/// Returns a number as text with up to `digits` significant digits (7 for single, 15 for double) and without
/// trailing zeros. The decimal separator is that of the format settings. Numbers below 0.00001 or with more
/// than 15 integer digits have an exponent ("1E15", "1.5E-7"). Negative zero is "0"; infinities are "INF" and
/// "-INF", not a number is "NAN".
QXTOOLS_API std::string FloatToStr(double value, int digits = 15);

/// Reads a number with the decimal separator of the format settings. Blanks around it are allowed.
/// @throws EConvertError "'TEXT' is not a valid floating point value" for any other text.
QXTOOLS_API double StrToFloat(std::string_view text);

/// Returns the nearest integer; of two equally near ones, the even one. Returns 0 for not a number, and the
/// smallest or largest 32-bit integer for a number beyond it.
QXTOOLS_API Integer RoundToInteger(long double value);

}  // namespace qxTools
