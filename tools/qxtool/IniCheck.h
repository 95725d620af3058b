// What a settings file cannot hold.
#pragma once

#include <string>

namespace qxtool {

/// Why a section cannot have this name; "" if it can.
std::string SectionFault(const std::string& name);

/// Why a record cannot hold this value; "" if it can.
std::string ValueFault(const std::string& name, const std::string& text);

}  // namespace qxtool
