// Finding parameter names in a statement.
#pragma once

#include <qxTools/base/Lines.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace qxTools {

constexpr bool IsNameStart(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
constexpr bool IsNameChar(char c) { return IsNameStart(c) || (c >= '0' && c <= '9') || c == '_'; }

/// Sets `upperName` to "@" and the name in capitals, in the room that it has.
void SetUpperName(std::string& upperName, std::string_view name);

/// Whether names inside quoted literals count.
enum class Literals { kScan, kSkip };

/// Reads the names behind "@" marks, front to back.
///
/// A lone "@" stays open over anything that cannot begin a name, line ends included, and a further "@" begins
/// anew. A name that the text's end or a further "@" cuts off is dropped. Where literals are skipped the
/// quote that opens one does not end a name; the quote that closes it does. Each byte is looked at once.
class NameScanner {
 public:
  NameScanner(std::string_view text, Literals literals)
      : text_(text), literals_(literals), marks_(text, '@', literals == Literals::kSkip ? '\'' : '@') {}

  /// The next name, without its "@". @return false when there is none left.
  bool Next(std::string_view& name);

 private:
  bool IsQuote(std::size_t position) const { return literals_ == Literals::kSkip && text_[position] == '\''; }
  /// From an opening quote to behind the closing one. @return false when it is never closed.
  bool SkipLiteral();
  /// To behind the next "@" outside literals.
  bool FindMark();
  /// To the first character of the next name.
  bool FindNameStart();

  std::string_view text_;
  Literals literals_;
  NearestOfTwo<char> marks_;
  std::size_t position_ = 0;
};

}  // namespace qxTools
