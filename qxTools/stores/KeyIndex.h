/// @file
/// From a node's key to its link, in constant time on average. For the tree store's own use.
#pragma once

#include <qxTools/runtime/HashIndex.h>
#include <qxTools/stores/qxTreeList.h>

#include <unordered_map>

namespace qxTools::qxTreeList {

/// Holds links of a tree by the keys of their nodes. A key that two links had at one time is shared until the
/// last of them is deleted: the index counts those links and does not hold them.
class KeyIndex {
 public:
  /// @throws std::bad_alloc; nothing has changed then.
  void Insert(pQXTreeNodeLink link);
  void Erase(pQXTreeNodeLink link);

  /// Returns the link with that key; null if there is none or the key is shared.
  pQXTreeNodeLink Find(const TNodeKey& key) const;
  bool IsShared(const TNodeKey& key) const;

 private:
  // A key's bytes, with zeros behind a short one. The index keeps them beside the link: with a number and
  // half a hash instead a node takes 33 bytes less, but finding one of a million takes twice as long, since
  // the node must be read to be sure of it.
  struct KeyBytes {
    std::uint64_t words[2] = {0, 0};

    KeyBytes() = default;
    explicit KeyBytes(const TNodeKey& key);
    std::size_t Hash() const;
    /// Returns true if equal bytes are an equal key, whatever its length.
    bool IsWhole() const;
    bool operator==(const KeyBytes&) const = default;
  };
  struct KeyHash {
    std::size_t operator()(const TNodeKey& key) const { return KeyBytes(key).Hash(); }
  };

  HashIndex<pQXTreeNodeLink, KeyBytes> links_;
  std::unordered_map<TNodeKey, std::size_t, KeyHash> shared_;
};

}  // namespace qxTools::qxTreeList
