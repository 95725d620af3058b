// What a server would take for something else than was meant, reported before a statement is written or run.
#pragma once

#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <string>
#include <vector>

#include "RunOptions.h"
#include "Values.h"

namespace qxtool {

/// One line for each parameter and macro without a value, each declared type Unknown, and each length that no
/// server has. `values` are those that were given.
std::vector<std::string> ProblemsOf(const qxTools::qxSqlStoreProc::TQXSqlStoreProc& procedure,
                                    const std::vector<NamedValue>& values);

/// One line for each parameter of a command without a value.
std::vector<std::string> ProblemsOf(qxTools::QXSqlTools::TQXSQL& command,
                                    const std::vector<NamedValue>& values);

/// Prints the problems, each as one of `file`, on standard error.
/// @return whether the statement is written or run all the same.
bool Report(const std::string& file, const std::vector<std::string>& problems, const RunOptions& options);

}  // namespace qxtool
