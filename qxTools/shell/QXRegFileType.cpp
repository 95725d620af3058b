#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Registry.h>
#include <qxTools/shell/QXRegFileType.h>

#include <algorithm>
#include <optional>

namespace qxTools::QXRegFileType {

namespace {

constexpr std::string_view kOpenCommand = "\\Shell\\Open\\Command";
constexpr std::string_view kDefaultIcon = "\\DefaultIcon";
constexpr std::string_view kArgument = " \"%1\"";

std::string KeyOf(std::string_view name, std::string_view below = "") {
  std::string key = "\\";
  key.append(name).append(below);
  return key;
}

std::string Read(std::string_view name, std::string_view below = "") {
  return ReadClassesValue(KeyOf(name, below)).value_or("");
}

std::string WithoutQuotes(std::string_view path) {
  const bool isQuoted = path.size() > 1 && path.starts_with('"') && path.ends_with('"');
  return std::string(isQuoted ? path.substr(1, path.size() - 2) : path);
}

std::string ProgramOf(std::string_view command) {
  if (command.ends_with(kArgument)) command.remove_suffix(kArgument.size());
  return WithoutQuotes(command);
}

std::string IconOf(std::string_view value) { return WithoutQuotes(value.substr(0, value.rfind(','))); }

std::vector<std::string> ExtensionsOf(std::string_view typeName) {
  std::vector<std::string> extensions = GetFileTypeExtensions();
  std::erase_if(extensions, [&](const auto& ext) { return !SameText(Read(ext), typeName); });
  return extensions;
}

/// Publishes what is stored of a type. If that cannot be read, the desktop keeps what it has.
void Publish(std::string_view typeName) try {
  PublishAssociation(GetFileType(typeName));
} catch (const EStreamError&) {
}

/// The extension as its key has it, whatever the case; as it is when there is none.
std::string StoredName(std::string_view ext) {
  const std::vector<std::string> keys = ReadClassesKeys();
  const auto key = std::ranges::find_if(keys, [&](const auto& other) { return SameText(other, ext); });
  return key != keys.end() ? *key : std::string(ext);
}

}  // namespace

std::array<TFileTypeValue, 5> GetFileTypeValues(std::string_view ext, std::string_view typeName,
                                                std::string_view appPath, std::string_view description,
                                                Integer iconIndex) {
  const std::string path(appPath);
  const std::string command = path + std::string(kArgument);
  return {{{KeyOf(ext), AnsiString(typeName)},
           {KeyOf(ext, kOpenCommand), command},
           {KeyOf(typeName), AnsiString(description)},
           {KeyOf(typeName, kDefaultIcon), path + "," + std::to_string(iconIndex)},
           {KeyOf(typeName, kOpenCommand), command}}};
}

void RegFileType(std::string_view ext, std::string_view typeName, std::string_view appPath,
                 std::string_view description, Integer iconIndex) {
  // An extension that moves leaves its old type behind, which may be without any then.
  const std::optional<std::string> oldType = ReadClassesValue(KeyOf(ext));
  bool isWhole = true;
  for (const TFileTypeValue& value : GetFileTypeValues(ext, typeName, appPath, description, iconIndex))
    if (!WriteClassesValue(value.Key, value.Value)) isWhole = false;
  // A type that is called like the extension has its description where the extension has the type.
  const std::string newType = ReadClassesValue(KeyOf(ext)).value_or(std::string(typeName));
  if (isWhole) Publish(newType);
  if (oldType && !SameText(*oldType, newType)) Publish(*oldType);
}

bool UnregFileType(std::string_view ext) {
  const std::optional<std::string> type = ReadClassesValue(KeyOf(ext));
  if (!type) return false;
  std::vector<std::string> extensions = ExtensionsOf(*type);
  std::erase_if(extensions, [&](const auto& other) { return SameText(other, ext); });
  DeleteClassesValue(KeyOf(ext));
  if (ReadClassesValue(KeyOf(ext))) return false;
  DeleteClassesValue(KeyOf(ext, kOpenCommand));
  if (extensions.empty())
    for (const std::string_view below : {std::string_view(), kDefaultIcon, kOpenCommand})
      DeleteClassesValue(KeyOf(*type, below));
  Publish(*type);
  return true;
}

std::vector<AnsiString> GetFileTypeExtensions() {
  std::vector<AnsiString> extensions = ReadClassesKeys();
  std::erase_if(extensions,
                [](const auto& key) { return !key.starts_with('.') || !ReadClassesValue(KeyOf(key)); });
  return extensions;
}

FileAssociation GetFileType(std::string_view typeName) {
  const std::vector<std::string> extensions = ExtensionsOf(typeName);
  const std::string description = Read(typeName);
  std::string command = Read(typeName, kOpenCommand);
  if (command.empty() && !extensions.empty()) command = Read(extensions.front(), kOpenCommand);
  return {std::string(typeName), extensions, description.empty() ? std::string(typeName) : description,
          ProgramOf(command), IconOf(Read(typeName, kDefaultIcon))};
}

FileAssociation PlanFileType(std::string_view ext, std::string_view typeName, std::string_view appPath,
                             std::string_view description, Integer iconIndex) {
  const auto values = GetFileTypeValues(ext, typeName, appPath, description, iconIndex);
  const std::string name = StoredName(ext);
  std::vector<std::string> extensions = ExtensionsOf(typeName);
  if (name.starts_with('.') && std::ranges::find(extensions, name) == extensions.end())
    extensions.insert(std::ranges::upper_bound(extensions, name), name);
  return {std::string(typeName), extensions, std::string(description.empty() ? typeName : description),
          ProgramOf(values[4].Value), IconOf(values[3].Value)};
}

}  // namespace qxTools::QXRegFileType
