// Comments that take findings of their line away: `-- qx:ignore SQL202 reason`.
#pragma once

#include <string>
#include <vector>

#include "Context.h"

namespace qxtool::check {

class Suppressions {
 public:
  /// Reads the comments of a statement.
  explicit Suppressions(std::string_view text);

  /// The reason with which a comment on the line of `place` takes findings of the rule away, or null.
  const std::string* Find(const Rule& rule, std::size_t place);

  struct Comment {
    std::size_t lineBegin;
    std::size_t begin;  // of "qx:ignore"
    std::size_t end;    // of the line
    std::vector<std::string> ids;
    std::string reason;
    std::vector<bool> used;  // by place in ids
    bool IsRefused() const;
  };
  const std::vector<Comment>& Comments() const { return comments_; }

 private:
  std::vector<Comment> comments_;
};

/// Reports the comments of a statement that are refused or unused. An id is unused only if its rule was
/// asked.
void ReportSuppressions(const Suppressions& suppressions, std::span<const Rule* const> asked,
                        Context& context);

}  // namespace qxtool::check
