#include "CommentRemoval.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Characters.h"

namespace qxtool::check {

namespace {

constexpr std::size_t kNotFound = std::string_view::npos;
constexpr std::string_view kOpen = "/*";
constexpr std::string_view kClose = "*/";

/// In front of the first character from "!" to DEL.
Range FrontOf(std::string_view text, const std::vector<Range>& comments) {
  std::size_t next = 0;
  for (std::size_t place = 0; place < text.size();) {
    if (next < comments.size() && place == comments[next].begin) {
      place = comments[next++].end;
    } else if (text[place] > ' ') {
      return {0, place};
    } else {
      place += CharacterSize(text, place);
    }
  }
  return {};
}

}  // namespace

CommentRemoval RemovedByCommand(std::string_view text) {
  CommentRemoval removal;
  if (text.find(kOpen) == kNotFound || text.find(kClose) == kNotFound) return removal;
  std::size_t open = kNotFound;
  for (std::size_t place = 0;;) {
    const std::size_t mark = text.find(open == kNotFound ? '/' : '*', place);
    if (mark == kNotFound || mark + 1 == text.size()) break;
    place = mark + 1 + CharacterSize(text, mark + 1);
    if (open == kNotFound) {
      if (text[mark + 1] == '*')
        open = mark;
      else
        removal.slashes.push_back({mark, place});
    } else if (text[mark + 1] == '/') {
      removal.comments.push_back({open, place});
      open = kNotFound;
    }
  }
  removal.openComment = open;
  if (open != kNotFound) removal.comments.push_back({open, text.size()});
  return removal;
}

namespace {

/// Takes the comments of a call off a text, one after the other.
class CallComments {
 public:
  /// The comment from `open` up to `end`.
  void Add(std::size_t open, std::size_t end) {
    if (comments_.empty() || comments_.back().end != open) keptEnd_ = open;
    comments_.push_back({open, end});
  }

  /// True if a "/" in front of the last comment and a "*" behind it are the mark of a new one.
  bool Joins(std::string_view text) const {
    return keptEnd_ > 0 && !comments_.empty() && text[keptEnd_ - 1] == '/' && text[End()] == '*';
  }

  /// The last comment grows by that mark and what is up to `end`.
  void Join(std::size_t end) {
    --keptEnd_;
    while (!comments_.empty() && comments_.back().begin > keptEnd_) comments_.pop_back();
    comments_.push_back({keptEnd_, end});
    for (std::size_t i = comments_.size() - 1; i > 0 && comments_[i - 1].end == keptEnd_; --i)
      keptEnd_ = comments_[i - 1].begin;
  }

  /// Where the last comment ends; 0 if there was none.
  std::size_t End() const { return comments_.empty() ? 0 : comments_.back().end; }
  std::vector<Range>& All() { return comments_; }

 private:
  std::vector<Range> comments_;
  std::size_t keptEnd_ = 0;  // behind the last byte that is kept
};

}  // namespace

CommentRemoval RemovedByCall(std::string_view text) {
  CallComments comments;
  std::size_t open = text.find(kOpen);
  for (std::size_t close = text.find(kClose); close != kNotFound; close = text.find(kClose, comments.End())) {
    if (open < comments.End()) open = text.find(kOpen, comments.End());
    const bool joins = comments.Joins(text);
    if (!joins && open > close) break;
    if (joins)
      comments.Join(close + kClose.size());
    else
      comments.Add(open, close + kClose.size());
  }
  CommentRemoval removal;
  removal.comments = std::move(comments.All());
  if (!removal.comments.empty()) removal.front = FrontOf(text, removal.comments);
  return removal;
}

// --- What is left ------------------------------------------------------------------------------------

KeptText::KeptText(std::string_view text, const CommentRemoval& removal) : text_(text) {
  std::merge(removal.comments.begin(), removal.comments.end(), removal.slashes.begin(), removal.slashes.end(),
             std::back_inserter(removed_), [](const Range& a, const Range& b) { return a.begin < b.begin; });
  if (removal.front.end > 0) {
    std::erase_if(removed_, [&](const Range& range) { return range.begin < removal.front.end; });
    removed_.insert(removed_.begin(), removal.front);
  }
  std::size_t done = 0;
  for (const Range& range : removed_) {
    copy_.append(text, done, range.begin - done);
    done = range.end;
  }
  if (!removed_.empty()) copy_.append(text, done);
}

std::size_t KeptText::Places::Original(std::size_t place) {
  while (next_ < removed_.size() && removed_[next_].begin <= place + skipped_) {
    skipped_ += removed_[next_].end - removed_[next_].begin;
    ++next_;
  }
  return place + skipped_;
}

}  // namespace qxtool::check
