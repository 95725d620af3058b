/// @file
/// From a node's key to its link, in constant time on average. For the tree store's own use.
#pragma once

#include <qxTools/stores/LinkTable.h>

#include <unordered_map>

namespace qxTools::qxTreeList {

/// Holds links of a tree by the keys of their nodes. A key that two links had at one time is shared until the
/// last of them is gone: the index counts those links and does not hold them.
class KeyIndex {
 public:
  /// @throws std::bad_alloc; nothing has changed then.
  void Insert(pQXTreeNodeLink link);
  void Erase(pQXTreeNodeLink link);

  /// The link with that key; null when there is none or the key is shared.
  pQXTreeNodeLink Find(const TNodeKey& key) const;
  bool IsShared(const TNodeKey& key) const;

 private:
  struct Hash {
    std::size_t operator()(const TNodeKey& key) const;
  };

  LinkTable FLinks;
  std::unordered_map<TNodeKey, std::size_t, Hash> FShared;
};

}  // namespace qxTools::qxTreeList
