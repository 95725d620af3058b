#include "platform/Folders.h"

#include <windows.h>

#include <system_error>

#include "PathOf.h"
#include "database/Utf16.h"

namespace qxtool {

namespace {

// The system refuses longer paths unless they have the prefix.
constexpr std::size_t kLongestPlain = MAX_PATH - 12;

[[noreturn]] void ThrowLastError() {
  throw std::system_error(static_cast<int>(::GetLastError()), std::system_category());
}

std::string NameOf(const WIN32_FIND_DATAW& found) {
  return database::ToUtf8(reinterpret_cast<const char16_t*>(found.cFileName));
}

/// A file's attributes; a folder that is a link counts as neither folder nor file.
FolderEntry EntryOf(const WIN32_FIND_DATAW& found) {
  const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  return {NameOf(found), isFolder && !isLink, !isFolder};
}

}  // namespace

// The compiler's own reader of folders cuts long paths, and reads another folder then.
std::vector<FolderEntry> EntriesOf(const std::string& folder) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW((PathToOpen(folder) / L"*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) ThrowLastError();
  std::vector<FolderEntry> entries;
  do {
    FolderEntry entry = EntryOf(found);
    if (entry.name != "." && entry.name != "..") entries.push_back(std::move(entry));
  } while (::FindNextFileW(search, &found));
  const DWORD error = ::GetLastError();
  ::FindClose(search);
  ::SetLastError(error);
  if (error != ERROR_NO_MORE_FILES) ThrowLastError();
  return entries;
}

std::filesystem::path PathToOpen(const std::string& fileName) {
  const std::filesystem::path path = PathOf(fileName);
  const std::wstring full = std::filesystem::absolute(path).lexically_normal().make_preferred().wstring();
  if (full.size() < kLongestPlain || full.starts_with(L"\\\\?\\")) return path;
  return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

}  // namespace qxtool
