// The rules as a page of the guide and as a part of the manual page.
#pragma once

#include <string>

namespace qxtool::check {

/// A heading a rule, with its examples, in Markdown (UTF-8).
std::string RulesAsMarkdown();

/// A list of the rules for man.
std::string RulesAsMan();

}  // namespace qxtool::check
