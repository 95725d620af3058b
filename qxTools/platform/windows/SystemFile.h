// An open file of the system, as a stream.
#pragma once

#include <qxTools/base/Streams.h>
#include <windows.h>

#include <string>

namespace qxTools {

/// An open file, or none. It is closed with its owner.
class SystemFile final : public TStream {
 public:
  explicit SystemFile(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  SystemFile(SystemFile&& other) noexcept;
  SystemFile& operator=(SystemFile&& other) noexcept;
  ~SystemFile() override;

  HANDLE Get() const { return handle_; }
  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

  /// @throws EReadError "Stream read error".
  std::size_t Read(void* buffer, std::size_t count) override;
  /// @throws EWriteError "Stream write error" if the system does not take all bytes.
  std::size_t Write(const void* buffer, std::size_t count) override;
  /// A pipe has no position and counts as being at its start.
  std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) override;
  std::int64_t GetSize() const override;
  void SetSize(std::int64_t size) override;

  /// Flushes the bytes to the disk. @throws EWriteError "Stream write error".
  void Flush();
  /// Whether it is a file on a disk, and no pipe or device.
  bool IsRegular() const;

 private:
  std::int64_t MoveTo(std::int64_t offset, DWORD origin);

  HANDLE handle_;
};

/// Opens a file by its wide path; GetLastError says why it failed. One that is read may be read by others
/// meanwhile, one that is written may not be opened by anybody else. Both may be renamed over.
SystemFile OpenFile(const std::wstring& path, DWORD access, DWORD disposition);

/// The value of GetTickCount64 in that many milliseconds.
ULONGLONG EndOfWait(std::int64_t milliseconds);

/// Opens a file that exists. While another program has it open, tries again until GetTickCount64 is `until`.
SystemFile OpenExisting(const std::wstring& path, DWORD access, ULONGLONG until);

/// Reads from the position to the end. `fileName` is for messages.
/// @throws EReadError, or EFOpenError for what is larger than a string can be.
std::string ReadToEnd(SystemFile& file, const std::string& fileName);

/// Whether GetLastError says that there is no file of that name.
bool IsMissing();

/// @throws EFOpenError `Cannot open file "NAME". REASON`, the reason being that of GetLastError.
[[noreturn]] void ThrowCannotOpen(const std::string& fileName);

/// @throws EFCreateError `Cannot create file "NAME". REASON`, the reason being that of GetLastError.
[[noreturn]] void ThrowCannotCreate(const std::string& fileName);

}  // namespace qxTools
