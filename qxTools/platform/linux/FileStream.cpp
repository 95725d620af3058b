#include <fcntl.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/linux/SystemFile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace qxTools {

namespace {

constexpr int kFlags[] = {O_RDONLY, O_WRONLY, O_RDWR, O_RDWR | O_CREAT};

bool IsFolder(int fd) {
  struct stat info {};
  if (::fstat(fd, &info) != 0 || !S_ISDIR(info.st_mode)) return false;
  errno = EISDIR;
  return true;
}

/// The old contents go only once the lock is held.
bool Prepare(int fd, TFileMode mode) {
  if (IsFolder(fd) || !LockFile(fd, mode != fmOpenRead)) return false;
  if (mode != fmCreate) return true;
  return ::ftruncate(fd, 0) == 0 || errno == EINVAL;  // a device or a pipe has nothing to be cut off
}

}  // namespace

TFileStream::TFileStream(const std::string& fileName, TFileMode mode) {
  file_ = std::make_unique<SystemFile>(OpenFile(fileName, kFlags[mode], 0666));
  if (file_->IsOpen() && Prepare(file_->Get(), mode)) return;
  if (mode == fmCreate) throw EFCreateError(FileErrorText("create", fileName));
  throw EFOpenError(FileErrorText("open", fileName));
}

TFileStream::~TFileStream() = default;

std::size_t TFileStream::Read(void* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = ::read(file_->Get(), static_cast<char*>(buffer) + done, count - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) throw EReadError("Stream read error");
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

std::size_t TFileStream::Write(const void* buffer, std::size_t count) {
  WriteAll(file_->Get(), {static_cast<const char*>(buffer), count});
  return count;
}

std::int64_t TFileStream::Seek(std::int64_t offset, TSeekOrigin origin) {
  // A pipe has no position and counts as being at its start.
  const std::int64_t current = std::max(::lseek(file_->Get(), 0, SEEK_CUR), off_t{0});
  if (origin == soCurrent && offset == 0) return current;
  const std::int64_t base = origin == soBeginning ? 0 : origin == soCurrent ? current : GetSize();
  const std::int64_t moved = ::lseek(file_->Get(), Place(base, offset), SEEK_SET);
  return moved >= 0 ? moved : current;
}

std::int64_t TFileStream::GetSize() const {
  struct stat info {};
  return ::fstat(file_->Get(), &info) == 0 ? info.st_size : 0;
}

void TFileStream::SetSize(std::int64_t size) {
  if (::ftruncate(file_->Get(), size) != 0) throw EWriteError("Stream write error");
  if (GetPosition() > size) SetPosition(size);
}

}  // namespace qxTools
