#include "SqlLexer.h"

#include <qxTools/base/AsciiFastPath.h>

#include <algorithm>
#include <array>

#include "Characters.h"

namespace qxtool::check {

namespace {

constexpr bool IsLetter(unsigned c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
constexpr bool IsDigit(unsigned c) { return c >= '0' && c <= '9'; }

/// What can stand inside a word, for each byte below 80.
constexpr std::array<bool, 256> kInWord = [] {
  std::array<bool, 256> table{};
  for (unsigned c = 0; c < 0x80; ++c)
    table[c] = IsLetter(c) || IsDigit(c) || c == '_' || c == '@' || c == '#' || c == '$';
  return table;
}();

/// Punctuation that input methods write where ASCII was meant.
bool IsOddPunctuation(char16_t wide) {
  constexpr std::u16string_view kOdd =
      u"\u2018\u2019\u201C\u201D\u2032\u2035\u3001\u3002\u300C\u300D\uFE50\uFE54\uFE59\uFE5A\u2013\u2014"
      u"\u00D7"
      u"\u00F7\u2260\u2266\u2267";
  if (wide >= 0xFF01 && wide <= 0xFF5E) {
    const unsigned ascii = wide - 0xFF01u + 0x21u;
    return !kInWord[ascii];
  }
  return kOdd.find(wide) != std::u16string_view::npos;
}

bool IsOddAt(std::string_view text, std::size_t place) {
  return place + 1 < text.size() && IsOddPunctuation(WideOf(text[place], text[place + 1]));
}

bool HasOddQuotes(std::string_view text) { return std::count(text.begin(), text.end(), '\'') % 2 != 0; }

}  // namespace

void SqlLexer::SkipBlanks() {
  for (; place_ < text_.size() && Byte(text_[place_]) <= ' '; ++place_)
    if (text_[place_] == '\n' || text_[place_] == '\r') firstOnLine_ = true;
}

bool SqlLexer::Next(Token& token) {
  SkipBlanks();
  if (place_ == text_.size()) return false;
  token = Token();
  token.begin = place_;
  token.firstOnLine = firstOnLine_;
  place_ = token.end = Read(token);
  firstOnLine_ = firstOnLine_ && !token.IsCode();
  return true;
}

std::size_t SqlLexer::Read(Token& token) const {
  const char c = text_[place_];
  if (Byte(c) >= 0x80) return ReadHigh(token);
  if ((c == 'N' || c == 'n') && At(place_ + 1, '\'')) {
    token.national = true;
    return ReadLiteral(token, place_ + 1);
  }
  if (c == '@') return ReadVariable(token);
  if (IsDigit(Byte(c))) {
    token.kind = TokenKind::kNumber;
    return ReadNumber();
  }
  if (kInWord[Byte(c)]) {
    token.kind = TokenKind::kWord;
    return ReadWord(place_);
  }
  switch (c) {
    case '\'':
      return ReadLiteral(token, place_);
    case '"':
      return ReadDelimited(token, TokenKind::kQuoted, '"');
    case '[':
      return ReadDelimited(token, TokenKind::kBracket, ']');
    case '-':
      return At(place_ + 1, '-') ? ReadLineComment(token) : place_ + 1;
    case '/':
      return At(place_ + 1, '*') ? ReadBlockComment(token) : place_ + 1;
    default:
      return place_ + 1;
  }
}

std::size_t SqlLexer::ReadWord(std::size_t place) const {
  while (place < text_.size()) {
    if (kInWord[Byte(text_[place])])
      ++place;
    else if (Byte(text_[place]) >= 0x80 && !IsOddAt(text_, place))
      place += CharacterSize(text_, place);
    else
      break;
  }
  return place;
}

std::size_t SqlLexer::ReadVariable(Token& token) const {
  token.kind = At(place_ + 1, '@') ? TokenKind::kGlobal : TokenKind::kVariable;
  return ReadWord(place_ + 1);
}

std::size_t SqlLexer::ReadNumber() const {
  std::size_t end = place_;
  while (end < text_.size() && (IsDigit(Byte(text_[end])) || IsLetter(Byte(text_[end])) || text_[end] == '.'))
    ++end;
  return end;
}

std::size_t SqlLexer::ReadLiteral(Token& token, std::size_t quote) const {
  token.kind = TokenKind::kLiteral;
  std::size_t close = text_.find('\'', quote + 1);
  while (close != std::string_view::npos && At(close + 1, '\'')) close = text_.find('\'', close + 2);
  token.closed = close != std::string_view::npos;
  const std::size_t end = token.closed ? close + 1 : text_.size();
  token.beyondAscii = !qxTools::IsAllAscii(text_.data() + quote, text_.data() + end);
  return end;
}

std::size_t SqlLexer::ReadDelimited(Token& token, TokenKind kind, char close) const {
  token.kind = kind;
  std::size_t end = place_ + 1;
  for (token.closed = false; end < text_.size() && !token.closed;) {
    const bool doubled = text_[end] == close && At(end + 1, close);
    token.closed = text_[end] == close && !doubled;
    end += doubled ? 2 : CharacterSize(text_, end);
  }
  token.oddQuotes = HasOddQuotes(text_.substr(place_, end - place_));
  return end;
}

std::size_t SqlLexer::ReadLineComment(Token& token) const {
  token.kind = TokenKind::kLineComment;
  const std::size_t end = std::min(text_.find_first_of("\r\n", place_), text_.size());
  token.oddQuotes = HasOddQuotes(text_.substr(place_, end - place_));
  return end;
}

std::size_t SqlLexer::ReadBlockComment(Token& token) const {
  token.kind = TokenKind::kBlockComment;
  std::size_t depth = 1;
  std::size_t end = place_ + 2;
  while (end < text_.size() && depth > 0) {
    const bool opens = text_[end] == '/' && At(end + 1, '*');
    const bool closes = text_[end] == '*' && At(end + 1, '/');
    if (opens && token.nested == 0) token.nested = end;
    depth += opens ? 1 : 0;
    depth -= closes ? 1 : 0;
    end += opens || closes ? 2 : 1;
  }
  token.closed = depth == 0;
  return std::min(end, text_.size());
}

std::size_t SqlLexer::ReadHigh(Token& token) const {
  if (IsOddAt(text_, place_)) {
    token.kind = TokenKind::kOddCharacter;
    return place_ + 2;
  }
  token.kind = TokenKind::kWord;
  return ReadWord(place_);
}

}  // namespace qxtool::check
