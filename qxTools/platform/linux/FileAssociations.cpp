#include <fcntl.h>
#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/FileAssociations.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/linux/FreedesktopText.h>
#include <qxTools/platform/linux/MimeTypes.h>
#include <qxTools/platform/linux/UserFolders.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <iterator>

namespace qxTools {

namespace {

namespace fs = std::filesystem;

constexpr char kMimeTypePrefix[] = "application/x-qxtools-";
constexpr std::size_t kLongestId = 100;
constexpr char kOnlyHeader[] = "[Default Applications]\n";

// The sizes of pictures that the shared icon theme has folders for.
constexpr auto kIconSizes = std::to_array<unsigned>({16, 22, 24, 32, 36, 48, 64, 72, 96, 128, 192, 256, 512});

/// 64-bit FNV-1a.
std::uint64_t NumberOf(std::string_view text) {
  std::uint64_t number = 14695981039346656037u;
  for (const char c : text) number = (number ^ static_cast<unsigned char>(c)) * 1099511628211u;
  return number;
}

/// The name of a type as part of MIME types and file names; no two types share one.
std::string IdOf(std::string_view typeName) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyz0123456789.-";
  constexpr char kDigits[] = "0123456789abcdef";
  const std::string name = LowerCase(typeName);
  std::string id;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != std::string_view::npos)
      id += c;
    else
      id += {'_', kDigits[byte >> 4], kDigits[byte & 15]};
  }
  return id.size() <= kLongestId ? id : "__" + std::to_string(NumberOf(name));
}

// --- The icon ----------------------------------------------------------------

/// The bytes of the first picture that is beside `program`, or is it; "" if there is none.
/// @throws EStreamError if it cannot be read.
std::string PictureBeside(const fs::path& program) {
  if (!program.is_absolute()) return "";
  for (const char* const extension : {".svg", ".png"})
    for (const std::string& picture :
         {fs::path(program).replace_extension(extension).string(), program.string() + extension})
      if (FileExists(picture) && !FolderExists(picture)) return ReadWholeFile(picture);
  return "";
}

/// The folder of the icon theme that a picture belongs in; a PNG file has its width at byte 16.
std::string ThemeFolderOf(std::string_view picture) {
  if (!picture.starts_with("\x89PNG") || picture.size() < 20) return "scalable";
  unsigned width = 0;
  for (const char c : picture.substr(16, 4)) width = width << 8 | static_cast<unsigned char>(c);
  const auto larger = std::ranges::upper_bound(kIconSizes, width);
  const std::string size = std::to_string(larger == kIconSizes.begin() ? *larger : *(larger - 1));
  return size + 'x' + size;
}

/// The files that the icon can be, at most one of them with the picture.
std::vector<PlannedChange> IconFiles(const std::string& name, const std::string& picture) {
  const std::string theme = UserDataFolder() + "/icons/hicolor/";
  const std::string chosen = theme + ThemeFolderOf(picture) + '/';
  std::vector<PlannedChange> files = {{theme + "scalable/mimetypes/" + name + ".svg", std::nullopt}};
  for (const unsigned size : kIconSizes) {
    std::string path = theme + std::to_string(size) + 'x' + std::to_string(size);
    path.append("/mimetypes/").append(name).append(".png");
    files.push_back({path, std::nullopt});
  }
  for (PlannedChange& file : files)
    if (!picture.empty() && file.place.starts_with(chosen)) file.content = picture;
  return files;
}

// --- Texts -------------------------------------------------------------------

bool IsPublishable(const std::string& extension) {
  const bool isOdd = extension.find_first_of("/:") != std::string::npos || OneLine(extension) != extension;
  return extension.size() > 1 && extension.starts_with('.') && !isOdd;
}

std::string PackageOf(const FileAssociation& type, const std::string& mimeType) {
  std::vector<std::string> extensions;
  for (const std::string& extension : type.extensions)
    if (IsPublishable(extension)) extensions.push_back(BytesToUtf8(extension));
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  text += "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n";
  text += "  <mime-type type=\"" + mimeType + "\">\n";
  text += "    <comment>" + XmlText(OneLine(BytesToUtf8(type.description))) + "</comment>\n";
  // A desktop that looks into a file takes what it finds there, unless the type is a kind of that.
  for (const std::string& parent : MimeTypesOf(extensions, kMimeTypePrefix))
    text += "    <sub-class-of type=\"" + XmlText(parent) + "\"/>\n";
  for (const std::string& extension : extensions)
    // Above 50, what other types of the same extension have.
    text += "    <glob pattern=\"" + XmlText(GlobOf(extension)) + "\" weight=\"80\"/>\n";
  return text + "  </mime-type>\n</mime-info>\n";
}

std::string EntryOf(const FileAssociation& type, const std::string& mimeType, const std::string& iconName) {
  const std::string program = DesktopPath(type.program);
  const std::string name = OneLine(program.substr(program.rfind('/') + 1));
  return "[Desktop Entry]\nType=Application\nName=" + KeyFileText(name) + "\nExec=" + ExecLine(program) +
         (iconName.empty() ? "" : "\nIcon=" + iconName) + "\nMimeType=" + mimeType + ";\nNoDisplay=true\n";
}

