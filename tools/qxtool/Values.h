// Values given on the command line: NAME=VALUE, NAME:TYPE=VALUE, NAME:null.
#pragma once

#include <qxTools/runtime/Variant.h>

#include <string>
#include <vector>

namespace qxtool {

struct NamedValue {
  std::string name;
  qxTools::Variant value;
};

/// Reads the arguments of --set. Without a type a value is text.
/// @throws Failure, quoting the argument, for an unknown type or a value that is not of its type.
std::vector<NamedValue> ReadValues(const std::vector<std::string>& arguments);

/// A date as people write it, 2003-01-31, in the format of the date functions, 2003/01/31; any other text
/// unchanged.
std::string InDateFormat(std::string text);

/// The types for the help text.
std::string ValueTypes();

}  // namespace qxtool
