#include "StatementScan.h"

#include <qxTools/base/Ascii.h>

#include <algorithm>
#include <optional>

#include "CommentRemoval.h"
#include "SqlStructure.h"

namespace qxtool::check {

RuleSet::RuleSet(std::span<const Rule* const> rules) {
  for (const Rule* const rule : rules)
    for (std::size_t kind = 0; kind < 32; ++kind)
      if ((rule->events >> kind & 1) != 0) byKind_[kind].push_back(rule);
}

void RuleSet::Ask(const Event& event, Context& context) const {
  for (const Rule* const rule : byKind_[static_cast<std::size_t>(event.kind)]) {
    context.SetRule(*rule);
    rule->check(event, context);
  }
}

namespace {

bool IsBreak(char c) { return c == '\r' || c == '\n'; }

class StatementScan {
 public:
  StatementScan(const RuleSet& rules, Context& context)
      : rules_(rules),
        context_(context),
        text_(context.text),
        isCommand_(context.route == Route::kCommand),
        removal_(isCommand_ ? RemovedByCommand(text_) : RemovedByCall(text_)),
        kept_(text_, isCommand_ ? CommentRemoval() : removal_),
        nameScanner_(kept_, context.route),
        macroScanner_(kept_),
        structure_(text_, [this](const Event& event) { TakeStructure(event); }) {}

  void Run() {
    TellRemoval();
    nextName_ = NextName();
    nextMacro_ = NextMacro();
    SqlLexer lexer(text_);
    for (Token token; lexer.Next(token);) Take(token);
    structure_.Finish();
    TellBackslashes();
    TellQuoteMarks();
    Tell({EventKind::kStatementEnd, text_.size(), text_.size(), {}, {}, {}});
  }

 private:
  void Tell(const Event& event) { rules_.Ask(event, context_); }
  void Tell(EventKind kind, const Token& token) { Tell({kind, token.begin, token.end, token, {}, {}}); }
  void Tell(EventKind kind, const Range& range, const Token& token = {}) {
    Tell({kind, range.begin, range.end, token, {}, {}});
  }

  // --- Comments as the library removes them ----------------------------------------------------------
  void TellRemoval() {
    if (isCommand_)
      for (const Range& slash : removal_.slashes) Tell(EventKind::kSlash, slash);
    if (removal_.openComment != kNowhere)
      Tell(EventKind::kOpenComment, {removal_.openComment, removal_.openComment + 2});
    if (removal_.front.end > 0) Tell(EventKind::kFront, removal_.front);
    for (std::size_t i = 0; i < removal_.comments.size();) {
      Range joined = removal_.comments[i];
      for (++i; i < removal_.comments.size() && removal_.comments[i].begin == joined.end; ++i)
        joined.end = removal_.comments[i].end;
      Tell(EventKind::kJoined, joined);
    }
  }

  // --- What is found while the tokens are read -------------------------------------------------------
  std::optional<NameUse> NextName() {
    NameUse use;
    return nameScanner_.Next(use) ? std::optional(use) : std::nullopt;
  }

  std::optional<MacroUse> NextMacro() {
    MacroUse use;
    return macroScanner_.Next(use) ? std::optional(use) : std::nullopt;
  }

  void Take(const Token& token) {
    bool found = false;
    for (; nextName_ && nextName_->at < token.end; nextName_ = NextName()) {
      found = found || (nextName_->at == token.begin && nextName_->IsDirect());
      TakeName(*nextName_, token);
    }
    for (; nextMacro_ && nextMacro_->begin < token.end; nextMacro_ = NextMacro())
      Tell({EventKind::kMacro, nextMacro_->begin, nextMacro_->end, token, {}, *nextMacro_});
    for (; nextComment_ < removal_.comments.size() && removal_.comments[nextComment_].begin < token.end;
         ++nextComment_)
      Tell(EventKind::kRemoval, removal_.comments[nextComment_], token);
    if (token.kind == TokenKind::kVariable) TakeVariable(token, found);
    TellToken(token);
    if (token.oddQuotes) odd_ = token;
    if (token.IsCode()) structure_.Take(token);
  }

