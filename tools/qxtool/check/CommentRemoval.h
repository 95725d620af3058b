// What the command and the call remove of a statement as comments, as places in the text.
//
// Both find the marks without looking at literals, names and line comments; that is what the rules compare
// with what a server takes for a comment. Tests hold these places against the library's own removal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qxtool::check {

/// From `begin` up to `end`, in bytes from 0.
struct Range {
  std::size_t begin = 0;
  std::size_t end = 0;
};

struct CommentRemoval {
  std::vector<Range> comments;  // in order; they do not overlap
  std::vector<Range> slashes;   // of a command: a slash and the character that goes with it
  std::size_t openComment = std::string_view::npos;  // of a command: the comment that takes the rest
  Range front;  // of a call: what goes because it is in front of the first character from "!" to DEL
};

/// What TQXSQL::ClearNote removes, but for the blank lines around the text.
CommentRemoval RemovedByCommand(std::string_view text);

/// What TQXSqlStoreProc::ClearNote removes.
CommentRemoval RemovedByCall(std::string_view text);

/// What is left of a text, and where each of its bytes was.
class KeptText {
 public:
  /// `removal` must outlive this object, and the text too.
  KeptText(std::string_view text, const CommentRemoval& removal);

  std::string_view Text() const { return removed_.empty() ? text_ : std::string_view(copy_); }

  /// Translates places into those of the whole text, for places that do not go back.
  class Places {
   public:
    explicit Places(const KeptText& kept) : removed_(kept.removed_) {}
    std::size_t Original(std::size_t place);

   private:
    const std::vector<Range>& removed_;
    std::size_t next_ = 0;
    std::size_t skipped_ = 0;
  };

 private:
  std::string_view text_;
  std::vector<Range> removed_;
  std::string copy_;  // only if something was removed
};

}  // namespace qxtool::check
