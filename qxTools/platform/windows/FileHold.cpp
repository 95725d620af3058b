#include <qxTools/platform/Files.h>
#include <qxTools/platform/windows/FileHoldState.h>
#include <qxTools/platform/windows/WideText.h>

namespace qxTools {

namespace {

constexpr DWORD kAccess = GENERIC_READ | GENERIC_WRITE;

}  // namespace

std::wstring FinalPath(const SystemFile& file, const std::wstring& path) {
  std::wstring final(::GetFinalPathNameByHandleW(file.Get(), nullptr, 0, 0), L'\0');
  const DWORD length =
      ::GetFinalPathNameByHandleW(file.Get(), final.data(), static_cast<DWORD>(final.size()), 0);
  if (length == 0 || length >= final.size()) return path;
  final.resize(length);
  return final;
}

FileHold::FileHold(const std::string& fileName, IfMissing ifMissing, std::int64_t waitMilliseconds)
    : state_(std::make_unique<State>()) {
  State& state = *state_;
  state.name = fileName;
  state.path = WidePath(fileName);
  const ULONGLONG until = EndOfWait(waitMilliseconds);
  while (!state.file.IsOpen()) {
    state.file = OpenExisting(state.path, kAccess, until);
    if (state.file.IsOpen()) break;
    if (ifMissing == IfMissing::kMake && FolderExists(fileName)) ThrowCannotCreate(fileName);
    if (ifMissing == IfMissing::kFail || !IsMissing()) ThrowCannotOpen(fileName);
    state.file = OpenFile(state.path, kAccess, CREATE_NEW);
    state.isNew = state.file.IsOpen();
    if (!state.isNew && ::GetLastError() != ERROR_FILE_EXISTS) ThrowCannotCreate(fileName);
  }
  state.path = FinalPath(state.file, state.path);
  if (state.file.IsRegular()) return;
  ::SetLastError(ERROR_BAD_FILE_TYPE);
  ThrowCannotOpen(fileName);
}

FileHold::~FileHold() {
  if (state_->isNew) ::DeleteFileW(state_->path.c_str());
}

bool FileHold::IsNew() const { return state_->isNew; }

std::string FileHold::Read() const {
  state_->file.SetPosition(0);
  return ReadToEnd(state_->file, state_->name);
}

}  // namespace qxTools
