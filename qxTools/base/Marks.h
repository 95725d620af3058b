/// @file
/// Marks where a short text is among 64 offsets in a row, without a branch for each.
///
/// Offsets here count from 0.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Before a function: it is compiled for AVX2, too, with all that it calls, and the program takes that one
/// where the processor has it.
#if defined(__x86_64__) && defined(__GLIBC__) && !defined(__clang__)
#define QXTOOLS_ALSO_FOR_AVX2 __attribute__((target_clones("avx2", "default"), flatten))
#else
#define QXTOOLS_ALSO_FOR_AVX2
#endif

namespace qxTools::Search {

inline constexpr std::size_t kBlock = 64;  ///< The offsets that are marked at one time.
inline constexpr std::size_t kMarked = 9;  ///< The length to which marks are exact.

/// Sixteen bytes at a time; what the processor has no registers for, the compiler takes apart.
using Bytes = unsigned char __attribute__((vector_size(16)));

/// A bit for each byte, that of the first byte lowest.
inline std::uint64_t Bits(const Bytes& bytes) {
#ifdef __SSE2__
  return static_cast<std::uint64_t>(_mm_movemask_epi8(std::bit_cast<__m128i>(bytes)));
#else
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < sizeof bytes; ++i) bits |= std::uint64_t{bytes[i] & 1U} << i;
  return bits;
#endif
}

/// Marks where `sub`, which is not empty, is among kBlock offsets.
class Marker {
 public:
  explicit Marker(std::string_view sub) : size_(sub.size()), middle_(std::min(sub.size(), kMarked) - 1) {
    first_ = Bytes{} + static_cast<unsigned char>(sub.front());
    for (std::size_t i = 1; i < middle_; ++i) wanted_[i] = Bytes{} + static_cast<unsigned char>(sub[i]);
    last_ = Bytes{} + static_cast<unsigned char>(sub.back());
  }

  /// Whether the first byte of `sub` is among the kBlock offsets from `p` on.
  bool HasFirst(const char* p) const { return !AreNone(FirstLanes(p)); }

  /// Bit i says that `sub` begins at `p + i`, or, of one longer than kMarked, that its first bytes and its
  /// last are there. kBlock - 1 bytes more than `sub` has can be read.
  std::uint64_t Mark(const char* p) const {
    Lanes lanes = FirstLanes(p);
    if (size_ > 1) Keep(lanes, p + size_ - 1, last_);
    if (size_ > 2 && AreNone(lanes)) return 0;
    // With an end that compilers know, so that they unroll it.
    for (std::size_t i = 1; i < kMarked - 1 && i < middle_; ++i) Keep(lanes, p + i, wanted_[i]);
    std::uint64_t marks = 0;
    for (std::size_t i = 0; i < lanes.size(); ++i) marks |= Bits(lanes[i]) << (i * sizeof(Bytes));
    return marks;
  }

 private:
  /// A byte for each offset: 0xFF, or 0 where something else is there than was asked for.
  using Lanes = std::array<Bytes, kBlock / sizeof(Bytes)>;

  Lanes FirstLanes(const char* p) const {
    Lanes lanes;
    lanes.fill(~Bytes{});
    Keep(lanes, p, first_);
    return lanes;
  }

  static bool AreNone(const Lanes& lanes) { return Bits(lanes[0] | lanes[1] | lanes[2] | lanes[3]) == 0; }

  /// Leaves the lanes of those offsets i where `p[i]` is the byte of `wanted`.
  static void Keep(Lanes& lanes, const char* p, const Bytes& wanted) {
    for (std::size_t i = 0; i < lanes.size(); ++i) {
      Bytes bytes;
      std::memcpy(&bytes, p + i * sizeof bytes, sizeof bytes);
      lanes[i] &= (bytes == wanted);
    }
  }

  std::size_t size_;
  std::size_t middle_;  // how many bytes in front of the last are compared
  Bytes first_;
  std::array<Bytes, kMarked - 1> wanted_;  // those between, from 1 on
  Bytes last_;
};

/// How many marks there are. std::popcount is a call where not every processor has an instruction for it.
constexpr std::size_t CountMarks(std::uint64_t marks) {
  marks -= marks >> 1 & 0x5555555555555555U;
  marks = (marks & 0x3333333333333333U) + (marks >> 2 & 0x3333333333333333U);
  marks = (marks + (marks >> 4)) & 0x0F0F0F0F0F0F0F0FU;
  return static_cast<std::size_t>(marks * 0x0101010101010101U >> 56);
}

/// The number of the lowest mark; there is one.
inline std::size_t LowestMark(std::uint64_t marks) {
  return static_cast<std::size_t>(std::countr_zero(marks));
}

/// The number of the highest mark; there is one.
inline std::size_t HighestMark(std::uint64_t marks) {
  return kBlock - 1 - static_cast<std::size_t>(std::countl_zero(marks));
}

}  // namespace qxTools::Search
