#include <qxTools/platform/linux/UserFolders.h>

#include <algorithm>
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

std::vector<std::string> DataFolders() {
  std::vector<std::string> folders = {UserDataFolder()};
  const char* const listed = std::getenv("XDG_DATA_DIRS");
  const std::string list = listed != nullptr && *listed != '\0' ? listed : "/usr/local/share:/usr/share";
  for (std::size_t start = 0; start < list.size();) {
    const std::size_t end = std::min(list.find(':', start), list.size());
    folders.push_back(list.substr(start, end - start));
    start = end + 1;
  }
  std::erase_if(folders, [](const std::string& folder) { return !folder.starts_with('/'); });
  return folders;
}

std::string UserConfigFolder() { return UserFolder("XDG_CONFIG_HOME", "/.config"); }

}  // namespace qxTools
