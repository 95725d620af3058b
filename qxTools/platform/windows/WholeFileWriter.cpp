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

bool IsReadOnly(const SystemFile& file) {
  FILE_BASIC_INFO info{};
  return ::GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &info, sizeof info) &&
         (info.FileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
}

/// Gives the new file the old one's attributes (hidden, archive) and birth, where there is an old one.
void TakeOverAttributes(const SystemFile& to, const SystemFile& from) {
  FILE_BASIC_INFO info{};
  if (!::GetFileInformationByHandleEx(from.Get(), FileBasicInfo, &info, sizeof info)) return;
  info.LastAccessTime = info.LastWriteTime = info.ChangeTime = {};  // these stay
  ::SetFileInformationByHandle(to.Get(), FileBasicInfo, &info, sizeof info);
}

/// Gives an open file another name, in one step; it takes the place of the file that has it.
bool Rename(const SystemFile& file, const std::wstring& path, FILE_INFO_BY_HANDLE_CLASS how, DWORD flags) {
  std::vector<std::uint64_t> room((sizeof(FILE_RENAME_INFO) + path.size() * sizeof(wchar_t)) / 8 + 1);
  auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
  info->Flags = flags;
  info->FileNameLength = static_cast<DWORD>(path.size() * sizeof(wchar_t));
  path.copy(info->FileName, path.size());
  return ::SetFileInformationByHandle(file.Get(), how, info, static_cast<DWORD>(room.size() * 8)) != 0;
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
  bool PutInPlace();
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
  if (old->file.IsOpen() && IsReadOnly(old->file)) {  // some users may write to such a file all the same
    ::SetLastError(ERROR_ACCESS_DENIED);
    ThrowCannotCreate(old->name);
  }
  std::vector<unsigned char> list =
      old->file.IsOpen() ? AccessListOf(old->file) : std::vector<unsigned char>();
  SECURITY_ATTRIBUTES security{sizeof security, list.empty() ? nullptr : list.data(), FALSE};
  temporary = TemporaryName(old->path);
  file = SystemFile(::CreateFileW(temporary.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_DELETE,
                                  &security, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
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

/// By one call of the system, so that a kill leaves the old file or the new one. Where the file system
/// replaces no open file, the old one is closed just before.
bool WholeFileWriter::Target::PutInPlace() {
  constexpr auto kRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);  // not in every header
  constexpr DWORD kAlsoOpenOnes = FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS;
  if (Rename(file, old->path, kRenameInfoEx, kAlsoOpenOnes)) return true;
  const bool wasOpen = old->file.IsOpen();
  old->file = SystemFile();
  if (Rename(file, old->path, FileRenameInfo, FILE_RENAME_FLAG_REPLACE_IF_EXISTS)) return true;
  const DWORD error = ::GetLastError();
  if (wasOpen) old->file = OpenFile(old->path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
  ::SetLastError(error);
  return false;
}

void WholeFileWriter::Target::Replace() {
  file.Flush();
  if (!SetDeleted(file, false)) ThrowCannotWrite();
  TakeOverAttributes(file, old->file);
  if (!PutInPlace()) {
    const DWORD error = ::GetLastError();
    SetDeleted(file, true);
    ::SetLastError(error);
    ThrowCannotCreate(old->name);
  }
  ::FlushFileBuffers(file.Get());  // of the name
  old->file = std::move(file);     // a hold goes on with the new file
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
