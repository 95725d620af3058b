#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/windows/FileHoldState.h>
#include <qxTools/platform/windows/WideText.h>
// After windows.h, which it needs.
#include <ntsecapi.h>

#include <array>
#include <vector>

namespace qxTools {

namespace {

[[noreturn]] void ThrowCannotWrite() { throw EWriteError("Stream write error"); }

/// A name beside `path` that nobody can foresee.
std::wstring TemporaryName(const std::wstring& path) {
  std::array<unsigned char, 8> bytes{};
  ::RtlGenRandom(bytes.data(), static_cast<ULONG>(bytes.size()));
  std::wstring name = path + L".qx-";
  for (const unsigned char byte : bytes)
    name += {L"0123456789abcdef"[byte >> 4], L"0123456789abcdef"[byte & 15]};
  return name;
}

/// Marks an open file to be deleted when it is closed, also by a kill; or takes the mark back.
bool SetDeleted(const SystemFile& file, bool isDeleted) {
  FILE_DISPOSITION_INFO info{};
  info.DeleteFile = isDeleted ? TRUE : FALSE;
  return ::SetFileInformationByHandle(file.Get(), FileDispositionInfo, &info, sizeof info) != 0;
}

/// Who may do what with an open file, as CreateFile takes it; empty where the file system knows nothing of
/// it.
std::vector<unsigned char> AccessListOf(const SystemFile& file) {
  DWORD size = 0;
  ::GetKernelObjectSecurity(file.Get(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<unsigned char> list(size);
  if (!::GetKernelObjectSecurity(file.Get(), DACL_SECURITY_INFORMATION, list.data(), size, &size)) return {};
  return list;
}

/// Gives the new file the old one's attributes (hidden, archive), where there is an old one.
void TakeOverAttributes(const SystemFile& to, const SystemFile& from) {
  FILE_BASIC_INFO info{};
  if (!::GetFileInformationByHandleEx(from.Get(), FileBasicInfo, &info, sizeof info)) return;
  info.CreationTime = info.LastAccessTime = info.LastWriteTime = info.ChangeTime = {};  // these stay
  ::SetFileInformationByHandle(to.Get(), FileBasicInfo, &info, sizeof info);
}

void CopyAll(SystemFile& from, SystemFile& to) {
  std::array<char, 65536> piece;
  from.SetPosition(0);
  to.SetPosition(0);
  while (const std::size_t got = from.Read(piece.data(), piece.size())) to.Write(piece.data(), got);
}

}  // namespace

struct WholeFileWriter::Target {
  FileHold::State own;  // the old file, which is not open if there is none
  FileHold::State* old = &own;
  std::wstring temporary;  // the temporary file's name
  SystemFile file;         // the temporary file, deleted when it is closed until it is complete

  void OpenOld(const std::string& fileName);
  void OpenTemporary();
  bool CanBeReplaced() const;
  void Replace();
  void WriteInPlace();
};

void WholeFileWriter::Target::OpenOld(const std::string& fileName) {
  own.name = fileName;
  own.path = WidePath(fileName);
  own.file = OpenFile(own.path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
  if (!own.file.IsOpen() && !IsMissing()) ThrowCannotCreate(fileName);
  if (own.file.IsOpen()) own.path = FinalPath(own.file, own.path);
}

void WholeFileWriter::Target::OpenTemporary() {
  std::vector<unsigned char> list =
      old->file.IsOpen() ? AccessListOf(old->file) : std::vector<unsigned char>();
  SECURITY_ATTRIBUTES security{sizeof security, list.empty() ? nullptr : list.data(), FALSE};
  temporary = TemporaryName(old->path);
  file = SystemFile(::CreateFileW(temporary.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, &security,
                                  CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) ThrowCannotCreate(old->name);
  SetDeleted(file, true);
}

/// A file with further names would lose them.
bool WholeFileWriter::Target::CanBeReplaced() const {
  if (!old->file.IsOpen()) return true;
  BY_HANDLE_FILE_INFORMATION info{};
  return old->file.IsRegular() && ::GetFileInformationByHandle(old->file.Get(), &info) &&
         info.nNumberOfLinks == 1;
}

void WholeFileWriter::Target::Replace() {
  file.Flush();
  if (!SetDeleted(file, false)) ThrowCannotWrite();
  TakeOverAttributes(file, old->file);
  file = SystemFile();
  // Replacing keeps the old file's attributes and access list.
  const bool isDone = old->file.IsOpen() ? ::ReplaceFileW(old->path.c_str(), temporary.c_str(), nullptr,
                                                          REPLACEFILE_WRITE_THROUGH, nullptr, nullptr)
                                         : ::MoveFileExW(temporary.c_str(), old->path.c_str(),
                                                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
  if (!isDone) {
    const DWORD error = ::GetLastError();
    ::DeleteFileW(temporary.c_str());
    ::SetLastError(error);
    ThrowCannotCreate(old->name);
  }
  // A hold goes on with the new file.
  if (old != &own) old->file = OpenFile(old->path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
}

void WholeFileWriter::Target::WriteInPlace() {
  const std::int64_t size = file.GetSize();
  // Room for all of it first; the end is cut off last.
  if (old->file.IsRegular() && size > old->file.GetSize()) old->file.SetSize(size);
  CopyAll(file, old->file);
  old->file.Flush();
  if (!old->file.IsRegular()) return;
  old->file.SetSize(size);
  old->file.Flush();
}

WholeFileWriter::WholeFileWriter(const std::string& fileName) : target_(std::make_unique<Target>()) {
  target_->OpenOld(fileName);
  target_->OpenTemporary();
}

WholeFileWriter::WholeFileWriter(FileHold& hold) : target_(std::make_unique<Target>()) {
  target_->old = hold.state_.get();
  target_->OpenTemporary();
}

WholeFileWriter::~WholeFileWriter() = default;

std::size_t WholeFileWriter::Read(void* buffer, std::size_t count) {
  if (target_ == nullptr) throw EReadError("Stream read error");
  return target_->file.Read(buffer, count);
}

std::size_t WholeFileWriter::Write(const void* buffer, std::size_t count) {
  if (target_ == nullptr) ThrowCannotWrite();
  return target_->file.Write(buffer, count);
}

std::int64_t WholeFileWriter::Seek(std::int64_t offset, TSeekOrigin origin) {
  return target_ == nullptr ? 0 : target_->file.Seek(offset, origin);
}

std::int64_t WholeFileWriter::GetSize() const { return target_ == nullptr ? 0 : target_->file.GetSize(); }

void WholeFileWriter::SetSize(std::int64_t size) {
  if (target_ == nullptr) ThrowCannotWrite();
  target_->file.SetSize(size);
}

void WholeFileWriter::Commit() {
  if (target_ == nullptr) ThrowCannotWrite();
  const std::unique_ptr<Target> target = std::move(target_);
  if (target->CanBeReplaced())
    target->Replace();
  else
    target->WriteInPlace();
  target->old->isNew = false;
}

}  // namespace qxTools
