#include <qxTools/base/CodePage950.h>
#include <qxTools/platform/FileNames.h>
#include <qxTools/platform/windows/WideText.h>
#include <windows.h>

#include <iterator>
#include <utility>

namespace qxTools {

namespace {

TFileNameEncoding encoding = feCodePage950;

// The system refuses longer paths unless they have the prefix; a folder's must leave room for a name of 8.3.
constexpr std::size_t kLongestPlain = MAX_PATH - 12;

std::u16string_view Units(std::wstring_view text) {
  return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}

std::wstring FromUnits(std::u16string_view units) {
  return {reinterpret_cast<const wchar_t*>(units.data()), units.size()};
}

std::wstring FromUtf8(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int length = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

/// Wide text in the encoding of file names.
std::string InFileNames(std::wstring_view text) {
  const std::string bytes = WideToBytes(Units(text));
  return encoding == feUtf8 ? BytesToUtf8(bytes) : bytes;
}

std::wstring Absolute(const std::wstring& path) {
  std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

}  // namespace

TFileNameEncoding SetFileNameEncoding(TFileNameEncoding wanted) { return std::exchange(encoding, wanted); }

std::string FileNameWithExtension(std::string_view fileName, std::string_view extension) {
  // Marks are looked for in the wide form: the second byte of a double-byte character may be a "\\".
  const std::wstring name = encoding == feUtf8 ? FromUtf8(fileName) : ToWide(fileName);
  const std::size_t mark = name.find_last_of(L"./\\:");
  const bool isExtended = mark != std::wstring::npos && name[mark] == L'.';
  const std::size_t kept = isExtended ? fileName.rfind('.') : fileName.size();
  return std::string(fileName.substr(0, kept)).append(extension);
}

std::wstring ToWide(std::string_view bytes) { return FromUnits(BytesToWide(bytes)); }

std::string FromWide(std::wstring_view text) { return WideToBytes(Units(text)); }

std::wstring WidePath(const std::string& fileName) {
  if (fileName.find('\0') != std::string::npos) return L"";
  const std::wstring path = encoding == feUtf8 ? FromUtf8(fileName) : ToWide(fileName);
  if (path.starts_with(L"\\\\?\\")) return path;
  const std::wstring full = Absolute(path);
  if (full.size() < kLongestPlain) return path;
  return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

std::string ReasonOf(unsigned long error) {
  wchar_t text[512];
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
      error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  std::string reason = InFileNames({text, length});
  reason.erase(reason.find_last_not_of(" .") + 1);
  return reason.empty() ? "Error " + std::to_string(error) : reason;
}

}  // namespace qxTools
