#include "SqlStructure.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/sql/NameScanner.h>

#include <algorithm>
#include <array>
#include <utility>

namespace qxtool::check {

using qxTools::SameText;

// --- Keywords ----------------------------------------------------------------------------------------

namespace {

enum class Meaning : std::uint8_t {
  kNone,
  kStatement,  // begins another statement
  kDeclare,
  kCreate,
  kModule,  // PROC, FUNCTION
  kAs,
  kExec,
  kConvert,
  kGo,
  kSized,    // a type that has a length
  kDecimal,  // a type that has a precision
};

struct KeywordRow {
  std::string_view name;
  Meaning meaning;
};

constexpr KeywordRow kKeywords[] = {
    {"SELECT", Meaning::kStatement},
    {"INSERT", Meaning::kStatement},
    {"UPDATE", Meaning::kStatement},
    {"DELETE", Meaning::kStatement},
    {"MERGE", Meaning::kStatement},
    {"SET", Meaning::kStatement},
    {"IF", Meaning::kStatement},
    {"WHILE", Meaning::kStatement},
    {"BEGIN", Meaning::kStatement},
    {"END", Meaning::kStatement},
    {"ELSE", Meaning::kStatement},
    {"RETURN", Meaning::kStatement},
    {"PRINT", Meaning::kStatement},
    {"FETCH", Meaning::kStatement},
    {"OPEN", Meaning::kStatement},
    {"DROP", Meaning::kStatement},
    {"TRUNCATE", Meaning::kStatement},
    {"USE", Meaning::kStatement},
    {"RAISERROR", Meaning::kStatement},
    {"DECLARE", Meaning::kDeclare},
    {"CREATE", Meaning::kCreate},
    {"ALTER", Meaning::kCreate},
    {"PROC", Meaning::kModule},
    {"PROCEDURE", Meaning::kModule},
    {"FUNCTION", Meaning::kModule},
    {"AS", Meaning::kAs},
    {"EXEC", Meaning::kExec},
    {"EXECUTE", Meaning::kExec},
    {"CONVERT", Meaning::kConvert},
    {"TRY_CONVERT", Meaning::kConvert},
    {"GO", Meaning::kGo},
    {"CHAR", Meaning::kSized},
    {"VARCHAR", Meaning::kSized},
    {"NCHAR", Meaning::kSized},
    {"NVARCHAR", Meaning::kSized},
    {"BINARY", Meaning::kSized},
    {"VARBINARY", Meaning::kSized},
    {"DECIMAL", Meaning::kDecimal},
    {"NUMERIC", Meaning::kDecimal},
    {"DEC", Meaning::kDecimal},
};

constexpr std::size_t kLongest = 11;
constexpr std::size_t kLetters = 32;

/// The keywords of one length and first letter; most words have none.
constexpr std::size_t BucketOf(std::string_view word) {
  return word.size() * kLetters + (static_cast<unsigned char>(word[0]) & (kLetters - 1));
}

constexpr auto kHasKeywords = [] {
  std::array<bool, (kLongest + 1) * kLetters> table{};
  for (const KeywordRow& row : kKeywords) table[BucketOf(row.name)] = true;
  return table;
}();

Meaning MeaningOf(std::string_view word) {
  if (word.size() > kLongest || !kHasKeywords[BucketOf(word)]) return Meaning::kNone;
  const auto* const row = std::ranges::find_if(
      kKeywords, [&](const KeywordRow& keyword) { return SameText(keyword.name, word); });
  return row != std::end(kKeywords) ? row->meaning : Meaning::kNone;
}

bool IsColonCommand(std::string_view word) {
  constexpr std::string_view kCommands[] = {"r",   "setvar", "connect", "on",   "out",       "error",
                                            "xml", "reset",  "listvar", "exit", "perftrace", "serverlist"};
  return std::ranges::any_of(kCommands, [&](std::string_view command) { return SameText(command, word); });
}

}  // namespace

std::size_t FindClientVariable(std::string_view text) {
  for (std::size_t at = text.find("$("); at != std::string_view::npos; at = text.find("$(", at + 1)) {
    std::size_t end = at + 2;
    while (end < text.size() && qxTools::IsNameChar(text[end])) ++end;
    if (end > at + 2 && end < text.size() && text[end] == ')') return at;
  }
  return std::string_view::npos;
}

// --- Tokens ------------------------------------------------------------------------------------------

bool SqlStructure::IsSymbol(const Token& token, char c) const {
  return token.kind == TokenKind::kSymbol && text_[token.begin] == c;
}

void SqlStructure::Emit(EventKind kind, const Token& token, bool joined) {
  Event event{kind, token.begin, token.end, token, {}, {}, joined};
  tell_(event);
}

void SqlStructure::Take(const Token& token) {
  if (type_) JudgeType(token);
  if (argument_) JudgeArgument(token);
  if (client_) JudgeClientCommand(token);
  const bool castWas = castNext_;
  if (token.kind == TokenKind::kWord) TakeWord(token);
  if (castWas && !IsSymbol(token, '(')) castNext_ = false;
  if (token.kind == TokenKind::kSymbol && token.firstOnLine && text_[token.begin] == ':') client_ = token;
  if (mode_ != Mode::kPlain) TakeByMode(token);
  previous_ = token;
}

void SqlStructure::Finish() {
  Token end;
  end.kind = TokenKind::kSymbol;
  end.begin = end.end = text_.size();
  end.firstOnLine = true;
  if (type_ && lack_ != Lack::kLengthOfCast) JudgeType(end);
  if (client_) JudgeClientCommand(end);
}

void SqlStructure::JudgeType(const Token& token) {
  const bool open = token.begin < text_.size() && IsSymbol(token, '(');
  const bool ends = token.begin < text_.size() && (IsSymbol(token, ')') || IsSymbol(token, ','));
  const Token type = *std::exchange(type_, std::nullopt);
  if (lack_ == Lack::kLengthOfVariable && !open) Emit(EventKind::kUnsizedVariable, type);
  if (lack_ == Lack::kLengthOfCast && ends) Emit(EventKind::kUnsizedCast, type);
  if (lack_ == Lack::kPrecision && !open) Emit(EventKind::kBareDecimal, type);
}

void SqlStructure::JudgeArgument(const Token& token) {
  const Token argument = *std::exchange(argument_, std::nullopt);
  if (IsSymbol(token, '=')) Emit(EventKind::kArgument, argument);
}

/// GO stands alone on its line, but for a count; a colon has its command right behind it.
void SqlStructure::JudgeClientCommand(const Token& token) {
  const Token client = *std::exchange(client_, std::nullopt);
  const bool isGo = client.kind == TokenKind::kWord;
  const bool alone = token.firstOnLine || token.kind == TokenKind::kNumber;
  const bool command =
      token.kind == TokenKind::kWord && token.begin == client.end && IsColonCommand(TextOf(token));
  if (isGo ? alone : command) Emit(EventKind::kClientCommand, client);
}

void SqlStructure::TakeWord(const Token& token) {
  const std::string_view word = TextOf(token);
  switch (MeaningOf(word)) {
    case Meaning::kNone:
      if (word == "$" && FindClientVariable(text_.substr(token.begin, 130)) == 0)
        Emit(EventKind::kClientCommand, token);
      return;
    case Meaning::kStatement:
      return Begin(Mode::kPlain);
    case Meaning::kDeclare:
      Begin(Mode::kDeclare);
      expects_ = true;
      return;
    case Meaning::kCreate:
      Begin(Mode::kPlain);
      creating_ = true;
      return;
    case Meaning::kModule:
      if (creating_) Begin(Mode::kHeader);
      return;
    case Meaning::kAs:
      if (mode_ == Mode::kHeader && previous_.kind != TokenKind::kVariable) Begin(Mode::kPlain);
      castNext_ = castNext_ || mode_ == Mode::kPlain;
      return;
    case Meaning::kExec:
      Begin(Mode::kExecTarget);
      exec_ = token;
      return;
    case Meaning::kConvert:
      castNext_ = true;
      return;
    case Meaning::kGo:
      if (token.firstOnLine) client_ = token;
      return;
    case Meaning::kSized:
    case Meaning::kDecimal:
      return TakeType(token, word);
  }
}

void SqlStructure::Begin(Mode mode) {
  mode_ = mode;
  depth_ = 0;
  expects_ = named_ = creating_ = typeNext_ = castNext_ = joined_ = variable_ = false;
}

void SqlStructure::TakeType(const Token& token, std::string_view name) {
  const bool sized = MeaningOf(name) == Meaning::kSized;
  if (sized && !typeNext_ && !castNext_) return;
  lack_ = !sized ? Lack::kPrecision : typeNext_ ? Lack::kLengthOfVariable : Lack::kLengthOfCast;
  type_ = token;
  typeNext_ = castNext_ = false;
}

void SqlStructure::CountParentheses(const Token& token) {
  if (IsSymbol(token, '(')) ++depth_;
  if (IsSymbol(token, ')')) --depth_;
}

void SqlStructure::TakeByMode(const Token& token) {
  CountParentheses(token);
  if (IsSymbol(token, ';')) return Begin(Mode::kPlain);
  switch (mode_) {
    case Mode::kPlain:
      return;
    case Mode::kDeclare:
    case Mode::kHeader:
      return TakeDeclared(token);
    case Mode::kExecTarget:
      return TakeTarget(token);
    case Mode::kExecArguments:
      return TakeArgument(token);
    case Mode::kExecText:
      return TakeExecText(token);
  }
}

void SqlStructure::TakeDeclared(const Token& token) {
  if (token.kind == TokenKind::kVariable && (expects_ || mode_ == Mode::kHeader)) {
    Emit(EventKind::kDeclared, token, mode_ == Mode::kHeader);
    expects_ = false;
    typeNext_ = true;
  } else if (mode_ == Mode::kDeclare && IsSymbol(token, ',') && depth_ == 0) {
    expects_ = true;
    typeNext_ = false;
  } else if (token.kind != TokenKind::kWord || !SameText(TextOf(token), "AS")) {
    typeNext_ = false;
  }
}

/// `EXEC @result = owner.name`, `EXEC @name`, `EXEC (`.
void SqlStructure::TakeTarget(const Token& token) {
  if (token.begin == exec_.begin) return;
  if (IsSymbol(token, '(')) return Begin(Mode::kExecText), CountParentheses(token);
  if (IsSymbol(token, '=')) {
    named_ = false;
  } else if (named_ && !IsSymbol(token, '.') && token.kind != TokenKind::kWord &&
             token.kind != TokenKind::kBracket && token.kind != TokenKind::kQuoted) {
    Begin(Mode::kExecArguments);
    expects_ = true;
    TakeArgument(token);
  } else {
    named_ = true;
  }
}

void SqlStructure::TakeArgument(const Token& token) {
  if (expects_ && token.kind == TokenKind::kVariable) argument_ = token;
  expects_ = IsSymbol(token, ',');
}

void SqlStructure::TakeExecText(const Token& token) {
  if (IsSymbol(token, '+')) joined_ = true;
  if (token.kind == TokenKind::kVariable) variable_ = true;
  if (depth_ > 0) return;
  if (variable_) Emit(EventKind::kDynamicText, exec_, joined_);
  Begin(Mode::kPlain);
}

}  // namespace qxtool::check
