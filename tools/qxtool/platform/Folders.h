// What is in a folder, and files behind long paths.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qxtool {

/// An entry of a folder. A link to a folder is neither a folder nor a file.
struct FolderEntry {
  std::string name;
  bool isFolder = false;
  bool isFile = false;
};

/// The entries of a folder, in any order. @throws std::system_error.
std::vector<FolderEntry> EntriesOf(const std::string& folder);

/// A path that can be opened however long it is.
std::filesystem::path PathToOpen(const std::string& fileName);

}  // namespace qxtool
