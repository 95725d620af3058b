// qxtool call --check and command --check: what in their values does harm silently.
#pragma once

#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <span>
#include <string>

#include "CommandLine.h"

namespace qxtool {

/// Prints what the rules for calls find in a filled set and in the declaration list that was given for it.
/// Prints nothing if there is nothing. Returns kFound for a warning or an error.
ExitStatus CheckCallValues(const std::string& file, const qxTools::qxSqlStoreProc::TQXSqlStoreProc& set,
                           const std::string& declarations);

/// Prints what the rules find in the filled parameters of the commands of a file. Prints nothing if there is
/// nothing. Returns kFound for a warning or an error.
ExitStatus CheckCommandValues(const std::string& file,
                              std::span<const qxTools::QXSqlTools::TQXSQLItems* const> commands);

}  // namespace qxtool
