/// @file
/// Text of limited length in records of a fixed size.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <string_view>

namespace qxTools {

/// Up to N (at most 255) bytes of text: one byte with the length, then N bytes. A longer text is cut after N
/// bytes, even between the two bytes of a character. Raw memory may be used as one: zeros are the empty text,
/// and a length above N counts as N.
template <std::size_t N>
class ShortString {
  static_assert(N >= 1 && N <= 255);

 public:
  /// Makes an empty text.
  ShortString() = default;

  /// Copies the first N bytes of a text. The bytes after the text are zeros.
  template <std::convertible_to<std::string_view> Text>
  ShortString(const Text& source) {
    const std::string_view text(source);
    length_ = static_cast<std::uint8_t>(std::min(text.size(), N));
    text.copy(text_, length_);
  }

  /// Returns the length in bytes.
  std::size_t Length() const { return std::min<std::size_t>(length_, N); }
  /// Returns the text. The view is valid as long as this object.
  std::string_view View() const { return {text_, Length()}; }
  /// Returns a copy of the text.
  std::string Text() const { return std::string(View()); }
  /// Converts to the text. The view is valid as long as this object.
  operator std::string_view() const { return View(); }

  /// Returns whether both texts have the same bytes.
  friend bool operator==(const ShortString& a, const ShortString& b) {
    if (a.Length() != N || b.Length() != N) return a.View() == b.View();
    return std::memcmp(a.text_, b.text_, N) == 0;  // the usual length of keys, known beforehand
  }
  /// Returns whether the text has the same bytes as `b`. A text longer than N bytes never equals.
  template <std::convertible_to<std::string_view> Text>
  friend bool operator==(const ShortString& a, const Text& b) {
    return a.View() == std::string_view(b);
  }

  /// Writes the text.
  friend std::ostream& operator<<(std::ostream& out, const ShortString& s) { return out << s.View(); }

 private:
  std::uint8_t length_ = 0;
  char text_[N] = {};
};

static_assert(sizeof(ShortString<16>) == 17);

}  // namespace qxTools
