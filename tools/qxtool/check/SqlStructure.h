// What the order of a statement's tokens says: declarations, arguments, texts that are executed, commands of
// the clients. It is no parser: what it does not know it passes over.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "Event.h"

namespace qxtool::check {

class SqlStructure {
 public:
  using Tell = std::function<void(const Event&)>;

  /// `tell` is called with the events from kDeclared to kClientCommand, and may also be told of a variable
  /// that a header declares: kDeclared with `joined` set.
  SqlStructure(std::string_view text, Tell tell) : text_(text), tell_(std::move(tell)) {}

  /// Takes the next token that is no comment.
  void Take(const Token& token);
  void Finish();

 private:
  enum class Mode { kPlain, kDeclare, kHeader, kExecTarget, kExecArguments, kExecText };
  enum class Lack { kLengthOfVariable, kLengthOfCast, kPrecision };
  struct Keyword;

  std::string_view TextOf(const Token& token) const {
    return text_.substr(token.begin, token.end - token.begin);
  }
  bool IsSymbol(const Token& token, char c) const;
  void Emit(EventKind kind, const Token& token, bool joined = false);
  void JudgeType(const Token& token);
  void JudgeArgument(const Token& token);
  void JudgeClientCommand(const Token& token);
  void TakeWord(const Token& token);
  void Begin(Mode mode);
  void TakeByMode(const Token& token);
  void TakeDeclared(const Token& token);
  void TakeTarget(const Token& token);
  void TakeArgument(const Token& token);
  void TakeExecText(const Token& token);
  void TakeType(const Token& token, std::string_view name);
  void CountParentheses(const Token& token);

  std::string_view text_;
  Tell tell_;
  Mode mode_ = Mode::kPlain;
  int depth_ = 0;          // of parentheses, from the beginning of the mode
  bool expects_ = false;   // a variable or an argument can begin here
  bool named_ = false;     // EXEC has its procedure's name
  bool creating_ = false;  // behind CREATE or ALTER
  bool typeNext_ = false;  // a declared variable's type follows
  bool castNext_ = false;  // the type of CAST or CONVERT follows
  bool joined_ = false;    // EXEC ( .. ) holds "+"
  bool variable_ = false;  // and a variable
  Token exec_;
  Token previous_;
  std::optional<Token> type_;  // waits for its length
  Lack lack_ = Lack::kPrecision;
  std::optional<Token> argument_;  // waits for "="
  std::optional<Token> client_;    // GO or ":", waits for what follows
};

/// The place of the first `$(name)` in a text, or npos.
std::size_t FindClientVariable(std::string_view text);

}  // namespace qxtool::check
