#pragma once

#include <string>

namespace qxTools {

/// $XDG_DATA_HOME, otherwise ~/.local/share; "" when the environment names neither by an absolute path.
std::string UserDataFolder();

/// $XDG_CONFIG_HOME, otherwise ~/.config; "" when the environment names neither by an absolute path.
std::string UserConfigFolder();

}  // namespace qxTools
