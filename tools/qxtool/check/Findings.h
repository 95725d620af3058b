// What the rules find in one file.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Rule.h"

namespace qxtool::check {

enum class Suppression : std::uint8_t { kNone, kInSource, kBaseline };

struct Finding {
  const Rule* rule;
  Level level;
  std::size_t begin;  // bytes from 0, in the text that the rules saw
  std::size_t end;
  std::string message;
  Suppression suppression = Suppression::kNone;
  std::string reason;  // of the suppression
};

/// A finding's place in a baseline: its rule, and a hash of its line without the blanks around it.
using BaselineKey = std::pair<std::string, std::uint64_t>;
using BaselineCounts = std::map<BaselineKey, std::size_t>;

/// Which findings are kept.
struct FindingOptions {
  std::size_t most = 10;        // of one rule in a file
  bool keepSuppressed = false;  // also those that a comment or the baseline takes away
  bool countLines = false;      // for writing a baseline
};

/// Says whether a comment on a finding's line takes it away. Returns its reason, or null.
using Suppressor = std::function<const std::string*(const Rule&, std::size_t place)>;

class Findings {
 public:
  Findings(std::string_view text, const FindingOptions& options, BaselineCounts baseline,
           Suppressor suppressor)
      : text_(text), options_(options), baseline_(std::move(baseline)), suppressor_(std::move(suppressor)) {}

  void Add(const Rule& rule, Level level, std::size_t begin, std::size_t end, std::string message);

  std::vector<Finding>& Kept() { return kept_; }
  /// How many findings each rule has, without those that were taken away.
  const std::map<const Rule*, std::size_t>& Counts() const { return counts_; }
  /// How many findings each level has, by Level.
  const std::size_t* Levels() const { return levels_; }
  const BaselineCounts& Lines() const { return lines_; }

 private:
  struct Taken {
    Suppression suppression = Suppression::kNone;
    std::string reason;
  };
  Taken TakeAway(const Rule& rule, std::size_t place);
  std::uint64_t HashAt(std::size_t place);

  std::string_view text_;
  FindingOptions options_;
  BaselineCounts baseline_;  // how many are left to take away
  Suppressor suppressor_;
  std::vector<Finding> kept_;
  std::map<const Rule*, std::size_t> counts_;
  std::map<const Rule*, std::size_t> suppressed_;
  std::size_t levels_[3] = {};
  BaselineCounts lines_;
  std::size_t lineBegin_ = 0;  // the line that hash_ is of
  std::size_t lineEnd_ = 0;
  std::uint64_t hash_ = 0;
};

/// The line around a place, without its break, as offsets.
void FindLine(std::string_view text, std::size_t place, std::size_t& begin, std::size_t& end);

/// A hash of a line without the bytes up to 32 at its ends: the same on every system and in every version.
std::uint64_t HashOfLine(std::string_view line);

}  // namespace qxtool::check
