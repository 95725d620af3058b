// UTF-16, in which ODBC takes and gives text, and UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qxtool::database {

/// Nothing if the text is not UTF-8.
std::optional<std::u16string> ToUtf16(std::string_view utf8);

/// Half of a surrogate pair becomes three bytes that are not UTF-8, so that no later conversion takes them.
std::string ToUtf8(std::u16string_view utf16);

}  // namespace qxtool::database
