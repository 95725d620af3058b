/// @file
/// From a node's key to its link, in constant time on average. For the tree store's own use.
#pragma once

#include <qxTools/stores/qxTreeList.h>

#include <unordered_map>
#include <vector>

namespace qxTools::qxTreeList {

/// Holds links by the keys of their nodes. A key that two links had at one time is shared until the last of
/// them is gone: the index counts those links and does not hold them.
class KeyIndex {
 public:
  /// @throws std::bad_alloc; nothing has changed then.
  void Insert(pQXTreeNodeLink link);
  void Erase(pQXTreeNodeLink link);

  /// The link with that key; null when there is none or the key is shared.
  pQXTreeNodeLink Find(const TNodeKey& key) const;
  bool IsShared(const TNodeKey& key) const;

 private:
  // Open addressing; the next slot is the next choice, and a slot without a link ends the search.
  struct Slot {
    pQXTreeNodeLink link = nullptr;
    pQXTreeNode node = nullptr;  // the link's, to reach the key without a step in between
    std::size_t hash = 0;
  };

  struct Hash {
    std::size_t operator()(const TNodeKey& key) const;
  };

  std::size_t SlotOf(const TNodeKey& key, std::size_t hash) const;
  std::size_t Mask() const { return FSlots.size() - 1; }
  void EmptySlot(std::size_t slot);
  void Grow();

  std::vector<Slot> FSlots;  // a power of two of them
  std::size_t FUsed = 0;
  std::unordered_map<TNodeKey, std::size_t, Hash> FShared;
};

}  // namespace qxTools::qxTreeList
