// Files of a run's own, and saving them by the system's own calls as safely as qxTools does.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

/// A folder in the current one, so that files lie on a disk and not in memory. It goes with its files.
class Folder {
 public:
  Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder();
  std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }

 private:
  std::string path_;
};

/// A file with that text, in a folder of its own.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string_view text);
  const std::string& Name() const { return name_; }

 private:
  Folder folder_;
  std::string name_ = folder_.File("file");
};

/// Writes the pieces to a temporary file, which is flushed and renamed over the old one; then the folder is
/// flushed.
bool SaveSafely(const std::string& fileName, std::initializer_list<std::string_view> pieces);

/// All bytes of a file, by one read.
std::string ReadAll(const std::string& fileName);
