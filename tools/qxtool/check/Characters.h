// Characters of code page 950 in a text of bytes.
#pragma once

#include <cstddef>
#include <string_view>

namespace qxtool::check {

/// The byte as a number from 0 to 255.
constexpr unsigned Byte(char c) { return static_cast<unsigned char>(c); }

/// The Unicode character of a pair of bytes; 0 if the page does not hold the pair.
char16_t WideOf(char lead, char second);

/// The number of bytes, 1 or 2, of the character at `place`. A byte that begins no character counts as one.
std::size_t CharacterSize(std::string_view text, std::size_t place);

/// Finds out whether a byte is the second byte of a character. Linear in the text for all questions together.
class SecondBytes {
 public:
  explicit SecondBytes(std::string_view text) : text_(text) {}

  /// True if the byte at `place` is a second byte. Places must not go back.
  bool IsSecond(std::size_t place);

 private:
  std::string_view text_;
  std::size_t boundary_ = 0;  // a character begins here
};

}  // namespace qxtool::check
