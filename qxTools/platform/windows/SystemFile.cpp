#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/windows/SystemFile.h>
#include <qxTools/platform/windows/WideText.h>

#include <algorithm>
#include <utility>

namespace qxTools {

namespace {

// The system counts a piece in 32 bits.
DWORD PieceOf(std::size_t count) { return static_cast<DWORD>(std::min<std::size_t>(count, 1U << 30)); }

std::string FileErrorText(const char* what, const std::string& fileName) {
  const std::string reason = ReasonOf(::GetLastError());
  return std::string("Cannot ") + what + " file \"" + fileName + "\". " + reason;
}

}  // namespace

SystemFile::SystemFile(SystemFile&& other) noexcept
    : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}

SystemFile& SystemFile::operator=(SystemFile&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

SystemFile::~SystemFile() {
  if (IsOpen()) ::CloseHandle(handle_);
}

std::size_t SystemFile::Read(void* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    DWORD got = 0;
    const bool isRead =
        ::ReadFile(handle_, static_cast<char*>(buffer) + done, PieceOf(count - done), &got, nullptr);
    if (!isRead && ::GetLastError() != ERROR_BROKEN_PIPE) throw EReadError("Stream read error");
    if (got == 0) break;
    done += got;
  }
  return done;
}

std::size_t SystemFile::Write(const void* buffer, std::size_t count) {
  for (std::size_t done = 0; done < count;) {
    DWORD written = 0;
    const char* const next = static_cast<const char*>(buffer) + done;
    if (!::WriteFile(handle_, next, PieceOf(count - done), &written, nullptr) || written == 0)
      throw EWriteError("Stream write error");
    done += written;
  }
  return count;
}

std::int64_t SystemFile::MoveTo(std::int64_t offset, DWORD origin) {
  LARGE_INTEGER distance;
  LARGE_INTEGER place;
  distance.QuadPart = offset;
  return ::SetFilePointerEx(handle_, distance, &place, origin) ? place.QuadPart : -1;
}

std::int64_t SystemFile::Seek(std::int64_t offset, TSeekOrigin origin) {
  const std::int64_t current = std::max<std::int64_t>(MoveTo(0, FILE_CURRENT), 0);
  if (origin == soCurrent && offset == 0) return current;
  const std::int64_t base = origin == soBeginning ? 0 : origin == soCurrent ? current : GetSize();
  const std::int64_t moved = MoveTo(Place(base, offset), FILE_BEGIN);
  return moved >= 0 ? moved : current;
}

std::int64_t SystemFile::GetSize() const {
  LARGE_INTEGER size;
  return ::GetFileSizeEx(handle_, &size) ? size.QuadPart : 0;
}

void SystemFile::SetSize(std::int64_t size) {
  const std::int64_t current = GetPosition();
  const bool isSet = size >= 0 && MoveTo(size, FILE_BEGIN) == size && ::SetEndOfFile(handle_);
  MoveTo(isSet ? std::min(current, size) : current, FILE_BEGIN);
  if (!isSet) throw EWriteError("Stream write error");
}

void SystemFile::Flush() {
  if (IsRegular() && !::FlushFileBuffers(handle_)) throw EWriteError("Stream write error");
}

bool SystemFile::IsRegular() const { return ::GetFileType(handle_) == FILE_TYPE_DISK; }

SystemFile OpenFile(const std::wstring& path, DWORD access, DWORD disposition) {
  if (path.empty()) {
    ::SetLastError(ERROR_INVALID_NAME);
    return SystemFile();
  }
  const DWORD share = access == GENERIC_READ ? FILE_SHARE_READ | FILE_SHARE_DELETE : FILE_SHARE_DELETE;
  return SystemFile(
      ::CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

ULONGLONG EndOfWait(std::int64_t milliseconds) {
  return ::GetTickCount64() + static_cast<ULONGLONG>(std::max<std::int64_t>(milliseconds, 0));
}

SystemFile OpenExisting(const std::wstring& path, DWORD access, ULONGLONG until) {
  constexpr DWORD kPause = 2;
  for (;;) {
    SystemFile file = OpenFile(path, access, OPEN_EXISTING);
    if (file.IsOpen() || ::GetLastError() != ERROR_SHARING_VIOLATION || ::GetTickCount64() >= until)
      return file;
    ::Sleep(kPause);
  }
}

std::string ReadToEnd(SystemFile& file, const std::string& fileName) {
  constexpr std::size_t kPiece = 65536;
  std::string bytes;
  // One byte more than the file has, so that its end is met without another piece.
  const std::int64_t size = file.IsRegular() ? file.GetSize() - file.GetPosition() : kPiece;
  if (static_cast<std::uint64_t>(size) >= bytes.max_size()) {
    ::SetLastError(ERROR_FILE_TOO_LARGE);
    ThrowCannotOpen(fileName);
  }
  std::size_t room = static_cast<std::size_t>(std::max<std::int64_t>(size, 0)) + 1;
  for (std::size_t end = 0;; room *= 2) {
    bytes.resize(room);
    end += file.Read(&bytes[end], room - end);
    if (end == room) continue;
    bytes.resize(end);
    return bytes;
  }
}

bool IsMissing() {
  const DWORD error = ::GetLastError();
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

void ThrowCannotOpen(const std::string& fileName) { throw EFOpenError(FileErrorText("open", fileName)); }

void ThrowCannotCreate(const std::string& fileName) {
  throw EFCreateError(FileErrorText("create", fileName));
}

}  // namespace qxTools
