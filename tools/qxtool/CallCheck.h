// qxtool call --check: what in the values of a call does harm silently.
#pragma once

#include <qxTools/sql/qxSqlStoreProc.h>

#include <string>

#include "CommandLine.h"

namespace qxtool {

/// Prints what the rules for calls find in a filled set and in the declaration list that was given for it.
/// Prints nothing if there is nothing. Returns kFound for a warning or an error.
ExitStatus CheckCallValues(const std::string& file, const qxTools::qxSqlStoreProc::TQXSqlStoreProc& set,
                           const std::string& declarations);

}  // namespace qxtool
