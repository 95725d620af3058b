#include "Excerpt.h"

#include <algorithm>

#include "Characters.h"
#include "CheckFile.h"

namespace qxtool::check {

namespace {

constexpr std::size_t kInFront = 60;  // bytes of a long line that are shown in front of the finding
constexpr std::size_t kMost = 120;    // and in all

/// A character fit for a terminal: a tab as a blank, other controls and stray bytes as \xNN.
std::string Printable(std::string_view character) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const char c = character[0];
  if (character.size() == 2 || (Byte(c) >= ' ' && Byte(c) < 0x7F)) return std::string(character);
  if (c == '\t') return " ";
  return {'\\', 'x', kDigits[Byte(c) >> 4], kDigits[Byte(c) & 15]};
}

std::string PrintableText(std::string_view text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t size = CharacterSize(text, i);
    shown += Printable(text.substr(i, size));
    i += size;
  }
  return shown;
}

/// Where the shown part of a long line begins: behind a byte that is surely no part of a longer character.
std::size_t FrontBoundary(std::string_view line, std::size_t begin) {
  if (begin <= kInFront) return 0;
  std::size_t first = begin - kInFront;
  while (first < begin && Byte(line[first - 1]) >= 0x40) ++first;
  return first;
}

/// The first character boundary at or behind `least`; `begin` is one.
std::size_t BoundaryFrom(std::string_view text, std::size_t begin, std::size_t least) {
  while (begin < least) begin += CharacterSize(text, begin);
  return begin;
}

/// Fills in the part of the line around the finding. A character of two bytes is two columns wide.
void Excerpt(std::string_view line, std::size_t begin, std::size_t end, ShownFinding& shown) {
  const std::size_t first = FrontBoundary(line, begin);
  const std::size_t last =
      line.size() - first > kMost ? BoundaryFrom(line, first, first + kMost) : line.size();
  end = std::clamp(end, begin, std::max(begin, last));
  const std::string front = (first > 0 ? "..." : "") + PrintableText(line.substr(first, begin - first));
  const std::string marked = PrintableText(line.substr(begin, end - begin));
  shown.excerpt = front + marked + PrintableText(line.substr(end, last > end ? last - end : 0)) +
                  (last < line.size() ? "..." : "");
  shown.caret = front.size();
  shown.caretWidth = std::max<std::size_t>(marked.size(), 1);
}

}  // namespace

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); i += CharacterSize(text, i)) ++count;
  return count;
}

void LineCounter::TakeLine(std::size_t begin) {
  begin_ = begin;
  line_ = text_.substr(begin, breaks_.From(begin) - begin);
  hash_ = HashOfLine(line_);
  ++number_;
  counted_ = 0;
  column_ = 1;
}

void LineCounter::MoveTo(std::size_t place) {
  for (;;) {
    const std::size_t end = begin_ + line_.size();
    const std::size_t next = end + (text_.substr(end, 2) == "\r\n" ? 2 : 1);
    if (next > place || next >= text_.size()) return;
    TakeLine(next);
  }
}

void LineCounter::Place(std::size_t begin, std::size_t end, ShownFinding& shown) {
  MoveTo(begin);
  const std::size_t from = std::min(begin - begin_, line_.size());
  const std::size_t to = std::clamp(end - begin_, from, line_.size());
  column_ += CountCharacters(line_.substr(counted_, from - counted_));
  counted_ = from;
  shown.line = number_;
  shown.column = column_;
  shown.endColumn = column_ + CountCharacters(line_.substr(from, to - from));
  shown.lineHash = hash_;
  Excerpt(line_, from, to, shown);
}

std::string Shown(std::string_view text) {
  const std::size_t cut = text.size() > 40 ? BoundaryFrom(text, 0, 40) : text.size();
  return PrintableText(text.substr(0, cut)) + (cut < text.size() ? "..." : "");
}

}  // namespace qxtool::check
