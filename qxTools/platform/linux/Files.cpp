#include <fcntl.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/linux/LockedFile.h>

#include <cerrno>

namespace qxTools {

bool FileExists(const std::string& fileName) {
  struct stat info {};
  return ::stat(fileName.c_str(), &info) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

bool FolderExists(const std::string& fileName) {
  struct stat info {};
  return ::stat(fileName.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool CreateFileIfMissing(const std::string& fileName) {
  const SystemFile file = OpenFile(FollowLinks(fileName), O_WRONLY | O_CREAT | O_EXCL, 0666);
  if (!file.IsOpen() && errno != EEXIST) RaiseCannotCreate(fileName);
  return file.IsOpen();
}

std::string ReadWholeFile(const std::string& fileName, std::int64_t waitMilliseconds) {
  SystemFile file = OpenLocked(fileName, O_RDONLY, DeadlineIn(waitMilliseconds));
  if (!file.IsOpen()) RaiseCannotOpen(fileName);
  return ReadToEnd(file, fileName);
}

}  // namespace qxTools
