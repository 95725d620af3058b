#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Registry.h>
#include <qxTools/platform/windows/WideText.h>
#include <windows.h>

#include <algorithm>
#include <utility>

namespace qxTools {

namespace {

constexpr wchar_t kUserClasses[] = L"Software\\Classes";

class Key {
 public:
  Key() = default;
  Key(Key&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
  Key& operator=(Key&&) = delete;
  ~Key() {
    if (key_ != nullptr) ::RegCloseKey(key_);
  }
  HKEY* Place() { return &key_; }
  HKEY Get() const { return key_; }
  bool IsOpen() const { return key_ != nullptr; }

 private:
  HKEY key_ = nullptr;
};

/// The levels of a key without the empty ones, for the system; "" where there is none, or one holds a NUL.
std::wstring PathOf(std::string_view key) {
  std::wstring path;
  for (const wchar_t c : ToWide(key.find('\0') == std::string_view::npos ? key : ""))
    if (c != L'\\' || (!path.empty() && path.back() != L'\\')) path += c;
  if (path.ends_with(L'\\')) path.pop_back();
  return path;
}

Key Open(HKEY root, const std::wstring& path, REGSAM access) {
  Key key;
  ::RegOpenKeyExW(root, path.c_str(), 0, access, key.Place());
  return key;
}

Key Create(HKEY root, const std::wstring& path) {
  Key key;
  ::RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, key.Place(), nullptr);
  return key;
}

std::wstring UserPath(const std::wstring& path) { return std::wstring(kUserClasses) + L"\\" + path; }

std::optional<std::string> ReadValue(const Key& key) {
  DWORD type = 0;
  DWORD size = 0;
  if (!key.IsOpen() ||
      ::RegQueryValueExW(key.Get(), nullptr, nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
    return std::nullopt;
  std::wstring text(size / sizeof(wchar_t), L'\0');
  const LSTATUS status =
      ::RegQueryValueExW(key.Get(), nullptr, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
  if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ)) return std::nullopt;
  if (text.ends_with(L'\0')) text.pop_back();
  return FromWide(text);
}

bool IsEmpty(const Key& key) {
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS status = ::RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                            &values, nullptr, nullptr, nullptr, nullptr);
  return status == ERROR_SUCCESS && keys == 0 && values == 0;
}

/// Deletes the value, then the key and those above it down to `fixed` characters of the path.
void DeleteValue(HKEY root, std::wstring path, std::size_t fixed) {
  ::RegDeleteValueW(Open(root, path, KEY_SET_VALUE).Get(), nullptr);
  while (path.size() > fixed && IsEmpty(Open(root, path, KEY_QUERY_VALUE)) &&
         ::RegDeleteKeyW(root, path.c_str()) == ERROR_SUCCESS) {
    const std::size_t mark = path.rfind(L'\\');
    path.resize(mark == std::wstring::npos ? 0 : mark);
  }
}

void AppendKeys(const Key& parent, std::vector<std::string>& keys) {
  wchar_t name[256];
  for (DWORD i = 0;; ++i) {
    DWORD length = static_cast<DWORD>(std::size(name));
    if (::RegEnumKeyExW(parent.Get(), i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
      return;
    keys.push_back(FromWide({name, length}));
  }
}

}  // namespace

bool WriteClassesValue(std::string_view key, std::string_view value) {
  const std::wstring path = PathOf(key);
  if (path.empty()) return false;
  const std::wstring text = ToWide(value);
  const auto* const bytes = reinterpret_cast<const BYTE*>(text.c_str());
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  bool isThere = false;
  for (const bool isUsers : {false, true}) {
    const Key made = isUsers ? Create(HKEY_CURRENT_USER, UserPath(path)) : Create(HKEY_CLASSES_ROOT, path);
    if (!made.IsOpen()) continue;
    if (::RegSetValueExW(made.Get(), nullptr, 0, REG_SZ, bytes, size) == ERROR_SUCCESS) return true;
    isThere = true;
  }
  if (isThere) throw EWriteError("Stream write error");
  return false;
}

std::optional<std::string> ReadClassesValue(std::string_view key) {
  const std::wstring path = PathOf(key);
  if (path.empty()) return std::nullopt;
  const auto users = ReadValue(Open(HKEY_CURRENT_USER, UserPath(path), KEY_QUERY_VALUE));
  return users ? users : ReadValue(Open(HKEY_CLASSES_ROOT, path, KEY_QUERY_VALUE));
}

void DeleteClassesValue(std::string_view key) {
  const std::wstring path = PathOf(key);
  if (path.empty()) return;
  DeleteValue(HKEY_CURRENT_USER, UserPath(path), std::size(kUserClasses) - 1);
  DeleteValue(HKEY_CLASSES_ROOT, path, 0);
}

std::vector<std::string> ReadClassesKeys() {
  std::vector<std::string> keys;
  AppendKeys(Open(HKEY_CURRENT_USER, kUserClasses, KEY_ENUMERATE_SUB_KEYS), keys);
  AppendKeys(Open(HKEY_CLASSES_ROOT, L"", KEY_ENUMERATE_SUB_KEYS), keys);
  std::ranges::sort(keys);
  keys.erase(std::ranges::unique(keys).begin(), keys.end());
  return keys;
}

}  // namespace qxTools
