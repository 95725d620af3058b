#include "TextTable.h"

#include <algorithm>

#include "Json.h"
#include "TextIo.h"
#include "Utf8Width.h"

namespace qxtool {

namespace {

/// How the text of a cell is shown, and in how many columns.
struct Style {
  std::string (*show)(std::string_view text);
  std::size_t (*width)(std::string_view shown);
};

constexpr Style kBytes = {VisibleCell, [](std::string_view shown) { return shown.size(); }};
constexpr Style kUtf8 = {VisibleUtf8, Utf8Width};

std::string Line(const TextRow& row, const std::vector<std::size_t>& widths, Style style) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string cell = style.show(row[i]);
    line += cell;
    line.append(widths[i] - style.width(cell) + 2, ' ');
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

void Align(const TextRow& head, const TextRows& rows, Style style,
           const std::function<void(const std::string& line)>& put) {
  std::vector<std::size_t> widths;
  const auto widen = [&](const TextRow& row) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], style.width(style.show(row[i])));
  };
  widen(head);
  rows(widen);
  TextRow rule;
  for (const std::size_t width : widths) rule.emplace_back(width, '-');
  put(Line(head, widths, style));
  put(Line(rule, widths, style));
  rows([&](const TextRow& row) { put(Line(row, widths, style)); });
}

std::string Aligned(const TextRow& head, const std::vector<TextRow>& rows, Style style) {
  std::string text;
  const auto each = [&](const auto& visit) { std::for_each(rows.begin(), rows.end(), visit); };
  Align(head, each, style, [&](const std::string& line) { text += line; });
  return text;
}

}  // namespace

std::string AlignRows(const TextRow& head, const std::vector<TextRow>& rows) {
  return Aligned(head, rows, kBytes);
}

std::string AlignUtf8Rows(const TextRow& head, const std::vector<TextRow>& rows) {
  return Aligned(head, rows, kUtf8);
}

TextRows RowsOf(std::vector<TextRow> rows) {
  return [rows = std::move(rows)](const auto& visit) { std::ranges::for_each(rows, visit); };
}

void PrintList(const TextList& list, bool json) {
  if (json) return PrintJsonList(list);
  Emphasis emphasis = Emphasis::kBold;  // of the head
  Align(list.head, list.rows, kBytes, [&](const std::string& line) {
    Display(Emphasised(line, emphasis, stdout));
    emphasis = Emphasis::kNone;
  });
}

}  // namespace qxtool
