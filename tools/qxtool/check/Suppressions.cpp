#include "Suppressions.h"

#include <qxTools/base/Ascii.h>

#include <algorithm>

#include "Characters.h"

namespace qxtool::check {

namespace {

constexpr std::string_view kMark = "qx:ignore";

/// Only blanks between "--" and the mark.
bool IsInLineComment(std::string_view text, std::size_t mark) {
  while (mark > 0 && text[mark - 1] == ' ') --mark;
  return text.substr(0, mark).ends_with("--");
}

std::string_view NextWord(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
  const std::string_view word = rest.substr(0, rest.find_first_of(" \t"));
  rest.remove_prefix(word.size());
  return word;
}

std::vector<std::string> SplitIds(std::string_view list) {
  std::vector<std::string> ids;
  while (!list.empty()) {
    const std::size_t comma = std::min(list.find(','), list.size());
    if (comma > 0) ids.emplace_back(list.substr(0, comma));
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return ids;
}

Suppressions::Comment ReadComment(std::string_view text, std::size_t mark) {
  Suppressions::Comment comment{};
  comment.begin = mark;
  FindLine(text, mark, comment.lineBegin, comment.end);
  std::string_view rest = text.substr(mark + kMark.size(), comment.end - mark - kMark.size());
  comment.ids = SplitIds(NextWord(rest));
  rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
  comment.reason = rest;
  comment.used.resize(comment.ids.size());
  return comment;
}

void Refused(const Event&, Context&) {}

constexpr Rule kSuppressionsRules[] = {
    {"IGN101", Level::kWarning, FileKind::kStatement, kEveryRoute, true,
     "a qx:ignore that takes nothing away",
     "The finding is gone, or the line has moved; the next one on this line would pass unseen.", "Remove it.",
     "select Code from Goods -- qx:ignore SQL403 old\n", "select Code from Goods\n", 0, Refused},
    {"IGN102", Level::kError, FileKind::kStatement, kEveryRoute, true, "a qx:ignore that cannot be read",
     "It names no rule, or its reason holds an apostrophe or an @, which the statement's own reading would "
     "trip over (SQL206, SQL203).",
     "Write -- qx:ignore ID reason.", "select Code from Goods -- qx:ignore all of it\n",
     "select Code from Goods\n", 0, Refused},
};

}  // namespace

std::span<const Rule> SuppressionRules() { return kSuppressionsRules; }

bool Suppressions::Comment::IsRefused() const {
  const bool known = std::ranges::all_of(ids, [](const std::string& id) { return FindRule(id) != nullptr; });
  return ids.empty() || !known || reason.find_first_of("'@") != std::string::npos;
}

Suppressions::Suppressions(std::string_view text) {
  for (std::size_t at = text.find(kMark); at != kNowhere;) {
    const bool isComment = IsInLineComment(text, at);
    if (isComment) comments_.push_back(ReadComment(text, at));
    at = text.find(kMark, isComment ? comments_.back().end : at + 1);
  }
}

const std::string* Suppressions::Find(const Rule& rule, std::size_t place) {
  const auto behind = std::ranges::upper_bound(comments_, place, {}, &Comment::lineBegin);
  if (behind == comments_.begin()) return nullptr;
  Comment& comment = *std::prev(behind);
  if (place > comment.end || comment.IsRefused()) return nullptr;
  for (std::size_t i = 0; i < comment.ids.size(); ++i) {
    if (!qxTools::SameText(comment.ids[i], rule.id)) continue;
    comment.used[i] = true;
    return &comment.reason;
  }
  return nullptr;
}

void ReportSuppressions(const Suppressions& suppressions, std::span<const Rule* const> asked,
                        Context& context) {
  const auto isAsked = [&](const Rule* rule) { return std::ranges::find(asked, rule) != asked.end(); };
  const Rule* const unused = FindRule("IGN101");
  const Rule* const refused = FindRule("IGN102");
  for (const Suppressions::Comment& comment : suppressions.Comments()) {
    const auto report = [&](const Rule* rule, const std::string& message) {
      if (!isAsked(rule)) return;
      context.SetRule(*rule);
      context.Report(comment.begin, comment.end, message);
    };
    if (comment.IsRefused()) {
      report(refused, "write: -- qx:ignore ID reason, with ids of rules, and without apostrophe and @");
      continue;
    }
    for (std::size_t i = 0; i < comment.ids.size(); ++i)
      if (!comment.used[i] && isAsked(FindRule(comment.ids[i])))
        report(unused, "no finding of " + comment.ids[i] + " on this line");
  }
}

}  // namespace qxtool::check
