// Findings that are known: a file of rules, paths, hashes of lines and counts. It has no line numbers, so
// that lines can move.
#pragma once

#include <map>
#include <string>

#include "Findings.h"

namespace qxtool::check {

/// The counts of each file, by the reference to its path.
using Baseline = std::map<std::string, BaselineCounts>;

/// Reads a baseline. Throws qxTools::Exception if the text is none.
Baseline ReadBaseline(const std::string& text);

/// The text of a baseline, one finding a line.
std::string WriteBaseline(const Baseline& baseline);

}  // namespace qxtool::check
