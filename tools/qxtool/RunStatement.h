// --run: the text that a command has written is sent to a database, and the results are shown.
#pragma once

#include <string_view>

#include "RunOptions.h"

namespace qxtool {

/// Runs a statement (code page 950) and prints its results: rows as a table or as CSV on standard output,
/// everything else on standard error.
/// @throws Failure with the driver's own words, after Ctrl-C, and in a build without ODBC.
void RunStatement(const RunOptions& options, std::string_view statement);

}  // namespace qxtool
