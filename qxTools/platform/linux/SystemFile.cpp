#include <fcntl.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/linux/SystemFile.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace qxTools {

SystemFile::~SystemFile() {
  if (IsOpen()) ::close(fd_);
}

SystemFile OpenFile(const std::string& fileName, int flags, unsigned mode) {
  // The system would stop at a NUL and open another file.
  if (fileName.find('\0') != std::string::npos) {
    errno = EINVAL;
    return SystemFile();
  }
  int fd = -1;
  do fd = ::open(fileName.c_str(), flags | O_CLOEXEC, mode);
  while (fd < 0 && errno == EINTR);
  return SystemFile(fd);
}

bool LockFile(int fd, bool exclusive) {
  return ::flock(fd, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw EWriteError("Stream write error");
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

std::string FileErrorText(const char* what, const std::string& fileName) {
  return std::string("Cannot ") + what + " file \"" + fileName + "\". " +
         std::generic_category().message(errno);
}

}  // namespace qxTools
