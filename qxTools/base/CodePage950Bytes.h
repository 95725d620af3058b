/// @file
/// Text in code page 950 that is worked on as bytes. For the library's own use.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qxTools {

/// Returns how many bytes the character at `at` (0-based) has: 2 for a pair that the page holds, otherwise 1.
std::size_t CharacterSize(std::string_view text, std::size_t at);

/// Returns 1: a character of wide text is one unit.
inline std::size_t CharacterSize(std::u16string_view, std::size_t) { return 1; }

/// Does what BytesToWide and WideToBytes one after the other do: each of the ten characters that the page
/// holds twice gets its main code. All other bytes are unchanged.
void UseMainCodes(std::string& text);

}  // namespace qxTools
