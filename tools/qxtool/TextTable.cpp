#include "TextTable.h"

#include <algorithm>

#include "Edge.h"

namespace qxtool {

namespace {

void AppendRow(std::string& text, const TextRow& row, const std::vector<std::size_t>& widths) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    line += row[i];
    line.append(widths[i] - row[i].size() + 2, ' ');
  }
  line.erase(line.find_last_not_of(' ') + 1);
  text += line + "\n";
}

}  // namespace

std::string AlignRows(const TextRow& head, const std::vector<TextRow>& rows) {
  std::vector<TextRow> shown;
  for (const TextRow& row : rows) {
    shown.emplace_back();
    for (const std::string& cell : row) shown.back().push_back(Visible(cell));
  }
  std::vector<std::size_t> widths;
  TextRow rule;
  for (std::size_t i = 0; i < head.size(); ++i) {
    std::size_t width = head[i].size();
    for (const TextRow& row : shown) width = std::max(width, row[i].size());
    widths.push_back(width);
    rule.emplace_back(width, '-');
  }
  std::string text;
  AppendRow(text, head, widths);
  AppendRow(text, rule, widths);
  for (const TextRow& row : shown) AppendRow(text, row, widths);
  return text;
}

}  // namespace qxtool
