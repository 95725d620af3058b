/// @file
/// The search under the units: every occurrence of a text in another, in one forward walk.
///
/// Offsets here count from 0.
#pragma once

#include <qxTools/base/Marks.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace qxTools::Search {

/// Recognises `sub` in a stream of bytes by its borders (Knuth, Morris and Pratt), reading each byte once.
class Automaton {
 public:
  /// `sub` is not empty and outlives the automaton.
  explicit Automaton(std::string_view sub);

  /// The length of the longest beginning of `sub` that ends the stream once `c` is read; `matched` is the one
  /// before. It is all of `sub` where an occurrence ends.
  std::size_t Feed(std::size_t matched, char c) const {
    while (matched > 0 && (matched == sub_.size() || sub_[matched] != c)) matched = borders_[matched - 1];
    return sub_[matched] == c ? matched + 1 : 0;
  }

  /// Feeds `text` until an occurrence ends. @return whether one did.
  bool Read(std::string_view text, std::size_t& matched) const {
    for (const char c : text) {
      matched = Feed(matched, c);
      if (matched == sub_.size()) return true;
    }
    return false;
  }

  /// Whether two occurrences can overlap.
  bool Overlaps() const { return borders_.back() > 0; }

 private:
  std::string_view sub_;
  std::vector<std::size_t> borders_;  // [i]: the border of the first i + 1 bytes
};

/// The offset of the first place at or after `from` where `sub`, which is not empty, could begin by its first
/// byte, or npos.
inline std::size_t FindFirstByte(std::string_view sub, std::string_view s, std::size_t from) {
  if (s.size() - from < sub.size()) return std::string_view::npos;
  const void* const found = std::memchr(s.data() + from, sub.front(), s.size() - from - sub.size() + 1);
  if (found == nullptr) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - s.data());
}

/// Whether `sub` is at `offset` of `s`, where its first byte is.
inline bool IsRestAt(std::string_view sub, std::string_view s, std::size_t offset) {
  return s[offset + sub.size() - 1] == sub.back() &&
         (sub.size() < 3 || std::memcmp(&s[offset + 1], &sub[1], sub.size() - 2) == 0);
}

/// Of the marks at `from`, those where all of `sub` is; adds the bytes that may be read for it to `compared`.
inline std::uint64_t Confirmed(std::uint64_t marks, std::string_view sub, std::string_view s,
                               std::size_t from, std::size_t& compared) {
  for (std::uint64_t left = marks; left != 0; left &= left - 1) {
    compared += sub.size();
    if (!IsRestAt(sub, s, from + LowestMark(left))) marks ^= left & -left;
  }
  return marks;
}

/// VisitMarks with an automaton: the slower way on most texts, but as quick on the worst.
template <class Visit>
void CrawlMarks(std::string_view sub, std::string_view s, std::size_t from, Visit visit) {
  const Automaton automaton(sub);
  std::size_t matched = 0;
  for (std::size_t i = from; i < s.size(); ++i) {
    matched = automaton.Feed(matched, s[i]);
    if (matched == sub.size() && !visit(i + 1 - sub.size(), 1)) return;
  }
}

/// Calls `visit(offset, marks)` for the occurrences of `sub`, which is not empty, in `s`, from left to right,
/// until it returns false: bit i of `marks`, some of which are set, says that one begins at `offset + i`.
/// Those that overlap count. Linear in the way covered plus `sub`, however often `sub` or parts of it occur.
///
/// Where the first byte is rare, memchr hops to it; elsewhere 64 offsets at a time are marked. Both may read
/// bytes again; once that has cost a few times the distance covered, the automaton does the rest. All three
/// find the same offsets.
template <class Visit>
void VisitMarks(std::string_view sub, std::string_view s, Visit visit) {
  constexpr std::size_t kFar = 1024;  // the distance from which memchr is quicker than a look at each block
  const std::size_t reach = kBlock - 1 + sub.size();
  const std::size_t blocksEnd = s.size() < reach ? 0 : s.size() - reach + 1;
  std::size_t from = 0;
  std::size_t compared = 0;
  const auto isCheap = [&] { return compared <= 4 * (from + sub.size()) + 64; };
  while (isCheap()) {
    const std::size_t offset = FindFirstByte(sub, s, from);
    if (offset == std::string_view::npos) return;
    const bool isFar = offset - from >= kFar;
    compared += sub.size();
    if (IsRestAt(sub, s, offset) && !visit(offset, std::uint64_t{1})) return;
    from = offset + 1;
    if (isFar || from >= blocksEnd) continue;
    const Marker marker(sub);
    do {
      const std::size_t end = std::min(blocksEnd, from + kFar);
      while (from < end && !marker.HasFirst(&s[from])) from += kBlock;
      if (from >= end) break;
      std::uint64_t marks = marker.Mark(&s[from]);
      if (sub.size() > kMarked) marks = Confirmed(marks, sub, s, from, compared);
      if (marks != 0 && !visit(from, marks)) return;
      from += kBlock;
    } while (sub.size() <= kMarked || isCheap());
  }
  CrawlMarks(sub, s, from, visit);
}

/// How far the way to the n-th occurrence led: the occurrences met and the offsets of the last two.
struct Way {
  std::size_t count = 0;
  std::size_t last = 0;
  std::size_t before = 0;  // valid where `count` is n
};

/// The way to the n-th occurrence of `sub` in `s`, those that overlap counted. An empty `sub` has none.
Way WayTo(std::string_view sub, std::string_view s, std::size_t n);

/// Calls `visit(offset)` for the occurrences of `sub`, which is not empty, in `s`, from left to right and
/// going on behind each, until it returns false.
template <class Visit>
void VisitApart(std::string_view sub, std::string_view s, Visit visit) {
  std::size_t next = 0;
  VisitMarks(sub, s, [&](std::size_t base, std::uint64_t marks) {
    for (; marks != 0; marks &= marks - 1) {
      const std::size_t offset = base + LowestMark(marks);
      if (offset < next) continue;
      if (!visit(offset)) return false;
      next = offset + sub.size();
    }
    return true;
  });
}

}  // namespace qxTools::Search
