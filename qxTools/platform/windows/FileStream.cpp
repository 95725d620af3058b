#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/windows/SystemFile.h>
#include <qxTools/platform/windows/WideText.h>

namespace qxTools {

namespace {

constexpr DWORD kAccess[] = {GENERIC_READ, GENERIC_WRITE, GENERIC_READ | GENERIC_WRITE,
                             GENERIC_READ | GENERIC_WRITE};

/// Empties a file that is created over an old one; a device has nothing to be cut off.
bool Prepare(const SystemFile& file, TFileMode mode) {
  return mode != fmCreate || ::SetEndOfFile(file.Get()) || !file.IsRegular();
}

}  // namespace

TFileStream::TFileStream(const std::string& fileName, TFileMode mode) {
  const DWORD disposition = mode == fmCreate ? OPEN_ALWAYS : OPEN_EXISTING;
  file_ = std::make_unique<SystemFile>(OpenFile(WidePath(fileName), kAccess[mode], disposition));
  if (file_->IsOpen() && Prepare(*file_, mode)) return;
  if (mode == fmCreate) ThrowCannotCreate(fileName);
  ThrowCannotOpen(fileName);
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
