// The new contents of a file before they are in its place.
#pragma once

#include <qxTools/platform/linux/LockedFile.h>

#include <string>

namespace qxTools {

/// A temporary file that is locked, read and written by its owner, and gone when it is destroyed.
class Staging {
 public:
  Staging() = default;
  Staging(const Staging&) = delete;
  Staging& operator=(const Staging&) = delete;
  ~Staging();

  /// Opens it in the folder of `path`, with this mode less the umask, without a name where the file system
  /// has such files. Removes what a killed save of `path` has left there.
  /// @return false, with errno, if the folder takes no new file.
  bool OpenBeside(const std::string& path, unsigned mode);
  /// Opens it in memory. @return false, with errno, if memory runs out.
  bool OpenInMemory();

  SystemFile& File() { return file_; }
  bool IsInMemory() const { return isInMemory_; }

  /// Gives it a name that nothing has. @return false, with errno; EEXIST if there is something.
  bool MoveToNew(const std::string& path);
  /// Puts it in the place of the file of that name. @return false, with errno; it is without a name then.
  bool MoveOver(const std::string& path);

 private:
  bool Link(const std::string& name);
  bool LinkTemporary(const std::string& path);
  bool OpenNamed(const std::string& path, unsigned mode);
  void RemoveName();

  SystemFile file_;
  std::string name_;  // "" while it has none
  bool isInMemory_ = false;
};

}  // namespace qxTools
