// What a settings file cannot hold, and what a save of a given text would lose.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace qxtool {

/// Called with the number of a line, from 1, and what is wrong with it.
using OnLine = std::function<void(int line, const std::string& what)>;

/// Reports each line of a settings file that a save would lose or move.
void ForEachLoss(std::string_view text, const OnLine& report);

/// Why a section cannot have this name; "" if it can.
std::string SectionFault(const std::string& name);

/// Why a record cannot hold this value; "" if it can.
std::string ValueFault(const std::string& name, const std::string& text);

}  // namespace qxtool
