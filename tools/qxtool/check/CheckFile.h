// Checks one file.
#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "CheckedText.h"

namespace qxtool::check {

/// What the rules are asked for one file.
struct FileOptions {
  Route route = Route::kCall;
  bool utf8 = false;
  bool pedantic = false;            // also rules and findings that are off by default
  std::vector<std::string> select;  // beginnings of ids; empty: all that are on by default
  std::vector<std::string> ignore;  // beginnings of ids
  FindingOptions findings;
};

/// A finding as it is shown, in code page 950.
struct ShownFinding {
  const Rule* rule;
  Level level;
  std::string message;
  std::size_t line;        // from 1
  std::size_t column;      // in characters, from 1
  std::size_t endColumn;   // behind it, on the same line
  std::size_t byteOffset;  // in the file
  std::size_t byteLength;
  std::uint64_t lineHash;
  std::string excerpt;  // the line, or the part of it around the finding, fit for a terminal
  std::size_t caret;    // the column on the screen, from 0, in the excerpt
  std::size_t caretWidth;
  Suppression suppression;
  std::string reason;
};

struct FileReport {
  std::string path;
  bool checked = true;  // false: a file of a folder that is none of the kinds
  std::string error;    // why it could not be read
  FileKind kind = FileKind::kText;
  std::vector<ShownFinding> findings;
  std::map<const Rule*, std::size_t> counts;
  std::size_t levels[3] = {};
  BaselineCounts lines;
};

/// The rules that are asked of a file of that kind, used in that way.
std::vector<const Rule*> AskedRules(FileKind kind, const FileOptions& options);

/// Checks a text. `baseline` says what is taken away. `path` tells the kind of the file, and goes to the
/// report.
FileReport CheckBytes(std::string path, std::string bytes, const FileOptions& options,
                      BaselineCounts baseline);

/// Checks the filled parameters of commands. Findings have no places.
FileReport CheckCommands(std::string path, std::span<const qxTools::QXSqlTools::TQXSQLItems* const> commands,
                         const FileOptions& options);

/// Checks the filled set of a call. `declarations` is the list given for it, which may be one that LoadParams
/// refuses; "" for none. Findings have no places but those in the list.
FileReport CheckCall(std::string path, const qxTools::qxSqlStoreProc::TQXSqlStoreProc& set,
                     std::string_view declarations, const FileOptions& options);

}  // namespace qxtool::check
