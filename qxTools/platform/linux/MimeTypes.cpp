#include <qxTools/base/Ascii.h>
#include <qxTools/platform/Files.h>
#include <qxTools/platform/linux/MimeTypes.h>
#include <qxTools/platform/linux/UserFolders.h>

#include <algorithm>
#include <cstdlib>

namespace qxTools {

namespace {

struct Glob {
  long weight = 0;
  std::string_view mimeType;
  std::string_view pattern;
};

/// A line "WEIGHT:TYPE:PATTERN" or "WEIGHT:TYPE:PATTERN:FLAGS"; comments have no colon in these places.
Glob GlobOfLine(std::string_view line) {
  const std::size_t type = line.find(':') + 1;
  const std::size_t pattern = type == 0 ? 0 : line.find(':', type) + 1;
  if (pattern == 0) return {};
  const std::string_view rest = line.substr(pattern);
  return {std::strtol(std::string(line.substr(0, type - 1)).c_str(), nullptr, 10),
          line.substr(type, pattern - 1 - type), rest.substr(0, rest.find(':'))};
}

/// The list of file name patterns of every folder of the desktop's data, the user's first.
std::string AllGlobs() {
  std::string globs;
  for (const std::string& folder : DataFolders()) {
    const std::string file = folder + "/mime/globs2";
    if (FileExists(file)) globs += ReadWholeFile(file) + '\n';
  }
  return globs;
}

/// "" if there is none.
std::string_view MimeTypeOf(std::string_view globs, const std::string& extension,
                            std::string_view ignoredPrefix) {
  Glob best;
  for (std::size_t start = 0; start < globs.size();) {
    const std::size_t end = std::min(globs.find('\n', start), globs.size());
    const Glob glob = GlobOfLine(globs.substr(start, end - start));
    start = end + 1;
    const bool isMeant = SameText(glob.pattern, "*" + extension) && !glob.mimeType.starts_with(ignoredPrefix);
    if (isMeant && glob.weight > best.weight) best = glob;
  }
  return best.mimeType;
}

}  // namespace

std::vector<std::string> MimeTypesOf(const std::vector<std::string>& extensions,
                                     std::string_view ignoredPrefix) {
  const std::string globs = AllGlobs();
  std::vector<std::string> types;
  for (const std::string& extension : extensions) {
    const std::string_view type = MimeTypeOf(globs, extension, ignoredPrefix);
    if (!type.empty() && std::ranges::find(types, type) == types.end()) types.emplace_back(type);
  }
  return types;
}

}  // namespace qxTools
