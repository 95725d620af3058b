#include <dirent.h>
#include <fcntl.h>
#include <qxTools/platform/linux/Staging.h>
#include <sys/mman.h>
#include <sys/random.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>

namespace qxTools {

namespace {

constexpr int kMaxTries = 100;
constexpr int kMaxLooked = 1000;  // names of a folder: a save must not take longer the more files there are
constexpr std::size_t kDigitCount = 16;
constexpr std::size_t kLongestPart = 200;  // of the file's own name, so that a temporary one is not too long

/// What the names of temporary files for `path` begin with, without the folder; digits follow.
std::string StemOf(const std::string& path) {
  const std::size_t nameAt = path.rfind('/') + 1;
  return "." + path.substr(nameAt, kLongestPart) + ".qx-";
}

/// A name that nobody can foresee; "" with errno if the system has no random numbers.
std::string TemporaryName(const std::string& path) {
  std::uint64_t number = 0;
  if (::getrandom(&number, sizeof number, 0) != sizeof number) return "";
  char digits[kDigitCount + 1];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(number));
  return FolderOf(path) + StemOf(path) + digits;
}

bool IsTemporaryName(std::string_view name, std::string_view stem) {
  return name.size() == stem.size() + kDigitCount && name.starts_with(stem) &&
         name.find_first_not_of("0123456789abcdef", stem.size()) == std::string_view::npos;
}

/// Removes a temporary file of this user's that no program has open.
void RemoveIfStale(const std::string& name) {
  SystemFile file = OpenFile(name, O_RDONLY | O_NOFOLLOW);
  struct stat info {};
  if (!file.IsOpen() || !file.IsRegular(info)) return;
  const bool isOwn = info.st_uid == ::geteuid() || ::geteuid() == 0;
  if (isOwn && file.Lock(true)) ::unlink(name.c_str());
}

void RemoveStale(const std::string& path) {
  const std::string folder = FolderOf(path);
  const std::string stem = StemOf(path);
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), ::closedir);
  if (entries == nullptr) return;
  int left = kMaxLooked;
  for (const dirent* entry = nullptr; left > 0 && (entry = ::readdir(entries.get())) != nullptr; --left)
    if (IsTemporaryName(entry->d_name, stem)) RemoveIfStale(folder + entry->d_name);
}

std::string LinkOf(const SystemFile& file) { return "/proc/self/fd/" + std::to_string(file.Get()); }

/// A file without a name; none where the file system, or the way to name it later, is missing.
SystemFile OpenUnnamed(const std::string& folder, unsigned mode) {
  SystemFile file = OpenFile(folder, O_TMPFILE | O_RDWR, mode);
  if (file.IsOpen() && ::access(LinkOf(file).c_str(), F_OK) != 0) {
    errno = EOPNOTSUPP;
    return SystemFile();
  }
  return file;
}

}  // namespace

Staging::~Staging() { RemoveName(); }

void Staging::RemoveName() {
  if (!name_.empty()) ::unlink(name_.c_str());
  name_.clear();
}

bool Staging::OpenNamed(const std::string& path, unsigned mode) {
  for (int tries = 0; tries < kMaxTries; ++tries) {
    const std::string name = TemporaryName(path);
    if (name.empty()) return false;
    file_ = OpenFile(name, O_RDWR | O_CREAT | O_EXCL, mode);
    if (file_.IsOpen()) name_ = name;
    if (file_.IsOpen() || errno != EEXIST) return file_.IsOpen();
  }
  return false;
}

bool Staging::OpenBeside(const std::string& path, unsigned mode) {
  RemoveStale(path);
  file_ = OpenUnnamed(FolderOf(path), mode);
  // Older systems and file systems take the call for opening the folder itself.
  const bool isUnknown = errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL;
  if (!file_.IsOpen() && !(isUnknown && OpenNamed(path, mode))) return false;
  return file_.Lock(true);
}

bool Staging::OpenInMemory() {
  file_ = SystemFile(::memfd_create("qxTools", MFD_CLOEXEC));
  isInMemory_ = true;
  return file_.IsOpen();
}

bool Staging::Link(const std::string& name) {
  return ::linkat(AT_FDCWD, LinkOf(file_).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool Staging::LinkTemporary(const std::string& path) {
  for (int tries = 0; tries < kMaxTries; ++tries) {
    std::string name = TemporaryName(path);
    if (name.empty()) return false;
    if (Link(name)) name_ = std::move(name);
    if (!name_.empty() || errno != EEXIST) return !name_.empty();
  }
  return false;
}

bool Staging::MoveToNew(const std::string& path) {
  if (name_.empty()) return Link(path);
  if (::renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) != 0 &&
      (errno != EINVAL || ::rename(name_.c_str(), path.c_str()) != 0))
    return false;
  name_.clear();
  return true;
}

bool Staging::MoveOver(const std::string& path) {
  if (name_.empty() && !LinkTemporary(path)) return false;
  if (::rename(name_.c_str(), path.c_str()) == 0) {
    name_.clear();
    return true;
  }
  const int reason = errno;
  RemoveName();
  errno = reason;
  return false;
}

}  // namespace qxTools
