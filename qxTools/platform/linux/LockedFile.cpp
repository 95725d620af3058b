#include <fcntl.h>
#include <qxTools/platform/linux/LockedFile.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace qxTools {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kPause(2);

bool WaitForLock(SystemFile& file, bool exclusive, Deadline until) {
  while (!file.Lock(exclusive)) {
    if (std::chrono::steady_clock::now() >= until) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

}  // namespace

Deadline DeadlineIn(std::int64_t milliseconds) {
  constexpr std::int64_t kLongest = std::int64_t{1} << 40;  // far beyond any wait, far below an overflow
  return std::chrono::steady_clock::now() + std::chrono::milliseconds(std::min(milliseconds, kLongest));
}

SystemFile OpenLocked(const std::string& fileName, int flags, Deadline until) {
  for (;;) {
    SystemFile file = OpenFile(fileName, flags, 0666);
    if (!file.IsOpen()) return file;
    if (!WaitForLock(file, flags != O_RDONLY, until)) {
      errno = EWOULDBLOCK;
      return SystemFile();
    }
    if (IsNamed(file, fileName)) return file;
    if (errno != ENOENT) return SystemFile();
  }
}

bool IsNamed(const SystemFile& file, const std::string& fileName) {
  struct stat here {};
  struct stat named {};
  if (::fstat(file.Get(), &here) != 0) return false;
  if (!S_ISREG(here.st_mode)) return true;  // what is no file is not replaced
  if (::stat(fileName.c_str(), &named) != 0) return false;
  errno = ENOENT;
  return here.st_dev == named.st_dev && here.st_ino == named.st_ino;
}

std::string FollowLinks(const std::string& fileName) {
  if (fileName.find('\0') != std::string::npos) return fileName;  // names no file; realpath would cut it
  const std::unique_ptr<char, decltype(&std::free)> path(::realpath(fileName.c_str(), nullptr), &std::free);
  if (path != nullptr) return path.get();
  if (errno != ENOENT) RaiseCannotCreate(fileName);
  struct stat info {};
  // A link of the system's own leads to what has no path: a pipe, or a file that was removed.
  if (::stat(fileName.c_str(), &info) == 0) return fileName;
  fs::path name = fileName;
  std::error_code error;
  while (fs::is_symlink(name, error)) {
    const fs::path target = fs::read_symlink(name, error);
    if (error) RaiseCannotCreate(fileName);
    name = name.parent_path() / target;
  }
  return name.string();
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

}  // namespace qxTools
