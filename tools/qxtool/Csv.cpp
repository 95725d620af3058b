#include "Csv.h"

#include <algorithm>

#include "TextIo.h"

namespace qxtool {

std::string CsvCell(const std::optional<std::string>& text) {
  if (!text) return "";
  const bool quoted = text->empty() || text->find_first_of(",\" \r\n") != std::string::npos;
  if (!quoted) return *text;
  std::string cell = "\"";
  for (const char c : *text) cell.append(c == '"' ? 2 : 1, c);
  return cell + '"';
}

std::string CsvLine(const TextRow& row) {
  std::string line;
  for (const std::string& cell : row) line += (&cell != &row.front() ? "," : "") + CsvCell(cell);
  return line + "\r\n";
}

namespace {

/// The cell at `i`, after which `i` is at the comma or the break that follows. A quote that does not begin
/// the cell is part of its text.
std::string ReadCell(std::string_view text, std::size_t& i) {
  std::string cell;
  for (bool inside = text.substr(i).starts_with('"'); inside;) {
    const std::size_t close = text.find('"', i + 1);
    if (close == std::string_view::npos) throw Failure("a quoted cell is not closed");
    cell.append(text, i + 1, close - i - 1);
    i = close + 1;
    inside = text.substr(i).starts_with('"');  // a doubled one
    if (inside) cell += '"';
  }
  const std::size_t end = std::min(text.find_first_of(",\r\n", i), text.size());
  cell.append(text, i, end - i);
  i = end;
  return cell;
}

}  // namespace

std::vector<TextRow> ReadCsv(std::string_view text) {
  std::vector<TextRow> rows;
  for (std::size_t i = 0; i < text.size();) {
    TextRow& row = rows.emplace_back();
    row.push_back(ReadCell(text, i));
    while (text.substr(i).starts_with(',')) row.push_back(ReadCell(text, ++i));
    i += text.substr(i).starts_with("\r\n") ? 2 : 1;
  }
  return rows;
}

}  // namespace qxtool
