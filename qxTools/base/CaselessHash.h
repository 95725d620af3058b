/// @file
/// A hash for names that ignore letter case. For the library's own use.
#pragma once

#include <qxTools/base/Ascii.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
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

/// A hash of words of 8 bytes. What tells capitals from small letters is the bit 0x20, which is ignored.
class CaselessWords {
 public:
  void Add(std::uint64_t word) { hash_ = Mixed(word); }
  /// Returns the hash of the words so far and of the last one, of a text of `size` bytes.
  std::uint32_t HashWith(std::uint64_t last, std::size_t size) const {
    return static_cast<std::uint32_t>((Mixed(last) ^ size) * kSpread >> 32);
  }

 private:
  static constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;

  std::uint64_t Mixed(std::uint64_t word) const {
    const std::uint64_t mixed = (hash_ ^ (word | 0x2020202020202020)) * kSpread;
    return mixed ^ mixed >> 32;
  }

  std::uint64_t hash_ = 0;
};

/// Hashes of what a text begins with, shortest first; its bytes are read by words and no further than needed.
/// They are equal for beginnings that are SameText.
class CaselessPrefixes {
 public:
  explicit CaselessPrefixes(std::string_view text) : text_(text) {}

  /// Returns the hash of the first `size` bytes. `size` must not be less than in the call before.
  std::uint32_t HashOf(std::size_t size) {
    if (size < 8) return words_.HashWith(WordOf(text_.substr(0, size)), size);
    for (; read_ + 8 < size; read_ += 8) words_.Add(EightAt(&text_[read_]));
    return words_.HashWith(EightAt(&text_[size - 8]), size);  // which may overlap the eight before it
  }

 private:
  std::string_view text_;
  std::size_t read_ = 0;
  CaselessWords words_;  // those that are read
};

/// Equal for names that are SameText.
inline std::uint32_t CaselessHash(std::string_view name) {
  return CaselessPrefixes(name).HashOf(name.size());
}

/// A name that is looked up, with its CaselessHash.
struct HashedName {
  HashedName(std::string_view name) : HashedName(name, CaselessHash(name)) {}
  HashedName(const std::string& name) : HashedName(std::string_view(name)) {}
  HashedName(std::string_view name, std::uint32_t itsHash) : text(name), hash(itsHash) {}

  std::string_view text;
  std::uint32_t hash;
};

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
