/// @file
/// Numbers cleaned and formatted for display, as text.
///
/// Everything is done on characters: nothing is converted to a number, so the length has no limit and no
/// digit is ever rounded. All functions are linear in the text.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools::QXToDigit {

/// The number found in `text`: its digits, one point and a "-" in front; all else is passed over. A second
/// point, unless it stands right behind a point, and a "-" behind the beginning end the search. "a1b2.3c4"
/// gives "12.34", "-.5" gives "-0.5", "1.2.3" gives "1.2", "1..2" gives "1.2", "12-3" gives "12".
/// On purpose: "x-y" gives "-" and "5." gives "5."; a text without a number gives "".
QXTOOLS_API std::string ToDigit(std::string_view text);

/// `text` with "," between groups of three characters, counted to the left from the first "." or the end; a
/// "-" in front stays outside. "-1234.5" gives "-1,234.5".
/// On purpose: the characters are not looked at, so "abcd" gives "a,bcd".
QXTOOLS_API std::string ToKiloBit(std::string_view text);

/// `count` spaces; "" for 0 or less.
QXTOOLS_API std::string Space(Integer count);

/// What a display field of seven segments can show of `text`: spaces, "-", digits, "E" and "F" are kept and
/// counted, one "." and one "," pass between two kept characters and take no room, all else is dropped. With
/// `padLeft`, fewer than `width` counted characters are aligned right.
/// On purpose: the field takes one character more than `width`: FilterLED("1234567", 5, false) is "123456".
QXTOOLS_API std::string FilterLED(std::string_view text, Integer width, bool padLeft);

}  // namespace qxTools::QXToDigit
