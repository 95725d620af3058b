// Comma-separated values, as RFC 4180 has them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TextTable.h"

namespace qxtool {

/// A cell, in quotes where it needs them. An empty text is "", and a cell without a value is empty.
std::string CsvCell(const std::optional<std::string>& text);

/// The cells of a row, ended by CR LF.
std::string CsvLine(const TextRow& row);

/// The rows of a CSV text; quotes inside a quoted cell are doubled, those in another cell are part of its
/// text, and a line break ends a row.
/// @throws Failure when a quoted cell is not closed.
std::vector<TextRow> ReadCsv(std::string_view text);

}  // namespace qxtool
