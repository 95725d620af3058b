// UTF-8 on a terminal.
#pragma once

#include <string>
#include <string_view>

namespace qxtool {

/// `utf8` as a terminal can show it: control characters and bytes that are not UTF-8 as \xNN.
std::string VisibleUtf8(std::string_view utf8);

/// The columns that a text made visible takes: wide characters count two, combining ones none.
std::size_t Utf8Width(std::string_view utf8);

}  // namespace qxtool
