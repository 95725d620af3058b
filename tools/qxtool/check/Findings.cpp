#include "Findings.h"

#include <algorithm>

#include "Characters.h"

namespace qxtool::check {

void FindLine(std::string_view text, std::size_t place, std::size_t& begin, std::size_t& end) {
  const auto isBreak = [](char c) { return c == '\n' || c == '\r'; };
  begin = std::min(place, text.size());
  while (begin > 0 && !isBreak(text[begin - 1])) --begin;
  end = std::min(text.find_first_of("\r\n", std::min(place, text.size())), text.size());
}

std::uint64_t HashOfLine(std::string_view line) {
  while (!line.empty() && Byte(line.front()) <= ' ') line.remove_prefix(1);
  while (!line.empty() && Byte(line.back()) <= ' ') line.remove_suffix(1);
  std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
  for (const char c : line) hash = (hash ^ Byte(c)) * 0x100000001B3;
  return hash;
}

std::uint64_t Findings::HashAt(std::size_t place) {
  if (lineEnd_ == 0 || place < lineBegin_ || place > lineEnd_) {
    FindLine(text_, place, lineBegin_, lineEnd_);
    hash_ = HashOfLine(text_.substr(lineBegin_, lineEnd_ - lineBegin_));
  }
  return hash_;
}

Findings::Taken Findings::TakeAway(const Rule& rule, std::size_t place) {
  if (suppressor_)
    if (const std::string* const reason = suppressor_(rule, place)) return {Suppression::kInSource, *reason};
  if (baseline_.empty() && !options_.countLines) return {};
  const BaselineKey key{rule.id, HashAt(place)};
  if (options_.countLines) ++lines_[key];
  const auto left = baseline_.find(key);
  if (left == baseline_.end() || left->second == 0) return {};
  --left->second;
  return {Suppression::kBaseline, ""};
}

void Findings::Add(const Rule& rule, Level level, std::size_t begin, std::size_t end, std::string message) {
  Taken taken = TakeAway(rule, begin);
  const bool counts = taken.suppression == Suppression::kNone;
  const std::size_t before = counts ? counts_[&rule]++ : suppressed_[&rule]++;
  if (counts) ++levels_[static_cast<std::size_t>(level)];
  if (before < options_.most && (counts || options_.keepSuppressed))
    kept_.push_back(
        {&rule, level, begin, end, std::move(message), taken.suppression, std::move(taken.reason)});
}

}  // namespace qxtool::check
