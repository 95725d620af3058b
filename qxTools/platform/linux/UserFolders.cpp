#include <qxTools/platform/linux/UserFolders.h>

#include <cstdlib>

namespace qxTools {

namespace {

std::string AbsolutePath(const char* variable) {
  const char* const path = std::getenv(variable);
  return path != nullptr && *path == '/' ? path : "";
}

std::string UserFolder(const char* variable, const char* belowHome) {
  std::string folder = AbsolutePath(variable);
  if (!folder.empty()) return folder;
  const std::string home = AbsolutePath("HOME");
  return home.empty() ? "" : home + belowHome;
}

}  // namespace

std::string UserDataFolder() { return UserFolder("XDG_DATA_HOME", "/.local/share"); }

std::string UserConfigFolder() { return UserFolder("XDG_CONFIG_HOME", "/.config"); }

}  // namespace qxTools
