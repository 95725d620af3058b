// --run: the text that a command has written goes to a database, and what comes back is shown.
#pragma once

#include <string>
#include <string_view>

#include "CommandLine.h"
#include "database/Charset.h"

namespace qxtool {

struct RunOptions {
  std::string connection;  // empty: the text is only shown
  std::string charset = "utf8";
  bool csv = false;
};

/// Adds --run, which it returns, and what goes with it.
Option AddRunOptions(Command& command, RunOptions& options);

/// Runs a statement (code page 950) and prints its results: rows as a table or as CSV on standard output,
/// everything else on standard error.
/// @throws Failure with the driver's own words, after Ctrl-C, and in a build without ODBC.
void RunStatement(const RunOptions& options, std::string_view statement);

/// What the terminal takes and gives.
database::Charset Terminal();

/// Runs `statement`, or prints it when there is no connection.
/// @throws qxTools::Exception when the terminal's encoding has no form for a byte of it.
void RunOrPrint(const RunOptions& options, std::string_view statement);

}  // namespace qxtool
