// Finding parameter names in a statement.
#pragma once

#include <qxTools/base/Lines.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace qxTools {

constexpr bool IsNameStart(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
inline constexpr auto kNameChars = [] {
  std::array<bool, 256> chars{};
  for (std::size_t byte = 0; byte < chars.size(); ++byte) {
    const auto c = static_cast<char>(byte);
    chars[byte] = IsNameStart(c) || (c >= '0' && c <= '9') || c == '_';
  }
  return chars;
}();
constexpr bool IsNameChar(char c) { return kNameChars[static_cast<unsigned char>(c)]; }

/// Whether names inside quoted literals count.
enum class Literals { kScan, kSkip };

/// Reads the names after "@" marks, from the start of the text to its end.
///
/// A lone "@" waits for its name over anything that cannot begin one, line ends included; a further "@"
/// begins anew. A name that the text's end or a further "@" follows at once is dropped. If literals are
/// skipped, the quote that opens one does not end a name; the quote that closes it does. Each byte is read
/// once.
class NameScanner {
 public:
  NameScanner(std::string_view text, Literals literals)
      : text_(text), literals_(literals), marks_(text, '@', literals == Literals::kSkip ? '\'' : '@') {}

  /// Sets `name` to the next name, without its "@". Returns false if there is none.
  bool Next(std::string_view& name);

  /// Returns "@" and the name that Next has set: in the text if they are side by side there, otherwise a copy
  /// that is valid until the next call.
  std::string_view WithMark(std::string_view name);

 private:
  bool IsQuote(std::size_t position) const { return literals_ == Literals::kSkip && text_[position] == '\''; }
  /// Goes from an opening quote to after the closing one. Returns false if it is never closed.
  bool SkipLiteral();
  /// Goes to after the next "@" outside literals. Returns false if there is none.
  bool FindMark();
  /// Goes to the first character of the next name. Returns false if there is none.
  bool FindNameStart();

  std::string_view text_;
  Literals literals_;
  NearestOfTwo<char> marks_;
  std::size_t position_ = 0;
  std::string joined_;
};

}  // namespace qxTools