// --- Files -------------------------------------------------------------------

/// The bytes of a file, or none if it does not exist. @throws EStreamError if it cannot be read.
std::optional<std::string> BytesIfThere(const std::string& path) {
  return FileExists(path) ? std::optional(ReadWholeFile(path)) : std::nullopt;
}

/// The list of default applications, if it changes. @throws EStreamError if it cannot be read.
std::vector<PlannedChange> DefaultsFiles(const std::string& mimeType, const std::string& entry) {
  const std::string folder = UserConfigFolder();
  if (folder.empty()) return {};
  const std::string path = folder + "/mimeapps.list";
  const std::string old = BytesIfThere(path).value_or("");
  const std::string list = WithDefault(old, mimeType, entry);
  if (list == old) return {};
  if (list == kOnlyHeader) return {{path, std::nullopt}};
  return {{path, list}};
}

/// @throws an exception if the file cannot be written or removed; it is as it was then.
void Put(const PlannedChange& file) {
  if (!file.content) {
    fs::remove(file.place);
    return;
  }
  fs::create_directories(fs::path(file.place).parent_path());
  SaveWholeFile(file.place, *file.content);
}

void TakeBack(const std::vector<PlannedChange>& old) {
  for (const PlannedChange& file : old) try {
      Put(file);
    } catch (const std::exception&) {
      // The rest is taken back all the same.
    }
}

/// Makes all the changes. @return false if one cannot be made; those before it are taken back then.
bool MakeChanges(const std::vector<PlannedChange>& files) {
  std::vector<PlannedChange> old;
  try {
    for (const PlannedChange& file : files) {
      PlannedChange before{file.place, BytesIfThere(file.place)};
      if (before.content == file.content) continue;
      old.push_back(std::move(before));
      Put(file);
    }
    return true;
  } catch (const std::exception&) {
    TakeBack(old);
    return false;
  }
}

/// Runs a program of $PATH, silently, and waits for its end.
void RunQuietly(const char* program, const std::string& folder) {
  std::error_code ignored;
  if (!fs::is_directory(folder, ignored)) return;
  posix_spawn_file_actions_t actions;
  if (::posix_spawn_file_actions_init(&actions) != 0) return;
  for (const int fd : {STDOUT_FILENO, STDERR_FILENO})
    ::posix_spawn_file_actions_addopen(&actions, fd, "/dev/null", O_WRONLY, 0);
  std::string name = program;
  std::string argument = folder;
  char* arguments[] = {name.data(), argument.data(), nullptr};
  pid_t child = 0;
  const bool runs = ::posix_spawnp(&child, program, &actions, nullptr, arguments, environ) == 0;
  ::posix_spawn_file_actions_destroy(&actions);
  while (runs && ::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
}

}  // namespace

std::string AssociationId(std::string_view typeName) { return kMimeTypePrefix + IdOf(typeName); }

std::vector<PlannedChange> PlannedChangesOf(const FileAssociation& type) {
  const std::string data = UserDataFolder();
  if (data.empty()) return {};
  const bool isShown = !type.program.empty() && type.program.find('\0') == std::string::npos &&
                       std::ranges::any_of(type.extensions, IsPublishable);
  const std::string id = IdOf(type.name);
  const std::string mimeType = AssociationId(type.name);
  const std::string entry = "qxtools-" + id + ".desktop";
  const std::string iconName = "application-x-qxtools-" + id;  // the name that desktops make of the MIME type
  const std::string picture = isShown ? PictureBeside(DesktopPath(type.icon)) : "";
  std::vector<PlannedChange> files = {{data + "/mime/packages/qxtools-" + id + ".xml", std::nullopt},
                                      {data + "/applications/" + entry, std::nullopt}};
  if (isShown) {
    files[0].content = PackageOf(type, mimeType);
    files[1].content = EntryOf(type, mimeType, picture.empty() ? "" : iconName);
  }
  std::ranges::move(IconFiles(iconName, picture), std::back_inserter(files));
  std::ranges::move(DefaultsFiles(mimeType, isShown ? entry : ""), std::back_inserter(files));
  return files;
}

bool IsAssociationPublished(const FileAssociation& type) try {
  const std::vector<PlannedChange> files = PlannedChangesOf(type);
  return std::ranges::all_of(
      files, [](const PlannedChange& file) { return BytesIfThere(file.place) == file.content; });
} catch (const EStreamError&) {
  return false;
}

bool PublishAssociation(const FileAssociation& type) {
  std::vector<PlannedChange> files;
  try {
    files = PlannedChangesOf(type);
  } catch (const EStreamError&) {
    return false;
  }
  if (!MakeChanges(files)) return false;
  if (files.empty()) return true;
  RunQuietly("update-mime-database", UserDataFolder() + "/mime");
  RunQuietly("update-desktop-database", UserDataFolder() + "/applications");
  return true;
}

}  // namespace qxTools
