#include <fcntl.h>
#include <poll.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/linux/SystemFile.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace qxTools {

namespace {

constexpr std::size_t kReadPiece = std::size_t{1} << 20;

/// A named pipe that nobody has opened for writing since it was opened here: its end is no end.
bool IsUnwrittenPipe(int fd) {
  struct stat info {};
  if (::fstat(fd, &info) != 0 || !S_ISFIFO(info.st_mode)) return false;
  pollfd ready{fd, POLLIN, 0};
  return ::poll(&ready, 1, 0) == 0;
}

std::string FileErrorText(const char* what, const std::string& fileName) {
  return std::string("Cannot ") + what + " file \"" + fileName + "\". " +
         std::generic_category().message(errno);
}

}  // namespace

SystemFile::SystemFile(SystemFile&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}

SystemFile& SystemFile::operator=(SystemFile&& other) noexcept {
  std::swap(fd_, other.fd_);
  return *this;
}

SystemFile::~SystemFile() {
  if (IsOpen()) ::close(fd_);
}

std::size_t SystemFile::Read(void* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = ::read(fd_, static_cast<char*>(buffer) + done, count - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0 || (got == 0 && IsUnwrittenPipe(fd_))) throw EReadError("Stream read error");
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

std::size_t SystemFile::Write(const void* buffer, std::size_t count) {
  for (std::size_t done = 0; done < count;) {
    const ssize_t written = ::write(fd_, static_cast<const char*>(buffer) + done, count - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw EWriteError("Stream write error");
    done += static_cast<std::size_t>(written);
  }
  return count;
}

std::int64_t SystemFile::Seek(std::int64_t offset, TSeekOrigin origin) {
  const std::int64_t current = std::max(::lseek(fd_, 0, SEEK_CUR), off_t{0});
  if (origin == soCurrent && offset == 0) return current;
  const std::int64_t base = origin == soBeginning ? 0 : origin == soCurrent ? current : GetSize();
  const std::int64_t moved = ::lseek(fd_, Place(base, offset), SEEK_SET);
  return moved >= 0 ? moved : current;
}

std::int64_t SystemFile::GetSize() const {
  struct stat info {};
  return ::fstat(fd_, &info) == 0 ? info.st_size : 0;
}

void SystemFile::SetSize(std::int64_t size) {
  if (::ftruncate(fd_, size) != 0) throw EWriteError("Stream write error");
  if (GetPosition() > size) SetPosition(size);
}

void SystemFile::Flush() {
  if (::fsync(fd_) != 0 && errno != EINVAL && errno != ENOTSUP) throw EWriteError("Stream write error");
}

bool SystemFile::Lock(bool exclusive) {
  return ::flock(fd_, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool SystemFile::IsRegular(struct stat& info) const {
  return ::fstat(fd_, &info) == 0 && S_ISREG(info.st_mode);
}

SystemFile OpenFile(const std::string& fileName, int flags, unsigned mode) {
  // The system would stop at a NUL and open another file.
  if (fileName.find('\0') != std::string::npos) {
    errno = EINVAL;
    return SystemFile();
  }
  int fd = -1;
  do fd = ::open(fileName.c_str(), flags | O_CLOEXEC | O_NONBLOCK, mode);
  while (fd < 0 && errno == EINTR);
  if (fd >= 0) ::fcntl(fd, F_SETFL, 0);  // only opening must not wait
  return SystemFile(fd);
}

std::string ReadToEnd(SystemFile& file, const std::string& fileName) {
  struct stat info {};
  // One byte more than the file has, so that its end is met without another piece.
  const auto size = file.IsRegular(info) ? static_cast<std::uint64_t>(info.st_size) + 1 : kReadPiece;
  std::string bytes;
  errno = S_ISDIR(info.st_mode) ? EISDIR : EFBIG;
  if (S_ISDIR(info.st_mode) || size > bytes.max_size()) RaiseCannotOpen(fileName);
  auto room = static_cast<std::size_t>(size);
  for (std::size_t done = 0;; room *= 2) {
    bytes.resize(room);
    done += file.Read(bytes.data() + done, room - done);
    if (done == room) continue;
    bytes.resize(done);
    return bytes;
  }
}

void RaiseCannotOpen(const std::string& fileName) { throw EFOpenError(FileErrorText("open", fileName)); }

void RaiseCannotCreate(const std::string& fileName) {
  throw EFCreateError(FileErrorText("create", fileName));
}

}  // namespace qxTools
