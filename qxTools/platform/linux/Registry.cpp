#include <qxTools/base/Ascii.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/Registry.h>
#include <qxTools/platform/linux/SystemFile.h>
#include <qxTools/platform/linux/UserFolders.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

namespace qxTools {

namespace {

namespace fs = std::filesystem;

// No level is stored under this name, since a "%" in a level is written as %25.
constexpr char kValueFile[] = "/%default";

std::string RootFolder() {
  const std::string data = UserDataFolder();
  return data.empty() ? "" : data + "/qxTools/classes";
}

bool IsPlain(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 32 && byte != 127 && c != '/' && c != '%';
}

std::string NameOfLevel(std::string_view level) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const bool isDots = level == "." || level == "..";
  std::string name;
  for (const char c : level) {
    if (IsPlain(c) && !isDots) {
      name += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    name += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
  }
  return name;
}

std::string LevelOfName(std::string_view name) {
  std::string level;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (name[i] != '%') {
      level += name[i];
      continue;
    }
    level += static_cast<char>(std::strtol(std::string(name.substr(i + 1, 2)).c_str(), nullptr, 16));
    i += 2;
  }
  return level;
}

/// Names that are too long for the file system exist nowhere.
bool IsMissing(const std::error_code& reason) {
  using std::errc;
  return reason == errc::no_such_file_or_directory || reason == errc::not_a_directory ||
         reason == errc::filename_too_long;
}

/// @throws EFOpenError if there is such a folder and it cannot be read.
std::vector<std::string> FoldersIn(const std::string& folder) try {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    std::error_code ignored;
    if (entry.is_directory(ignored)) names.push_back(entry.path().filename().string());
  }
  return names;
} catch (const fs::filesystem_error& e) {
  if (IsMissing(e.code())) return {};
  errno = e.code().value();
  RaiseCannotOpen(folder);
}

/// The folder of a level, in whatever case it was made; the one to be made when there is none.
std::string FolderOfLevel(const std::string& folder, std::string_view level) {
  const std::string name = NameOfLevel(level);
  std::error_code ignored;
  if (fs::is_directory(folder + "/" + name, ignored)) return folder + "/" + name;
  const std::vector<std::string> names = FoldersIn(folder);
  const auto found = std::ranges::find_if(names, [&](const auto& other) { return SameText(other, name); });
  return folder + "/" + (found != names.end() ? *found : name);
}

std::vector<std::string_view> LevelsOf(std::string_view key) {
  std::vector<std::string_view> levels;
  for (std::size_t start = 0; start < key.size();) {
    const std::size_t end = std::min(key.find('\\', start), key.size());
    if (end > start) levels.push_back(key.substr(start, end - start));
    start = end + 1;
  }
  return levels;
}

/// The folder of a key, whether it is there or not; "" without a data folder.
std::string FolderOfKey(std::string_view key) {
  std::string folder = RootFolder();
  if (folder.empty()) return folder;
  for (const std::string_view level : LevelsOf(key)) folder = FolderOfLevel(folder, level);
  return folder;
}

}  // namespace

bool WriteClassesValue(std::string_view key, std::string_view value) {
  const std::string folder = FolderOfKey(key);
  std::error_code ignored;
  fs::create_directories(folder, ignored);
  if (::access(folder.c_str(), W_OK | X_OK) != 0 || !fs::is_directory(folder, ignored)) return false;
  SaveWholeFile(folder + kValueFile, value);
  return true;
}

std::optional<std::string> ReadClassesValue(std::string_view key) {
  const std::string folder = FolderOfKey(key);
  if (folder.empty()) return std::nullopt;
  struct stat info {};
  const bool isThere = ::stat((folder + kValueFile).c_str(), &info) == 0;
  if (!isThere && IsMissing({errno, std::generic_category()})) return std::nullopt;
  return ReadWholeFile(folder + kValueFile);
}

void DeleteClassesValue(std::string_view key) {
  std::string folder = FolderOfKey(key);
  if (folder.empty()) return;
  ::unlink((folder + kValueFile).c_str());
  for (const std::string root = RootFolder(); folder != root && ::rmdir(folder.c_str()) == 0;)
    folder.resize(folder.rfind('/'));
}

std::vector<std::string> ReadClassesKeys() {
  std::vector<std::string> keys;
  for (const std::string& name : FoldersIn(RootFolder())) keys.push_back(LevelOfName(name));
  std::ranges::sort(keys);
  return keys;
}

}  // namespace qxTools
