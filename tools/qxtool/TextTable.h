// A table of text, its columns aligned.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qxtool {

using TextRow = std::vector<std::string>;

/// Calls its argument with each row, front to back.
using TextRows = std::function<void(const std::function<void(const TextRow&)>&)>;

/// The rows under a head, columns parted by two blanks; rows may be longer than the head. A character of two
/// bytes is two columns wide, so the length in bytes is the width; control bytes are made visible.
std::string AlignRows(const TextRow& head, const std::vector<TextRow>& rows);

/// The same for rows in UTF-8, as wide as a terminal shows them.
std::string AlignUtf8Rows(const TextRow& head, const std::vector<TextRow>& rows);

/// Prints what AlignRows gives, line by line: `rows` is called twice, so no more than a row lies in memory.
void PrintRows(const TextRow& head, const TextRows& rows);

}  // namespace qxtool
