// A table of text, its columns aligned.
#pragma once

#include <string>
#include <vector>

namespace qxtool {

using TextRow = std::vector<std::string>;

/// The rows under a head, columns parted by two blanks. A character of two bytes is two columns wide, so the
/// length in bytes is the width; control bytes are made visible.
std::string AlignRows(const TextRow& head, const std::vector<TextRow>& rows);

/// The same for rows in UTF-8, as wide as a terminal shows them.
std::string AlignUtf8Rows(const TextRow& head, const std::vector<TextRow>& rows);

}  // namespace qxtool
