/// @file
/// The search under QXStrTools: every occurrence of a text in another, in one forward walk.
///
/// Private to this folder. Offsets here count from 0.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace qxTools::QXStrTools {

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

/// Marks 64 offsets in a row: bit i says that `begin[i]` is `first` and `end[i]` is `last`. Plain loops,
/// since compilers turn them into a few wide compares.
inline std::uint64_t MarkBlock(const char* begin, const char* end, char first, char last) {
  std::array<std::uint8_t, 64> marks;
  for (std::size_t i = 0; i < marks.size(); ++i) marks[i] = (begin[i] == first) & (end[i] == last);
  const auto eights = std::bit_cast<std::array<std::uint64_t, 8>>(marks);
  std::uint64_t any = 0;
  for (const std::uint64_t eight : eights) any |= eight;
  if (any == 0) return 0;
  // The product gathers the lowest bits of eight bytes in its top byte, the first byte's lowest.
  constexpr std::uint64_t kGather =
      std::endian::native == std::endian::little ? 0x0102040810204080U : 0x8040201008040201U;
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < eights.size(); ++i) bits |= (eights[i] * kGather >> 56) << (8 * i);
  return bits;
}

/// Whether `sub` is at `offset` of `s`, where its first and its last byte are.
inline bool IsMiddleAt(std::string_view sub, std::string_view s, std::size_t offset) {
  return sub.size() < 3 || std::memcmp(&s[offset + 1], &sub[1], sub.size() - 2) == 0;
}

/// The marks from the n-th on.
constexpr std::uint64_t MarksFrom(std::size_t n) { return n < 64 ? ~std::uint64_t{0} << n : 0; }

/// VisitOccurrences with an automaton: the slower way on most texts, but as quick on the worst.
template <class Visit>
void CrawlOccurrences(std::string_view sub, std::string_view s, std::size_t from, std::size_t step,
                      Visit visit) {
  const Automaton automaton(sub);
  std::size_t matched = 0;
  for (std::size_t i = from; i < s.size(); ++i) {
    matched = automaton.Feed(matched, s[i]);
    if (matched < sub.size()) continue;
    if (!visit(i + 1 - sub.size())) return;
    if (step > 1) matched = 0;
  }
}

/// Calls `visit(offset)` for the occurrences of `sub`, which is not empty, at or behind `from` in `s`, from
/// left to right, until it returns false. `step` is 1, to see overlapping occurrences too, or the length of
/// `sub`, to go on behind each. Linear in the way covered plus `sub`, however often `sub` or parts of it
/// occur.
///
/// Offsets where the first and the last byte match are marked 64 at a time and compared. Where the first byte
/// is rare, memchr hops to it. Both may read bytes again; once that has cost a few times the distance
/// covered, the automaton does the rest. All three find the same offsets.
template <class Visit>
void VisitOccurrences(std::string_view sub, std::string_view s, std::size_t from, std::size_t step,
                      Visit visit) {
  const std::size_t m = sub.size();
  constexpr std::size_t kLongHop = 64;  // the distance from which memchr beats marking
  const std::size_t start = from;
  std::size_t hit = from;
  std::size_t next = from;  // behind the last occurrence, where those that overlap it are left out
  std::size_t compared = 0;
  bool far = false;
  while (compared <= 4 * (from - start + m) + 64) {
    if (far || s.size() - from < 63 + m) {
      compared += m;
      const std::size_t offset = FindFirstByte(sub, s, from);
      if (offset == std::string_view::npos) return;
      const bool isHit = s[offset + m - 1] == sub.back() && IsMiddleAt(sub, s, offset);
      if (isHit && !visit(offset)) return;
      far = offset - hit >= kLongHop;
      hit = offset;
      from = offset + (isHit ? step : 1);
      continue;
    }
    const std::size_t base = from;
    std::uint64_t marks = MarkBlock(&s[base], &s[base + m - 1], sub.front(), sub.back());
    far = marks == 0 && base + 64 - hit >= kLongHop;
    while (marks != 0) {
      const std::size_t offset = base + static_cast<std::size_t>(std::countr_zero(marks));
      marks &= marks - 1;
      if (m > 2) {
        compared += m;
        if (!IsMiddleAt(sub, s, offset)) continue;
      }
      if (!visit(offset)) return;
      hit = offset;
      next = offset + step;
      if (step > 1) marks &= MarksFrom(next - base);
    }
    from = std::max(base + 64, next);
  }
  CrawlOccurrences(sub, s, from, step, visit);
}

}  // namespace qxTools::QXStrTools
