/// @file
/// The links of one tree and their nodes. For the stores' own use.
#pragma once

#include <qxTools/stores/Pool.h>
#include <qxTools/stores/TreeOrder.h>

namespace qxTools::qxTreeList {

/// A link of a tree, followed by its node.
struct LinkAndNode : LinkWithLastChild {
  TQXTreeNode node;

  LinkAndNode(const TNodeKey& parentKey, const TNodeKey& key, void* data, Integer level)
      : LinkWithLastChild{}, node{parentKey, key, data, level} {
    Node = &node;
  }
};

inline LinkAndNode* WithNode(pQXTreeNodeLink link) { return static_cast<LinkAndNode*>(link); }

/// Returns the node of a tree's link without reading the link.
inline pQXTreeNode NodeOf(pQXTreeNodeLink link) { return &WithNode(link)->node; }

using NodePool = stores::Pool<LinkAndNode>;

}  // namespace qxTools::qxTreeList
