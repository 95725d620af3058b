/// @file
/// Text of limited length inside fixed-size records.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <string_view>

namespace qxTools {

/// Up to N (at most 255) bytes of text: one byte with the length, then N bytes. A longer text is cut, without
/// regard to double-byte characters. It may lie in raw memory: zeros are the empty text, and a length above
/// N counts as N.
template <std::size_t N>
class ShortString {
  static_assert(N >= 1 && N <= 255);

 public:
  ShortString() = default;

  /// From anything that is readable as text. The bytes behind the text are zeros.
  template <std::convertible_to<std::string_view> Text>
  ShortString(const Text& source) {
    const std::string_view text(source);
    length_ = static_cast<std::uint8_t>(std::min(text.size(), N));
    text.copy(text_, length_);
  }

  /// The text: its length in bytes, a view of it, a copy.
  std::size_t Length() const { return std::min<std::size_t>(length_, N); }
  std::string_view View() const { return {text_, Length()}; }
  std::string Text() const { return std::string(View()); }
  operator std::string_view() const { return View(); }

  /// Compares bytes and length; a text that was not cut to N never equals one that was.
  friend bool operator==(const ShortString& a, const ShortString& b) { return a.View() == b.View(); }
  template <std::convertible_to<std::string_view> Text>
  friend bool operator==(const ShortString& a, const Text& b) {
    return a.View() == std::string_view(b);
  }

  friend std::ostream& operator<<(std::ostream& out, const ShortString& s) { return out << s.View(); }

 private:
  std::uint8_t length_ = 0;
  char text_[N] = {};
};

static_assert(sizeof(ShortString<16>) == 17);

}  // namespace qxTools
