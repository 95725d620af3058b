// The texts of the stored-procedure set: removing comments, expanding macros, doubling quotes.
#pragma once

#include <qxTools/runtime/StringList.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qxTools::qxSqlStoreProc {

/// The place of what is not found.
inline constexpr std::size_t kNone = std::string_view::npos;

/// A macro's name, brackets included, and its text.
using Macro = std::pair<std::string, std::string>;

/// Does what TQXSqlStoreProc::ClearNote says. A text of bytes is in code page 950; it gives the bytes that
/// its wide form would give.
void RemoveNotes(std::string& text);
void RemoveNotes(std::u16string& text);

/// Returns whether RemoveNotes may remove anything.
bool HasNotes(std::u16string_view text);

/// Returns the text with one macro after the other replaced; letter case matters.
std::string ExpandMacros(std::string_view text, const std::vector<Macro>& macros);

/// Returns the text of the lines with one macro after the other replaced, then with two apostrophes for each
/// one and for each "[##]", and `end` after it as it is.
std::string QuoteStatement(const TStrings& lines, const std::vector<Macro>& macros, std::string_view end);

}  // namespace qxTools::qxSqlStoreProc
