// --bind: a statement with a mark in the place of each parameter, and the values that are bound to them.
#pragma once

#include <qxTools/runtime/Variant.h>

#include <map>
#include <optional>
#include <string>

#include "StatementFile.h"

namespace qxtool {

/// The parameters of a statement, by name in capitals; nothing for one that was given no value.
using BindableValues = std::map<std::string, std::optional<qxTools::Variant>>;

/// Puts "?" in the place of each parameter and its value behind those of the batch. A parameter is a name by
/// itself, as a server reads names; the text of literals, quoted names and comments stays, but a
/// comment with a "?" in it is left out.
/// @throws Failure, naming the line, for a parameter without a value, a value that is inside a literal or a
///   name, and a "?" of the statement's own; for a value that is bound nowhere.
void BindValues(Batch& batch, const BindableValues& values);

}  // namespace qxtool
