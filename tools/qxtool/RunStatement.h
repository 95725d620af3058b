// --run: the text that a command has written is sent to a database, and the results are shown.
#pragma once

#include <vector>

#include "RunOptions.h"

namespace qxtool {

/// Runs batches (code page 950) on one connection and prints their results: rows as a table or as CSV on
/// standard output, everything else on standard error. The first failure ends it.
/// @throws Failure with the driver's own words, after Ctrl-C, and in a build without ODBC.
void RunBatches(const RunOptions& options, const std::vector<Batch>& batches);

}  // namespace qxtool