  void TellToken(const Token& token) {
    if (!token.closed) Tell(EventKind::kUnclosed, token);
    switch (token.kind) {
      case TokenKind::kLiteral:
        return Tell(EventKind::kLiteral, token);
      case TokenKind::kQuoted:
        return Tell(EventKind::kQuoted, token);
      case TokenKind::kBlockComment:
        return Tell(EventKind::kBlockComment, token);
      case TokenKind::kOddCharacter:
        return Tell(EventKind::kOddCharacter, token);
      default:
        return;
    }
  }

  NameFacts& FactsOf(std::string_view name) {
    key_.resize(name.size());
    std::transform(name.begin(), name.end(), key_.begin(), qxTools::UpperChar);
    return context_.names[key_];
  }

  void TakeName(const NameUse& use, const Token& token) {
    if (IsParameter(use.name, context_.route)) {
      NameFacts& facts = FactsOf(use.name);
      if (facts.order == kNowhere) {
        facts.order = found_++;
        facts.foundBegin = use.at;
        facts.foundEnd = use.end;
      }
      if (token.kind == TokenKind::kVariable)
        facts.foundInCode = true;
      else if (token.kind == TokenKind::kLiteral)
        Flip(facts);
    }
    Tell({EventKind::kName, use.at, use.end, token, use, {}});
  }

  void TakeVariable(const Token& token, bool found) {
    const std::string_view name = text_.substr(token.begin + 1, token.end - token.begin - 1);
    NameFacts& facts = FactsOf(name);
    if (facts.usedBegin == kNowhere) {
      facts.usedBegin = token.begin;
      facts.usedEnd = token.end;
    }
    if (!found && IsParameter(name, context_.route)) Flip(facts);
    Tell(EventKind::kVariable, token);
  }

  /// The apostrophes in front decide what the library takes for a literal here.
  void Flip(NameFacts& facts) {
    if (!odd_ || facts.flippedBy != kNowhere) return;
    facts.flippedBy = odd_->begin;
    facts.flippedEnd = odd_->end;
  }

  void TakeStructure(const Event& event) {
    const bool isName = event.kind == EventKind::kDeclared || event.kind == EventKind::kArgument;
    if (isName) {
      NameFacts& facts = FactsOf(text_.substr(event.begin + 1, event.end - event.begin - 1));
      const bool byText = event.kind == EventKind::kDeclared && !event.joined;
      if (byText && !facts.declaredByText) facts.declaredBegin = event.begin;
      facts.declaredByText = facts.declaredByText || byText;
      facts.declared = true;
    }
    Tell(event);
  }

  // --- Marks of which only a few are in a text -------------------------------------------------------
  void TellBackslashes() {
    const std::string_view kept = kept_.Text();
    SecondBytes seconds(kept);
    KeptText::Places places(kept_);
    for (std::size_t at = kept.find('\\'); at != kNowhere; at = kept.find('\\', at + 1)) {
      const bool atEnd = at + 1 == kept.size() || IsBreak(kept[at + 1]);
      if (!atEnd || seconds.IsSecond(at)) continue;
      const std::size_t place = places.Original(at);
      Tell(EventKind::kBackslash, {place, place + 1});
    }
  }

  void TellQuoteMarks() {
    KeptText::Places places(kept_);
    const std::string_view kept = kept_.Text();
    for (std::size_t at = kept.find("[##]"); at != kNowhere; at = kept.find("[##]", at + 1)) {
      const std::size_t place = places.Original(at);
      Tell(EventKind::kQuoteMark, {place, place + 4});
    }
  }

  const RuleSet& rules_;
  Context& context_;
  std::string_view text_;
  bool isCommand_;
  CommentRemoval removal_;
  KeptText kept_;
  SqlNames nameScanner_;
  SqlMacros macroScanner_;
  SqlStructure structure_;
  std::optional<NameUse> nextName_;
  std::optional<MacroUse> nextMacro_;
  std::size_t nextComment_ = 0;
  std::size_t found_ = 0;
  std::optional<Token> odd_;  // the last one with an odd number of apostrophes
  std::string key_;
};

}  // namespace

void ScanStatement(const RuleSet& rules, Context& context) { StatementScan(rules, context).Run(); }

}  // namespace qxtool::check
