// Finding parameter names in a statement.
#pragma once

#include <qxTools/base/Lines.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace qxTools {

constexpr bool IsNameStart(char c) { return static_cast<unsigned char>((c | 0x20) - 'a') < 26; }

/// Without branches, so that 16 characters are compared at once.
constexpr bool IsNameChar(char c) {
  return IsNameStart(c) | (static_cast<unsigned char>(c - '0') < 10) | (c == '_');
}

/// Returns where the name characters end that begin at `start`.
inline std::size_t EndOfName(std::string_view text, std::size_t start) {
  for (; start + 16 <= text.size(); start += 16)
    if (const std::size_t place = FindIn16(&text[start], [](char c) { return !IsNameChar(c); }); place < 16)
      return start + place;
  while (start < text.size() && IsNameChar(text[start])) ++start;
  return start;
}

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
  std::string_view WithMark(std::string_view name) {
    const char* const before = name.data() - 1;  // the text has an "@" somewhere in front of the name
    return *before == '@' ? std::string_view(before, name.size() + 1) : Joined(name);
  }

 private:
  bool IsQuote(std::size_t position) const { return literals_ == Literals::kSkip && text_[position] == '\''; }
  /// Goes from an opening quote to after the closing one. Returns false if it is never closed.
  bool SkipLiteral();
  /// Goes to after the next "@" outside literals. Returns false if there is none.
  bool FindMark();
  /// Goes to the first character of the next name. Returns false if there is none.
  bool FindNameStart();
  std::string_view Joined(std::string_view name);

  std::string_view text_;
  Literals literals_;
  NearestOfTwo<char> marks_;
  std::size_t position_ = 0;
  std::string joined_;
};

}  // namespace qxTools
