// A name in capitals, to be looked up.
#pragma once

#include <qxTools/base/CaselessHash.h>
#include <qxTools/base/CodePage950.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace qxTools {

/// The ASCII letters of a name as capitals, as bytes. Short names need no memory.
class UpperCaseKey {
 public:
  /// Letters are raised before the conversion to code page 950, so second bytes stay.
  explicit UpperCaseKey(std::u16string_view name) : size_(name.size()) {
    if (size_ > kRoom || !Fold(name)) Keep(name);
  }

  UpperCaseKey(const UpperCaseKey&) = delete;
  UpperCaseKey& operator=(const UpperCaseKey&) = delete;

  operator std::string_view() const { return {start_, size_}; }
  operator HashedName() const { return {*this, hash_}; }

 private:
  static constexpr std::size_t kWord = sizeof(std::uint64_t);
  static constexpr std::size_t kRoom = 13 * kWord;

  static std::u16string Capitals(std::u16string_view name) {
    std::u16string capitals(name);
    for (char16_t& unit : capitals)
      if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - u'a' + u'A');
    return capitals;
  }

  [[gnu::noinline]] void Keep(std::u16string_view name) {
    longer_ = WideToBytes(Capitals(name));
    start_ = longer_.data();
    size_ = longer_.size();
    hash_ = CaselessHash(longer_);
  }

  /// Writes whole words, and hashes them as it has them: words that are read again where they were not
  /// written must wait until they are in memory.
  /// @return false if a unit is not ASCII; what was written is of no use then.
  bool Fold(std::u16string_view name) {
    start_ = reinterpret_cast<const char*>(words_.data());
    std::uint64_t all = 0;
    if (name.size() < kWord) {
      words_[0] = CapitalsOf(FewerOf(name, all));
      hash_ = CaselessHash(*this);
    } else {
      FoldWords(name, all);
    }
    return (all & 0xFF80FF80FF80FF80) == 0;
  }

  void FoldWords(std::u16string_view name, std::uint64_t& all) {
    CaselessWords words;
    std::size_t start = 0;
    for (; start + kWord < name.size(); start += kWord)
      words.Add(words_[start / kWord] = CapitalsOf(EightAt(&name[start], all)));
    const std::uint64_t last = CapitalsOf(EightAt(&name[name.size() - kWord], all));
    words_[start / kWord] = last >> 8 * (start + kWord - name.size());  // without those that were written
    hash_ = words.HashWith(last, name.size());
  }

  static_assert(std::endian::native == std::endian::little);
  static constexpr std::uint64_t kEach8 = 0x0101010101010101;

  /// Four ASCII units as bytes; `all` tells whether they are.
  static std::uint64_t FourAt(const char16_t* p, std::uint64_t& all) {
    std::uint64_t units = 0;
    std::memcpy(&units, p, sizeof units);
    all |= units;
    const std::uint64_t pairs = (units | units >> 8) & 0x0000FFFF0000FFFF;
    return (pairs | pairs >> 16) & 0xFFFFFFFF;
  }

  /// Eight; a vector of them costs as much as four.
  static std::uint64_t EightAt(const char16_t* p, std::uint64_t& all) {
    using Units = std::uint16_t __attribute__((vector_size(2 * kWord)));
    using Bytes = std::uint8_t __attribute__((vector_size(kWord)));
    Units units;
    std::memcpy(&units, p, sizeof units);
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(units);
    all |= halves[0] | halves[1];
    return std::bit_cast<std::uint64_t>(__builtin_convertvector(units, Bytes));
  }

  /// Fewer than eight.
  static std::uint64_t FewerOf(std::u16string_view name, std::uint64_t& all) {
    const std::size_t size = name.size();
    if (size >= 4) return FourAt(&name[0], all) | FourAt(&name[size - 4], all) << 8 * (size - 4);
    std::uint64_t bytes = 0;
    for (std::size_t i = 0; i < size; ++i) {
      all |= name[i];
      bytes |= std::uint64_t{name[i]} << 8 * i;
    }
    return bytes;
  }

  /// Eight ASCII bytes, the letters as capitals.
  static std::uint64_t CapitalsOf(std::uint64_t bytes) {
    const std::uint64_t fromA = bytes + kEach8 * (0x80 - 'a');  // the highest bit tells
    const std::uint64_t afterZ = bytes + kEach8 * (0x7F - 'z');
    return bytes ^ (fromA & ~afterZ & kEach8 * 0x80) >> 2;
  }

  std::array<std::uint64_t, kRoom / kWord> words_;
  std::string longer_;
  const char* start_;
  std::size_t size_;
  std::uint32_t hash_;
};

}  // namespace qxTools
