// Numbers in Chinese numerals, as the year, month and day of a date have them.
#pragma once

#include <string>
#include <string_view>

namespace qxTools::calendar {

/// A number from 1 to 999 in BIG5: 一百一十三.
std::string ToNumerals(int value);

/// Takes the numerals off the front of `text` and returns their value: 一百一十三, 一百十三 and 一一三 are
/// 113. Returns 0 if there are none or they are not written in one of these ways.
int TakeNumerals(std::string_view& text);

}  // namespace qxTools::calendar
