#include <fcntl.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/linux/LockedFile.h>
#include <unistd.h>

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
  if (IsFolder(fd)) return false;
  if (mode != fmCreate) return true;
  return ::ftruncate(fd, 0) == 0 || errno == EINVAL;  // a device or a pipe has nothing to be cut off
}

}  // namespace

TFileStream::TFileStream(const std::string& fileName, TFileMode mode)
    : file_(std::make_unique<SystemFile>(OpenLocked(fileName, kFlags[mode]))) {
  if (file_->IsOpen() && Prepare(file_->Get(), mode)) return;
  if (mode == fmCreate) RaiseCannotCreate(fileName);
  RaiseCannotOpen(fileName);
}

TFileStream::~TFileStream() = default;

std::size_t TFileStream::Read(void* buffer, std::size_t count) { return file_->Read(buffer, count); }

std::size_t TFileStream::Write(const void* buffer, std::size_t count) { return file_->Write(buffer, count); }

std::int64_t TFileStream::Seek(std::int64_t offset, TSeekOrigin origin) {
  return file_->Seek(offset, origin);
}

std::int64_t TFileStream::GetSize() const { return file_->GetSize(); }

void TFileStream::SetSize(std::int64_t size) { file_->SetSize(size); }

}  // namespace qxTools
