// Reads a statement once and tells the rules about it.
#pragma once

#include <span>

#include "Context.h"

namespace qxtool::check {

/// The rules that are on, by the kind of event.
class RuleSet {
 public:
  explicit RuleSet(std::span<const Rule* const> rules);

  /// Asks every rule that looks at this kind of event.
  void Ask(const Event& event, Context& context) const;
  bool Wants(EventKind kind) const { return !byKind_[static_cast<std::size_t>(kind)].empty(); }

 private:
  std::vector<const Rule*> byKind_[32];
};

/// Tells the rules about the statement in context.text, used as context.route says. Linear in the text; needs
/// memory for the names in it, for its comments, and for a copy of it if a call removes comments.
void ScanStatement(const RuleSet& rules, Context& context);

}  // namespace qxtool::check
