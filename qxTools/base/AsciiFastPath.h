/// @file
/// Runs of ASCII, which text converters copy without looking at each character.
#pragma once

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace qxTools {

/// Returns whether the `kLength` units from `p` on are all ASCII. The compiler makes vector code of it.
template <std::ptrdiff_t kLength, class Unit>
bool IsAsciiBlock(const Unit* p) {
  std::make_unsigned_t<Unit> all = 0;  // as narrow as the text, or each unit would be widened first
  for (std::ptrdiff_t i = 0; i < kLength; ++i) all = static_cast<decltype(all)>(all | p[i]);
  return all < 0x80;
}

/// Returns whether [p, end) is all ASCII.
template <class Unit>
bool IsAllAscii(const Unit* p, const Unit* end) {
  constexpr std::ptrdiff_t kBlock = 256;
  for (; end - p >= kBlock; p += kBlock)
    if (!IsAsciiBlock<kBlock>(p)) return false;
  return std::all_of(p, end, [](Unit unit) { return IsAsciiBlock<1>(&unit); });
}

/// Returns the end of the run of ASCII at the front of [p, end).
template <class Unit>
Unit* SkipAscii(Unit* p, Unit* end) {
  constexpr std::ptrdiff_t kBlock = 32;
  while (end - p >= kBlock && IsAsciiBlock<kBlock>(p)) p += kBlock;
  while (p < end && IsAsciiBlock<1>(p)) ++p;
  return p;
}

/// Copies the ASCII at the front of [p, end) to `out` and advances `p` and `out` past it.
template <class From, class To>
void CopyAscii(const From*& p, const From* end, To*& out) {
  constexpr std::ptrdiff_t kBlock = 32;
  const From* from = p;  // copies of the references, which stay in registers
  To* to = out;
  for (; end - from >= kBlock && IsAsciiBlock<kBlock>(from); from += kBlock, to += kBlock)
    std::copy_n(from, kBlock, to);
  while (from < end && IsAsciiBlock<1>(from)) *to++ = static_cast<To>(*from++);
  p = from;
  out = to;
}

}  // namespace qxTools
