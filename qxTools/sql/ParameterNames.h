// The names of a command's parameters, found at the front of a run of name characters.
#pragma once

#include <qxTools/base/Types.h>
#include <qxTools/runtime/HashIndex.h>

#include <string_view>
#include <vector>

namespace qxTools::QXSqlTools {

/// Finds, among the names that a text begins with, the one that is first in the list. Names are without their
/// "@" and must outlive this object. At each size that a name has, the text's beginning is looked up, in any
/// letter case.
class ParameterNames {
 public:
  struct Match {
    Integer item = -1;     ///< Its place in the list; -1 if no name matches.
    std::size_t size = 0;  ///< Of the name.
  };

  /// For `count` names.
  explicit ParameterNames(std::size_t count);

  /// Adds the name of the item at a place; places must rise.
  void Add(std::string_view name, Integer item);

  Match Find(std::string_view run) const;

 private:
  struct Place {
    Integer item = -1;
    bool operator==(const Place&) const = default;
  };

  bool IsName(Place place, std::string_view text) const;

  HashIndex<Place> index_;
  std::vector<std::string_view> names_;  // by place
  std::vector<std::size_t> sizes_;       // of the names, each once, rising
};

}  // namespace qxTools::QXSqlTools
