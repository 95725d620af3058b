#include "TextTable.h"

#include <algorithm>

#include "Edge.h"
#include "Utf8Width.h"

namespace qxtool {

namespace {

/// How the text of a cell is shown, and in how many columns.
struct Style {
  std::string (*show)(std::string_view text);
  std::size_t (*width)(std::string_view shown);
};

void AppendRow(std::string& text, const TextRow& row, const std::vector<std::size_t>& widths, Style style) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    line += row[i];
    line.append(widths[i] - style.width(row[i]) + 2, ' ');
  }
  line.erase(line.find_last_not_of(' ') + 1);
  text += line + "\n";
}

TextRow Shown(const TextRow& row, Style style) {
  TextRow shown;
  for (const std::string& cell : row) shown.push_back(style.show(cell));
  return shown;
}

std::string Align(const TextRow& head, const std::vector<TextRow>& rows, Style style) {
  std::vector<TextRow> shown = {Shown(head, style), {}};
  for (const TextRow& row : rows) shown.push_back(Shown(row, style));
  std::vector<std::size_t> widths(head.size());
  for (const TextRow& row : shown)
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], style.width(row[i]));
  for (const std::size_t width : widths) shown[1].emplace_back(width, '-');  // the rule under the head
  std::string text;
  for (const TextRow& row : shown) AppendRow(text, row, widths, style);
  return text;
}

}  // namespace

std::string AlignRows(const TextRow& head, const std::vector<TextRow>& rows) {
  return Align(head, rows, {Visible, [](std::string_view shown) { return shown.size(); }});
}

std::string AlignUtf8Rows(const TextRow& head, const std::vector<TextRow>& rows) {
  return Align(head, rows, {VisibleUtf8, Utf8Width});
}

}  // namespace qxtool
