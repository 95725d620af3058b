// Searches a text for marks and lines from front to back, each byte once.
#pragma once

#include <qxTools/base/Marks.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace qxTools {

/// Returns the first place (0-based) of `mark` from `start` on, or the text's length.
template <class Char>
std::size_t FindUnit(std::basic_string_view<Char> text, Char mark, std::size_t start) {
  if constexpr (sizeof(Char) == 1) return std::min(text.find(mark, start), text.size());
  constexpr std::ptrdiff_t kBlock = 32;
  const Char* p = text.data() + std::min(start, text.size());
  const Char* const end = text.data() + text.size();
  for (; end - p >= kBlock; p += kBlock) {  // vector code, unlike the search of wide text in the C++ library
    Char found = 0;
    for (std::ptrdiff_t i = 0; i < kBlock; ++i) found = static_cast<Char>(found | Char{p[i] == mark});
    if (found != 0) break;
  }
  return static_cast<std::size_t>(std::find(p, end, mark) - text.data());
}

/// Returns how often `mark` is in the text.
inline std::size_t CountByte(std::string_view text, char mark) {
  constexpr std::size_t kBlock = 240;  // whose count fits in a byte
  std::size_t count = 0;
  while (!text.empty()) {
    const std::string_view block = text.substr(0, kBlock);
    std::uint8_t inBlock = 0;  // no wider, so that the compiler makes vector code of it
    for (const char c : block) inBlock = static_cast<std::uint8_t>(inBlock + (c == mark));
    count += inBlock;
    text.remove_prefix(block.size());
  }
  return count;
}

/// Returns the first of 16 characters for which `isMark` is true, or 16. A plain loop, since compilers turn
/// it into a few wide compares.
template <class Char, class IsMark>
std::size_t FindIn16(const Char* p, IsMark isMark) {
  std::array<std::uint8_t, 16> marks;
  for (std::size_t i = 0; i < marks.size(); ++i) marks[i] = isMark(p[i]) ? 0xFF : 0;
  Search::Bytes bytes;
  std::memcpy(&bytes, marks.data(), sizeof bytes);
  const std::uint64_t bits = Search::Bits(bytes);
  return bits != 0 ? Search::LowestMark(bits) : marks.size();
}

/// Finds the nearest of two characters, again and again, from front to back. Near ones are found by one
/// search for both. Of far ones the next place of each is remembered until it has been passed, so a text that
/// has only one of them is not searched for the other at every step.
template <class Char>
class NearestOfTwo {
 public:
  /// Searches `text`, which must outlive this object.
  NearestOfTwo(std::basic_string_view<Char> text, Char first, Char second)
      : text_(text),
        first_(first),
        second_(second),
        nextFirst_(Find(first, 0)),
        nextSecond_(first == second ? text.size() : Find(second, 0)) {}

  /// Returns the place of the nearest of both from `start` on, or the length of the text if there is none.
  /// `start` must not be less than in the call before.
  std::size_t From(std::size_t start) {
    if (const std::size_t next = std::min(nextFirst_, nextSecond_); next >= start) return next;
    const std::size_t farther = start + kNear;
    const auto isMark = [&](Char c) { return ((c == first_) | (c == second_)) != 0; };
    for (; start < farther && start + 16 <= text_.size(); start += 16)
      if (const std::size_t place = FindIn16(&text_[start], isMark); place < 16) return start + place;
    if (nextFirst_ < start) nextFirst_ = Find(first_, start);
    if (nextSecond_ < start) nextSecond_ = Find(second_, start);
    return std::min(nextFirst_, nextSecond_);
  }

 private:
  static constexpr std::size_t kNear = 32;

  std::size_t Find(Char mark, std::size_t start) const { return FindUnit(text_, mark, start); }

  std::basic_string_view<Char> text_;
  Char first_;
  Char second_;
  std::size_t nextFirst_;
  std::size_t nextSecond_;
};

/// Calls `visit` with each line of a text. Lines are separated by CR LF, LF or CR; a line break at the very
/// end adds no empty line. `visit` may change the line and the break behind it.
template <class Char, class Visit>
void ForEachLine(std::basic_string_view<Char> text, Visit visit) {
  NearestOfTwo<Char> breaks(text, Char('\r'), Char('\n'));
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = breaks.From(start);
    const bool pair = end + 1 < text.size() && text[end] == Char('\r') && text[end + 1] == Char('\n');
    const std::size_t next = end + (pair ? 2 : 1);
    visit(text.substr(start, end - start));
    start = next;
  }
}

/// Returns the lines of a text, which are separated by CR LF, LF or CR. A line break at the very end adds no
/// empty line.
template <class Char>
std::vector<std::basic_string_view<Char>> SplitLines(std::basic_string_view<Char> text) {
  std::vector<std::basic_string_view<Char>> lines;
  ForEachLine(text, [&](std::basic_string_view<Char> line) { lines.push_back(line); });
  return lines;
}

}  // namespace qxTools
