// The options of --run, and what a command does with them: it runs its text, or prints it.
#pragma once

#include <string>
#include <string_view>

#include "CommandLine.h"
#include "StatementFile.h"
#include "database/Charset.h"

namespace qxtool {

struct RunOptions {
  std::string connection;  // empty: the text is only shown
  std::string charset;     // accepted, and ignored
  bool bind = false;
  bool csv = false;
  bool strict = false;
  bool noStrict = false;

  /// Whether a statement with problems is refused: where that was asked for, and before a server changes
  /// data.
  bool IsStrict() const { return strict || (!connection.empty() && !noStrict); }
};

/// Adds --run, which it returns, and the options that belong to it.
Option AddRunOptions(Command& command, RunOptions& options);

/// The encoding of standard output.
database::Charset OutputCharset();

/// The encoding of messages on standard error.
database::Charset MessageCharset();

/// Runs the batches one after the other, or prints them with GO lines between if there is no connection.
/// @throws qxTools::Exception if the encoding of standard output has no form for a byte of one.
void RunOrPrint(const RunOptions& options, const std::vector<Batch>& batches);

}  // namespace qxtool
