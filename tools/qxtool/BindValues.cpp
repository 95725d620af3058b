#include "BindValues.h"

#include <qxTools/base/Ascii.h>

#include <algorithm>
#include <set>

#include "TextIo.h"
#include "check/SqlLexer.h"

namespace qxtool {

namespace {

using check::TokenKind;

/// One pass over a statement.
class Binding {
 public:
  Binding(Batch& batch, const BindableValues& values) : batch_(batch), values_(values), text_(batch.text) {}

  void Run() {
    std::string bound;
    std::size_t done = 0;
    check::SqlLexer lexer(text_);
    for (check::Token token; lexer.Next(token);) {
      const char* const replacement = Replacement(token);
      if (replacement == nullptr) continue;
      bound.append(text_, done, token.begin - done).append(replacement);
      done = token.end;
    }
    CheckAllBound();
    batch_.text = bound.append(text_, done);
  }

 private:
  [[noreturn]] void Refuse(std::size_t place, const std::string& reason) const {
    const auto line = batch_.firstLine + std::count(text_.begin(), text_.begin() + Offset(place), '\n');
    throw Failure("--bind: line " + std::to_string(line) + " of the statement: " + VisibleText(reason));
  }

  static std::ptrdiff_t Offset(std::size_t place) { return static_cast<std::ptrdiff_t>(place); }

  /// What a token becomes; null if it stays. Some drivers look for marks in comments, too.
  const char* Replacement(const check::Token& token) {
    if (token.IsCode()) return Bind(token) ? "?" : nullptr;
    return text_.substr(token.begin, token.end - token.begin).find('?') != std::string::npos ? " " : nullptr;
  }

  /// Returns whether the token is a parameter; its value is bound then.
  bool Bind(const check::Token& token) {
    const std::string name = qxTools::UpperCase(text_.substr(token.begin, token.end - token.begin));
    if (name == "?") Refuse(token.begin, "a ? of its own would be taken for a parameter");
    const auto found = token.kind == TokenKind::kVariable ? values_.find(name) : values_.end();
    if (found == values_.end()) {
      CheckHoldsNone(token, name);
      return false;
    }
    if (!found->second) Refuse(token.begin, found->first + " has no value");
    batch_.values.push_back(*found->second);
    bound_.insert(found->first);
    return true;
  }

  void CheckHoldsNone(const check::Token& token, const std::string& upperText) const {
    if (upperText.find('@') == std::string::npos) return;
    for (const auto& [name, value] : values_)
      if (value && upperText.find(name) != std::string::npos)
        Refuse(token.begin, name + " is inside a literal or another name, where nothing can be bound");
  }

  void CheckAllBound() const {
    for (const auto& [name, value] : values_)
      if (value && !bound_.contains(name))
        throw Failure("--bind: " + VisibleText(name) + " has a value, but no place to be bound to");
  }

  Batch& batch_;
  const BindableValues& values_;
  const std::string text_;
  std::set<std::string> bound_;
};

}  // namespace

void BindValues(Batch& batch, const BindableValues& values) { Binding(batch, values).Run(); }

}  // namespace qxtool
