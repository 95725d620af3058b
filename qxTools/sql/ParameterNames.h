// The names of a command's parameters, found at the front of a run of name characters.
#pragma once

#include <qxTools/base/Types.h>
#include <qxTools/runtime/HashIndex.h>

#include <vector>

namespace qxTools::QXSqlTools {

/// Finds, among the names that a text begins with, the one that is first in the list. Names are in capitals
/// and without their "@". A hash of the text is computed letter by letter; at each size that a name has, it
/// is looked up. Only name characters are hashed: among them the bit 0x20 tells letters' cases alone.
class ParameterNames {
 public:
  struct Match {
    Integer item = -1;     ///< Its place in the list; -1 if no name matches.
    std::size_t size = 0;  ///< Of the name.

    bool operator==(const Match&) const = default;
  };

  /// Adds the name of the item at a place; places must rise.
  void Add(std::string upperName, Integer item);

  Match Find(std::string_view run) const;

 private:
  bool IsName(Integer item, std::string_view text) const;

  HashIndex<Match> index_;
  std::vector<std::string> names_;  // by place
  std::vector<std::size_t> sizes_;  // of the names, each once, rising
};

}  // namespace qxTools::QXSqlTools
