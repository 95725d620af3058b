/// @file
/// Letter case and digits of byte strings: ASCII only, every other byte kept, no locale asked.
///
/// On purpose: the second byte of a double-byte character is a byte like any other, so one in the
/// range of the letters changes with them. Names in old data were compared and stored this way.
#pragma once

#include <qxTools/Export.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace qxTools {

/// One byte: whether it is a digit, as a capital, as a small letter.
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char UpperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr char LowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Whether `a` and `b` are equal but for letter case.
inline bool SameText(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return UpperChar(x) == UpperChar(y); });
}

/// `s` with a to z as A to Z.
QXTOOLS_API std::string UpperCase(std::string_view s);

/// `s` with A to Z as a to z.
QXTOOLS_API std::string LowerCase(std::string_view s);

}  // namespace qxTools
