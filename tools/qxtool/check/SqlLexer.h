// The tokens of a T-SQL text, as a server reads them.
//
// One pass, each byte once, no memory. Text is code page 950; the second byte of a character is never a mark.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qxtool::check {

enum class TokenKind : std::uint8_t {
  kWord,      // a keyword or a name, Chinese too
  kVariable,  // @name
  kGlobal,    // @@name
  kNumber,
  kLiteral,       // '..' and N'..'
  kBracket,       // [..]
  kQuoted,        // ".."
  kLineComment,   // from -- to the end of the line
  kBlockComment,  // with the comments nested in it
  kSymbol,        // one ASCII character
  kOddCharacter,  // one character of two bytes that no name and no operator has
};

struct Token {
  TokenKind kind = TokenKind::kSymbol;
  bool national = false;     // a literal with N in front
  bool closed = true;        // false: a literal, name or comment runs to the end of the text
  bool beyondAscii = false;  // a literal with a byte above 7F
  bool firstOnLine = false;  // only blanks and comments in front of it
  bool oddQuotes = false;    // a name or line comment with an odd number of apostrophes
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t nested = 0;  // the place of the first comment nested in a comment; 0: none

  bool IsCode() const { return kind != TokenKind::kLineComment && kind != TokenKind::kBlockComment; }
};

class SqlLexer {
 public:
  explicit SqlLexer(std::string_view text) : text_(text) {}

  /// Reads the next token. Returns false at the end of the text.
  bool Next(Token& token);

 private:
  bool At(std::size_t place, char c) const { return place < text_.size() && text_[place] == c; }
  void SkipBlanks();
  /// The end of what begins at place_, by its first byte.
  std::size_t Read(Token& token) const;
  std::size_t ReadWord(std::size_t place) const;
  std::size_t ReadVariable(Token& token) const;
  std::size_t ReadNumber() const;
  std::size_t ReadLiteral(Token& token, std::size_t quote) const;
  std::size_t ReadDelimited(Token& token, TokenKind kind, char close) const;
  std::size_t ReadLineComment(Token& token) const;
  std::size_t ReadBlockComment(Token& token) const;
  std::size_t ReadHigh(Token& token) const;

  std::string_view text_;
  std::size_t place_ = 0;
  bool firstOnLine_ = true;
};

}  // namespace qxtool::check
