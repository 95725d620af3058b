/// @file
/// The links and nodes of one tree, many to a block of memory. For the stores' own use.
#pragma once

#include <qxTools/stores/Records.h>
#include <qxTools/stores/TreeOrder.h>

#include <vector>

namespace qxTools::qxTreeList {

/// A link of a tree and behind it its node.
struct LinkAndNode : LinkWithLastChild {
  TQXTreeNode node;

  LinkAndNode(const TNodeKey& parentKey, const TNodeKey& key, void* data, Integer level)
      : LinkWithLastChild{}, node{parentKey, key, data, level} {
    Node = &node;
  }
};

/// A tree's link's node, reached without reading the link.
inline pQXTreeNode NodeBehind(pQXTreeNodeLink link) { return &static_cast<LinkAndNode*>(link)->node; }

/// Making and freeing one takes constant time; freeing all takes no time for each. What is freed singly is
/// used again, and goes back to the system with all others.
class NodePool {
 public:
  /// A link in no tree, with its node. @throws std::bad_alloc
  pQXTreeNodeLink Make(const TNodeKey& parentKey, const TNodeKey& key, void* data, Integer level);
  void Free(pQXTreeNodeLink link);
  void FreeAll();

 private:
  void* Take();

  std::vector<stores::Record> blocks_;
  std::size_t blockSize_ = 0;  // of the last block, in links
  std::size_t used_ = 0;
  pQXTreeNodeLink freed_ = nullptr;  // tied together by Next
};

}  // namespace qxTools::qxTreeList
