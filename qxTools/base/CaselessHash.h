/// @file
/// A hash for names that ignore letter case. For the library's own use.
#pragma once

#include <qxTools/base/Ascii.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace qxTools {

/// Returns the bytes of `name`, 8 of them or fewer, as one number. It is the same for the same bytes; some
/// may be in it twice.
inline std::uint64_t WordOf(std::string_view name) {
  if (name.size() >= sizeof(std::uint32_t)) {
    std::uint32_t front = 0;
    std::uint32_t back = 0;
    std::memcpy(&front, name.data(), sizeof front);
    std::memcpy(&back, name.data() + name.size() - sizeof back, sizeof back);
    return front | std::uint64_t{back} << 32;
  }
  std::uint64_t word = 0;
  for (const char c : name) word = word << 8 | static_cast<unsigned char>(c);
  return word;
}

/// Returns the 8 bytes from `p` on as a number.
inline std::uint64_t EightAt(const char* p) {
  std::uint64_t word = 0;
  std::memcpy(&word, p, sizeof word);
  return word;
}

/// Equal for names that are SameText: what tells capitals from small letters is the bit 0x20.
inline std::uint32_t CaselessHash(std::string_view name) {
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
  std::uint64_t hash = name.size();
  const auto mix = [&](std::uint64_t word) {
    hash = (hash ^ (word | 0x2020202020202020)) * kSpread;
    hash ^= hash >> 32;
  };
  if (name.size() < 8) {
    mix(WordOf(name));
  } else {
    const char* const last = name.data() + name.size() - 8;  // which may overlap the eight before it
    for (const char* p = name.data(); p < last; p += 8) mix(EightAt(p));
    mix(EightAt(last));
  }
  return static_cast<std::uint32_t>(hash * kSpread >> 32);
}

/// Returns whether two names are equal, without a call of the C library: they are short.
inline bool SameBytes(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a.size() < 8) return WordOf(a) == WordOf(b);
  const std::size_t last = a.size() - 8;
  for (std::size_t i = 0; i < last; i += 8)
    if (EightAt(&a[i]) != EightAt(&b[i])) return false;
  return EightAt(&a[last]) == EightAt(&b[last]);
}

/// Returns whether two names of one hash are SameText. Nearly always they are equal as they are.
inline bool SameHashedName(std::string_view a, std::string_view b) {
  return SameBytes(a, b) || SameText(a, b);
}

}  // namespace qxTools
