#include "Csv.h"

#include "Edge.h"

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

std::vector<TextRow> ReadCsv(std::string_view text) {
  std::vector<TextRow> rows;
  bool inQuotes = false;
  bool rowOpen = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (!rowOpen) {
      rows.push_back({""});
      rowOpen = true;
    }
    if (c == '"') {
      const bool doubled = inQuotes && i + 1 < text.size() && text[i + 1] == '"';
      if (doubled) rows.back().back() += text[++i];
      inQuotes = doubled || !inQuotes;
    } else if (inQuotes || (c != ',' && c != '\r' && c != '\n')) {
      rows.back().back() += c;
    } else if (c == ',') {
      rows.back().emplace_back();
    } else {
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      rowOpen = false;
    }
  }
  if (inQuotes) throw Failure("a quoted cell is not closed");
  return rows;
}

}  // namespace qxtool
