// The texts behind the stored-procedure set: comments out, macros and quotes in.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qxTools::qxSqlStoreProc {

/// A macro's name, brackets included, and its text.
using Macro = std::pair<std::string, std::string>;

/// @return whether there was one.
bool RemoveComments(std::u16string& text);

/// The text with macro after macro replaced, case counting.
std::string ExpandMacros(std::string_view text, const std::vector<Macro>& macros);

/// Returns the text with two apostrophes for each one and for each "[##]", and `end` after it as it is.
std::string DoubleQuotes(std::string_view text, std::string_view end);

}  // namespace qxTools::qxSqlStoreProc
