// An open file of the system: a stream whose calls deal with interruptions and short counts.
#pragma once

#include <qxTools/base/Streams.h>
#include <sys/stat.h>

#include <string>
#include <string_view>

namespace qxTools {

/// An open file, or none. It is closed with its owner.
class SystemFile final : public TStream {
 public:
  explicit SystemFile(int fd = -1) : fd_(fd) {}
  SystemFile(SystemFile&& other) noexcept;
  SystemFile& operator=(SystemFile&& other) noexcept;
  ~SystemFile() override;

  int Get() const { return fd_; }
  bool IsOpen() const { return fd_ >= 0; }

  /// @throws EReadError "Stream read error", also for a pipe that nobody has opened for writing.
  std::size_t Read(void* buffer, std::size_t count) override;
  /// @throws EWriteError "Stream write error" if the system does not take all bytes.
  std::size_t Write(const void* buffer, std::size_t count) override;
  /// A pipe has no position and counts as being at its start.
  std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) override;
  std::int64_t GetSize() const override;
  void SetSize(std::int64_t size) override;

  /// Flushes the bytes to the disk; a pipe or a device has none. @throws EWriteError "Stream write error".
  void Flush();
  /// Takes an advisory lock without waiting. @return false, with errno, only if somebody else holds one.
  bool Lock(bool exclusive);
  /// Whether it is a regular file; `info` tells more.
  bool IsRegular(struct stat& info) const;

 private:
  int fd_;
};

/// open(), tried again when a signal broke it off, and closed on exec; errno says why it failed. It never
/// waits for the other end of a pipe: one without a reader cannot be opened for writing.
SystemFile OpenFile(const std::string& fileName, int flags, unsigned mode = 0);

/// Reads from the position to the end. `fileName` is for messages.
/// @throws EReadError, or EFOpenError for a folder and for what is larger than a string can be.
std::string ReadToEnd(SystemFile& file, const std::string& fileName);

/// @throws EFOpenError `Cannot open file "NAME". REASON`, the reason being that of errno.
[[noreturn]] void RaiseCannotOpen(const std::string& fileName);

/// @throws EFCreateError `Cannot create file "NAME". REASON`, the reason being that of errno.
[[noreturn]] void RaiseCannotCreate(const std::string& fileName);

}  // namespace qxTools
