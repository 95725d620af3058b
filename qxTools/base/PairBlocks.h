/// @file
/// Text of single bytes and pairs of bytes, as BIG5 and GB2312 are, which is converted to text of the same
/// layout: pairs become pairs. For the library's own use.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qxTools {

/// Returns which of the 64 bytes from `p` on are not ASCII, the first one as the lowest bit.
inline std::uint64_t NonAsciiBits(const char* p) {
  std::uint64_t bits = 0;
  for (int i = 56; i >= 0; i -= 8) {
    std::uint64_t word;
    std::memcpy(&word, p + i, sizeof word);
    if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
    // The product gathers the highest bits of the bytes in the top byte.
    bits = bits << 8 | (word & 0x8080808080808080U) * 0x0002040810204081U >> 56;
  }
  return bits;
}

/// Returns where pairs begin, if `nonAscii` begins with a character: in each run of such bytes every second
/// one, from its first. What follows a run of odd length ends its last pair, whatever it is.
inline std::uint64_t PairStarts(std::uint64_t nonAscii) {
  constexpr std::uint64_t kEven = 0x5555555555555555U;
  const std::uint64_t runStarts = nonAscii & ~(nonAscii << 1);
  const std::uint64_t runsFromEven = nonAscii & ~(nonAscii + (runStarts & kEven));  // a sum clears its run
  return (runsFromEven & kEven) | (nonAscii & ~runsFromEven & ~kEven);
}

/// Converts text from `p`, where a character begins, to `out`, and advances both alike. It stops at a pair
/// for which `convert(p, out)`, which writes the two bytes of a pair, returns false, and within the last 64
/// bytes.
///
/// A block is copied whole and then its pairs are converted one by one: a change between single bytes and
/// pairs costs no wrong guess of the processor, as a loop for each kind does. Long runs of pairs have a loop.
template <class ConvertPair>
void ConvertBlocks(const char*& p, const char* end, char*& out, ConvertPair convert) {
  constexpr std::ptrdiff_t kBlock = 64;
  const char* from = p;  // copies of the references, which stay in registers
  char* to = out;
  while (end - from > kBlock) {
    std::uint64_t starts = PairStarts(NonAsciiBits(from));
    if (starts == 0x5555555555555555U) {
      const char* const runStart = from;
      for (; from < end - 1 && convert(from, to); from += 2) to += 2;
      if (from == runStart) break;
      continue;
    }
    std::ptrdiff_t done = kBlock + static_cast<std::ptrdiff_t>(starts >> 63);
    std::memcpy(to, from, kBlock);
    for (; starts != 0; starts &= starts - 1) {
      const auto at = static_cast<unsigned>(std::countr_zero(starts));
      if (!convert(from + at, to + at)) [[unlikely]] {
        done = at;
        break;
      }
    }
    from += done;
    to += done;
    if (done < kBlock) break;
  }
  p = from;
  out = to;
}

}  // namespace qxTools
