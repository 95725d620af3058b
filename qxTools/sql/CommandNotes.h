// Removing comments from a command.
#pragma once

#include <qxTools/runtime/StringList.h>

#include <string>

namespace qxTools::QXSqlTools {

/// Returns whether RemoveNotes may remove anything from the text of the lines.
bool HasNotes(const TStrings& lines);

/// Does what TQXSQL::ClearNote says. A text of bytes is in code page 950; it gives the bytes that its wide
/// form would give.
void RemoveNotes(std::string& text);
void RemoveNotes(std::u16string& text);

}  // namespace qxTools::QXSqlTools
