// What a file is, by its name and its text.
#pragma once

#include <optional>
#include <string_view>

#include "Rule.h"

namespace qxtool::check {

/// The kind of a file that is named on the command line. Marks of settings files and tables decide before the
/// extension; a file of an unknown extension is a statement if it begins with a keyword of one, else text.
FileKind KindOfFile(std::string_view fileName, std::string_view text);

/// True if a file found in a folder may be one to check, as far as its extension says.
bool HasKnownExtension(std::string_view fileName);

/// True if the first bytes of a file show a settings file or a table.
bool HasKnownMarks(std::string_view text);

}  // namespace qxtool::check
