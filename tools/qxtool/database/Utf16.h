// UTF-16, in which ODBC takes and gives text, and UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qxtool::database {

/// What no character is.
inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// The character that a text, which is not empty, begins with, and removes it; kNoCharacter if it begins with
/// none.
char32_t TakeCharacter(std::string_view& utf8);

/// Nothing if the text is not UTF-8.
std::optional<std::u16string> ToUtf16(std::string_view utf8);

/// Half of a surrogate pair becomes three bytes that are not UTF-8, so that no later conversion takes them.
std::string ToUtf8(std::u16string_view utf16);

}  // namespace qxtool::database
