// Lists of texts: for people as a table with aligned columns, for programs as JSON.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qxtool {

using TextRow = std::vector<std::string>;

/// Calls its argument with each row, front to back.
using TextRows = std::function<void(const std::function<void(const TextRow&)>&)>;

/// The rows under a head, columns separated by two blanks; rows may be longer than the head. A character of
/// two bytes is two columns wide, so the length in bytes is the width; control bytes are made visible.
std::string AlignRows(const TextRow& head, const std::vector<TextRow>& rows);

/// The rows, in UTF-8, under a head, as wide as a terminal shows them; columns are separated by two blanks.
std::string AlignUtf8Rows(const TextRow& head, const std::vector<TextRow>& rows);

/// A list that a command shows.
struct TextList {
  TextRow head;
  TextRows rows;                          // visited twice, so that no more than a row is in memory
  std::vector<std::size_t> numbers = {};  // the columns that are integers in JSON, from 0
};

/// Visits rows that are in memory.
TextRows RowsOf(std::vector<TextRow> rows);

/// Prints a list as a table, line by line; with `json` as an array with an object for each row.
void PrintList(const TextList& list, bool json);

}  // namespace qxtool
