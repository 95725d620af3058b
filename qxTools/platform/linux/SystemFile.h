#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace qxTools {

/// An open file that is closed with its owner.
class SystemFile {
 public:
  explicit SystemFile(int fd = -1) : fd_(fd) {}
  SystemFile(SystemFile&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  SystemFile& operator=(SystemFile&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~SystemFile();

  int Get() const { return fd_; }
  bool IsOpen() const { return fd_ >= 0; }

 private:
  int fd_;
};

/// open(), tried again when a signal broke it off, and closed on exec; errno says why it failed.
SystemFile OpenFile(const std::string& fileName, int flags, unsigned mode = 0);

/// Takes an advisory lock without waiting. @return false only when somebody else holds one.
bool LockFile(int fd, bool exclusive);

/// Writes all the bytes. @throws EWriteError "Stream write error" when the system does not take them.
void WriteAll(int fd, std::string_view bytes);

/// `Cannot open file "NAME". REASON`, or create; the reason is that of errno.
std::string FileErrorText(const char* what, const std::string& fileName);

}  // namespace qxTools
