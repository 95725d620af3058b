/// @file
/// The links and nodes of one tree, many to a block of memory. For the stores' own use.
#pragma once

#include <qxTools/stores/TreeOrder.h>
#include <qxTools/stores/ZeroedBlock.h>

#include <vector>

namespace qxTools::qxTreeList {

/// A link of a tree, followed by its node.
struct LinkAndNode : LinkWithLastChild {
  TQXTreeNode node;

  LinkAndNode(const TNodeKey& parentKey, const TNodeKey& key, void* data, Integer level)
      : LinkWithLastChild{}, node{parentKey, key, data, level} {
    Node = &node;
  }
};

/// Returns the node of a tree's link without reading the link.
inline pQXTreeNode NodeOf(pQXTreeNodeLink link) { return &static_cast<LinkAndNode*>(link)->node; }

/// Making and freeing one takes constant time; freeing all takes no time for each. Memory of a link that was
/// freed is used again, and goes back to the system with all others.
class NodePool {
 public:
  /// Makes a link in no tree, with its node. @throws std::bad_alloc; nothing has changed then.
  pQXTreeNodeLink Make(const TNodeKey& parentKey, const TNodeKey& key, void* data, Integer level);
  void Free(pQXTreeNodeLink link);
  void FreeAll();

 private:
  void* Take();

  std::vector<stores::ZeroedBlock> blocks_;
  std::size_t blockSize_ = 0;  // of the last block, in links
  std::size_t used_ = 0;
  pQXTreeNodeLink freed_ = nullptr;  // linked by Next
};

}  // namespace qxTools::qxTreeList
