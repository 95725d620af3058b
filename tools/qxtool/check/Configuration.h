// How files are used and which rules are asked of them, by their paths.
//
//     commands/*:[%RootKey%]
//     [%
//       As:command
//       Ignore:SQL403,SQL404
//     %]
//
// A section is a path, from the configuration's folder: a file, a folder with all in it, or a pattern where
// "*" is any text and "?" any character. All sections that fit count, later ones last. A record has As,
// Select, Ignore and Pedantic:yes.
#pragma once

#include <string>
#include <vector>

#include "CheckFile.h"

namespace qxtool::check {

class Configuration {
 public:
  Configuration() = default;
  /// Reads a settings file that is in `folder`.
  /// Throws qxTools::Exception for a name or a value that it does not know.
  Configuration(const std::string& text, std::string folder);

  /// The options for a file, on top of those given.
  FileOptions For(const std::string& path, FileOptions options) const;

 private:
  struct Entry {
    std::string pattern;
    std::string name;  // in capitals
    std::string value;
  };
  std::vector<Entry> entries_;
  std::string folder_;
};

/// The route of "command", "call" or "call-all". Throws qxTools::Exception for another name.
Route ReadRoute(std::string_view name);

/// The parts between commas, without blanks and empty ones. Throws qxTools::Exception for one that begins no
/// id.
std::vector<std::string> ReadIds(std::string_view list);

/// True if the pattern fits the whole path or a folder that it is in.
bool Fits(std::string_view pattern, std::string_view path);

}  // namespace qxtool::check
