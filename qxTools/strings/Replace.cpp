#include <qxTools/base/Ascii.h>
#include <qxTools/base/Search.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace qxTools::QXStrTools {

namespace {

// Replaces from left to right in one reading. That is exact as long as no replacement becomes part of a new
// occurrence together with the text around it; if one may do so, there is no result. A new one is still there
// at the end, but for those that the next replacement tears: they overlap the next occurrence, so `old` can
// overlap itself and little is between the two. `compared` is the form of `s` in which `old` is looked for.
std::optional<std::string> ReplaceInOneReading(std::string_view s, std::string_view compared,
                                               std::string_view old, std::string_view replacement) {
  const std::size_t nearest = Search::Automaton(old).Overlaps() ? old.size() - 1 : 0;
  const bool separate = s.data() != compared.data();
  std::string text;
  std::string read;  // the text as compared, where that is another one
  text.reserve(s.size());
  std::size_t done = 0;
  bool torn = false;
  Search::VisitApart(old, compared, [&](std::size_t offset) {
    torn = done > 0 && offset - done < nearest;
    text.append(s, done, offset - done).append(replacement);
    if (separate) read.append(compared, done, offset - done).append(replacement);
    done = offset + old.size();
    return !torn;
  });
  text.append(s, done);
  if (separate) read.append(compared, done);
  if (torn || Search::WayTo(old, separate ? read : text, 1).count > 0) return std::nullopt;
  return text;
}

// Replaces the first occurrence again and again. Nothing before a replacement can become an occurrence but
// the last bytes in front of it, so the search goes on there and never starts over.
class Passes {
 public:
  Passes(std::string_view s, std::string_view compared, std::string_view old, std::string_view replacement)
      : compared_(compared),
        old_(old),
        replacement_(replacement),
        separate_(s.data() != compared.data()),
        automaton_(old),
        rest_{{s, compared}} {
    shown_.reserve(s.size());
  }

  std::string Run() {
    std::size_t passes = Search::WayTo(old_, compared_, std::numeric_limits<std::size_t>::max()).count;
    while (passes-- > 0 && ReadToMatch()) PutIn();
    for (; !rest_.empty(); rest_.pop_back()) shown_ += rest_.back().shown;
    return std::move(shown_);
  }

 private:
  struct Piece {
    std::string_view shown;
    std::string_view compared;
  };

  // Reads on until an occurrence ends what has been read.
  bool ReadToMatch() {
    while (!rest_.empty()) {
      if (matched_ == 0 && rest_.size() == 1) return LeapToMatch();
      const std::string_view piece = rest_.back().compared;
      std::size_t i = 0;
      while (i < piece.size() && matched_ < old_.size() && (matched_ > 0 || rest_.size() > 1)) {
        matched_ = automaton_.Feed(matched_, piece[i++]);
      }
      Take(i);
      if (matched_ == old_.size()) return true;
    }
    return false;
  }

  // With nothing but the end of the text left, and no occurrence begun.
  bool LeapToMatch() {
    const Search::Way way = Search::WayTo(old_, rest_.back().compared, 1);
    if (way.count == 0) return false;
    Take(way.last + old_.size());
    return true;
  }

  // Passes `count` bytes of the first piece of the rest.
  void Take(std::size_t count) {
    Piece& piece = rest_.back();
    shown_ += piece.shown.substr(0, count);
    if (separate_) passed_ += piece.compared.substr(0, count);
    piece.shown.remove_prefix(count);
    piece.compared.remove_prefix(count);
    if (piece.shown.empty()) rest_.pop_back();
  }

  void PutIn() {
    shown_.resize(shown_.size() - old_.size());
    if (separate_) passed_.resize(shown_.size());
    const std::string& passed = separate_ ? passed_ : shown_;
    matched_ = 0;
    const std::size_t tail = std::min(passed.size(), old_.size() - 1);
    automaton_.Read(std::string_view(passed).substr(passed.size() - tail), matched_);
    if (!replacement_.empty()) rest_.push_back({replacement_, replacement_});
  }

  std::string_view compared_;
  std::string_view old_;
  std::string_view replacement_;
  bool separate_;       // the compared form is another text than the shown one
  std::string shown_;   // what has been read, free of occurrences
  std::string passed_;  // the same as compared, where that is another text
  Search::Automaton automaton_;
  std::size_t matched_ = 0;
  std::vector<Piece> rest_;  // what has not, the last piece first
};

std::string ReplaceAll(std::string_view s, std::string_view compared, std::string_view old,
                       std::string_view replacement) {
  std::optional<std::string> text;
  if (Search::WayTo(old, replacement, 1).count == 0)
    text = ReplaceInOneReading(s, compared, old, replacement);
  return text ? std::move(*text) : Passes(s, compared, old, replacement).Run();
}

}  // namespace

std::string ReplaceStr(std::string_view s, std::string_view old, std::string_view replacement,
                       bool ignoreCase) {
  const Integer position = ignoreCase ? At(UpperCase(old), UpperCase(s), 1) : At(old, s, 1);
  if (position < 1) return std::string(s);
  const auto place = static_cast<std::size_t>(position - 1);
  std::string text;
  text.reserve(s.size() - old.size() + replacement.size());
  text.append(s, 0, place).append(replacement).append(s, place + old.size());
  return text;
}

std::string ReplaceAllStr(std::string_view s, std::string_view old, std::string_view replacement,
                          bool ignoreCase) {
  if (old.empty()) return std::string(s);
  if (!ignoreCase) return ReplaceAll(s, s, old, replacement);
  return ReplaceAll(s, UpperCase(s), UpperCase(old), replacement);
}

}  // namespace qxTools::QXStrTools
