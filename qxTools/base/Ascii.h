/// @file
/// Letter case and digits of byte strings. Only ASCII letters have a case; every other byte is unchanged. No
/// locale is used.
///
/// On purpose: the second byte of a double-byte character is a byte like any other, so if it is in the range
/// of the letters it is changed too. Names in old data were compared and stored this way.
#pragma once

#include <qxTools/Export.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace qxTools {

/// Returns whether a byte is one of 0 to 9.
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
/// Returns the capital of a to z. Any other byte is returned unchanged.
constexpr char UpperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
/// Returns the small letter of A to Z. Any other byte is returned unchanged.
constexpr char LowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Returns whether `a` and `b` are equal apart from letter case.
inline bool SameText(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return x == y || UpperChar(x) == UpperChar(y); });
}

/// Returns `s` with a to z replaced by A to Z.
QXTOOLS_API std::string UpperCase(std::string_view s);

/// Returns `s` with A to Z replaced by a to z.
QXTOOLS_API std::string LowerCase(std::string_view s);

}  // namespace qxTools
