#include <qxTools/platform/Files.h>
#include <qxTools/platform/windows/SystemFile.h>
#include <qxTools/platform/windows/WideText.h>

namespace qxTools {

bool FileExists(const std::string& fileName) {
  const std::wstring path = WidePath(fileName);
  return !path.empty() && (::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES || !IsMissing());
}

bool FolderExists(const std::string& fileName) {
  const DWORD attributes = ::GetFileAttributesW(WidePath(fileName).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool CreateFileIfMissing(const std::string& fileName) {
  const SystemFile file = OpenFile(WidePath(fileName), GENERIC_WRITE, CREATE_NEW);
  if (!file.IsOpen() && ::GetLastError() != ERROR_FILE_EXISTS) ThrowCannotCreate(fileName);
  return file.IsOpen();
}

std::string ReadWholeFile(const std::string& fileName, std::int64_t waitMilliseconds) {
  SystemFile file = OpenExisting(WidePath(fileName), GENERIC_READ, EndOfWait(waitMilliseconds));
  if (!file.IsOpen()) ThrowCannotOpen(fileName);
  return ReadToEnd(file, fileName);
}

}  // namespace qxTools
