#include "platform/Folders.h"

#include "PathOf.h"

namespace qxtool {

std::vector<FolderEntry> EntriesOf(const std::string& folder) {
  std::vector<FolderEntry> entries;
  for (const auto& entry : std::filesystem::directory_iterator(PathOf(folder)))
    entries.push_back({entry.path().filename().string(), entry.is_directory() && !entry.is_symlink(),
                       entry.is_regular_file()});
  return entries;
}

std::filesystem::path PathToOpen(const std::string& fileName) { return PathOf(fileName); }

}  // namespace qxtool
