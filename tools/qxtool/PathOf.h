// File names for <filesystem>.
#pragma once

#include <filesystem>
#include <string>

namespace qxtool {

/// A file name as <filesystem> takes it: bytes, or UTF-8 where the system has text there. Its
/// generic_string() is the file name again.
inline std::filesystem::path PathOf(const std::string& fileName) {
  return std::u8string(fileName.begin(), fileName.end());
}

}  // namespace qxtool
