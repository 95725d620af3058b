/// @file
/// From a node's key to its link, in constant time on average. For the tree store's own use.
#pragma once

#include <qxTools/base/CaselessHash.h>
#include <qxTools/runtime/HashIndex.h>
#include <qxTools/stores/NodePool.h>

#include <cstring>
#include <unordered_map>

namespace qxTools::qxTreeList {

// Keys hold the time in the middle and random marks everywhere: both halves are mixed into all bits.
inline HashTag TagOfKey(const TNodeKey& key) {
  const std::string_view text = key;
  std::uint64_t front = 0;
  std::uint64_t back = 0;
  if (text.size() != sizeof front + sizeof back) return {CaselessHash(text)};  // not a key of this library
  std::memcpy(&front, text.data(), sizeof front);
  std::memcpy(&back, text.data() + sizeof front, sizeof back);
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;  // 2^64 by the golden ratio
  front *= factor;
  return {static_cast<std::uint32_t>((front ^ front >> 32 ^ back) * factor >> 32)};
}

/// Holds links of a tree by the keys of their nodes. A key that two links had at one time is shared until the
/// last of them is deleted: the index counts those links and does not hold them.
class KeyIndex {
 public:
  /// @param nodes holds all links; it outlives this object.
  explicit KeyIndex(const NodePool& nodes) : nodes_(nodes) {}

  /// @throws std::bad_alloc; nothing has changed then.
  void Insert(pQXTreeNodeLink link);
  void Erase(pQXTreeNodeLink link);

  /// Returns the link with that key; null if there is none or the key is shared.
  pQXTreeNodeLink Find(const TNodeKey& key) const;
  bool IsShared(const TNodeKey& key) const { return !shared_.empty() && shared_.contains(key); }

 private:
  struct KeyHash {
    std::size_t operator()(const TNodeKey& key) const { return TagOfKey(key).hash; }
  };

  auto HasKey(const TNodeKey& key) const {
    return [this, &key](std::uint32_t number) { return nodes_.At(number)->node.Key == key; };
  }

  const NodePool& nodes_;
  HashIndex<std::uint32_t> numbers_;
  std::unordered_map<TNodeKey, std::size_t, KeyHash> shared_;
};

}  // namespace qxTools::qxTreeList
