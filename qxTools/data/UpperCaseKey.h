// A name in capitals, to be looked up.
#pragma once

#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace qxTools {

/// The ASCII letters of a name as capitals, as bytes. Short names need no memory.
class UpperCaseKey {
 public:
  explicit UpperCaseKey(std::string_view name) : size_(name.size()) {
    if (size_ > kRoom)
      Keep(UpperCase(name));
    else
      Fold(name);
  }

  /// Letters are raised before the conversion to code page 950, so second bytes stay.
  explicit UpperCaseKey(std::u16string_view name) : size_(name.size()) {
    if (size_ > kRoom || Fold(name) >= 0x80) Keep(WideToBytes(Capitals(name)));
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

  void Keep(std::string key) {
    longer_ = std::move(key);
    start_ = longer_.data();
    size_ = longer_.size();
  }

  /// Writes whole words: hashing reads words, and waits for bytes that were written one by one.
  /// @return all units or-ed together.
  template <class Char>
  std::uint32_t Fold(std::basic_string_view<Char> name) {
    std::uint32_t units = 0;
    for (std::size_t start = 0; start < name.size(); start += kWord) {
      std::uint64_t word = 0;
      const std::size_t count = std::min(name.size() - start, kWord);
      for (std::size_t i = 0; i < count; ++i) {
        const auto unit = static_cast<std::make_unsigned_t<Char>>(name[start + i]);
        units |= unit;
        const auto byte = static_cast<unsigned char>(UpperChar(static_cast<char>(unit)));
        word |= std::uint64_t{byte} << (8 * (kLittle ? i : kWord - 1 - i));
      }
      words_[start / kWord] = word;
    }
    start_ = reinterpret_cast<const char*>(words_.data());
    return units;
  }

  static constexpr bool kLittle = std::endian::native == std::endian::little;

  std::array<std::uint64_t, kRoom / kWord> words_;
  std::string longer_;
  const char* start_;
  std::size_t size_;
};

}  // namespace qxTools
