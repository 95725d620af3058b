#pragma once

#include <string>
#include <vector>

namespace qxTools {

/// $XDG_DATA_HOME, otherwise ~/.local/share; "" when the environment names neither by an absolute path.
std::string UserDataFolder();

/// The user's data folder, if there is one, and those of $XDG_DATA_DIRS, otherwise the two usual ones.
std::vector<std::string> DataFolders();

/// $XDG_CONFIG_HOME, otherwise ~/.config; "" when the environment names neither by an absolute path.
std::string UserConfigFolder();

}  // namespace qxTools
