// A name in capitals, to be looked up.
#pragma once

#include <qxTools/base/Ascii.h>
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
  }

  /// Writes whole words: hashing reads words, and waits for bytes that were written one by one.
  /// @return false if a unit is not ASCII; what was written is of no use then.
  bool Fold(std::u16string_view name) {
    std::uint64_t units = 0;
    for (std::size_t start = 0; start < name.size(); start += kWord) {
      const std::uint64_t low = FourAt(name, start);
      const std::uint64_t high = FourAt(name, start + 4);
      units |= low | high;
      words_[start / kWord] = CapitalsOf(BytesOf(low) | BytesOf(high) << 32);
    }
    start_ = reinterpret_cast<const char*>(words_.data());
    return (units & 0xFF80FF80FF80FF80) == 0;
  }

  /// Four units, or those that are left, the first one lowest.
  static std::uint64_t FourAt(std::u16string_view name, std::size_t start) {
    std::uint64_t units = 0;
    if (name.size() >= start + 4)
      std::memcpy(&units, &name[start], sizeof units);
    else
      for (std::size_t i = start; i < name.size(); ++i) units |= std::uint64_t{name[i]} << 16 * (i - start);
    return units;
  }

  static_assert(std::endian::native == std::endian::little);
  static constexpr std::uint64_t kEach8 = 0x0101010101010101;

  /// Four ASCII units as four bytes.
  static std::uint64_t BytesOf(std::uint64_t units) {
    const std::uint64_t pairs = (units | units >> 8) & 0x0000FFFF0000FFFF;
    return (pairs | pairs >> 16) & 0xFFFFFFFF;
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
};

}  // namespace qxTools
