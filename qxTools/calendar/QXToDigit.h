/// @file
/// Numbers cleaned and formatted for display, as text.
///
/// All functions work on characters and convert nothing to a number, so the length has no limit and no digit
/// is rounded. They never throw and are linear in the text.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools::QXToDigit {

/// Returns the number found in the text: its digits, one point, and a "-" in front; other characters are
/// ignored. ToDigit("NT$ 1,234.5") is "1234.5", "a1b2.3c4" gives "12.34", "-.5" gives "-0.5". Reading stops
/// at a second point ("1.2.3" gives "1.2"), unless it directly follows a point ("1..2" gives "1.2"), and at a
/// "-" after the beginning ("12-3" gives "12"). On purpose: "x-y" gives "-" and "5." gives "5."; a text
/// without a number gives "".
QXTOOLS_API std::string ToDigit(std::string_view text);

/// Returns the text with "," between groups of three characters, counted to the left from the first "." or
/// from the end: ToKiloBit("-1234.5") is "-1,234.5". A "-" in front is not counted. On purpose: the
/// characters are not checked, so "abcd" gives "a,bcd".
QXTOOLS_API std::string ToKiloBit(std::string_view text);

/// Returns `count` spaces; "" if `count` <= 0.
QXTOOLS_API std::string Space(Integer count);

/// Returns what a seven-segment display field can show of the text: spaces, "-", digits, "E" and "F" are kept
/// and counted; one "." and one "," between two of them are kept and not counted; other characters are
/// dropped. If `padLeft` is true, a field of fewer than `width` counted characters is filled up with spaces
/// on the left: FilterLED("1.5", 4, true) is "  1.5". On purpose: the field holds one character more than
/// `width`: FilterLED("1234567", 5, false) is "123456".
QXTOOLS_API std::string FilterLED(std::string_view text, Integer width, bool padLeft);

}  // namespace qxTools::QXToDigit
