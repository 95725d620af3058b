/// @file
/// Numbers to text and back, as the units and Variant write and read them.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools {

/// The 32-bit integer that `text` spells: optional spaces in front, an optional sign, decimal digits.
/// @throws EConvertError "'TEXT' is not a valid integer value" for anything else, or beyond 32 bits.
QXTOOLS_API Integer StrToInt(std::string_view text);

/// `value` with up to `digits` significant digits (7 for single, 15 for double), without trailing zeros and
/// with the decimal separator of the format settings: plain from 0.00001 up to 15 integer digits, with an
/// exponent otherwise ("1E15", "1.5E-7"). Negative zero is "0"; the others are "INF", "-INF" and "NAN".
QXTOOLS_API std::string FloatToStr(double value, int digits = 15);

/// The number that `text` spells, read with the decimal separator of the format settings; spaces around it
/// are allowed.
/// @throws EConvertError "'TEXT' is not a valid floating point value" for anything else.
QXTOOLS_API double StrToFloat(std::string_view text);

/// `value` rounded to the nearest integer, ties to even. NaN gives 0, what is beyond 32 bits the nearest
/// limit.
QXTOOLS_API Integer RoundToInteger(long double value);

}  // namespace qxTools
