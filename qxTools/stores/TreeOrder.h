/// @file
/// Walking a tree in its order: a node before its children, children one after the other. For the stores' own
/// use.
#pragma once

#include <qxTools/stores/qxTreeList.h>

namespace qxTools::qxTreeList {

/// Every link is one of these.
struct LinkWithLastChild : TQXTreeNodeLink {
  pQXTreeNodeLink LastChild;
};

inline pQXTreeNodeLink& LastChildOf(pQXTreeNodeLink link) {
  return static_cast<LinkWithLastChild*>(link)->LastChild;
}

/// Returns the link after `link` inside the subtree of `top`, without `descend` the one after what is below
/// `link`; null after the last.
inline pQXTreeNodeLink Successor(pQXTreeNodeLink link, pQXTreeNodeLink top, bool descend) {
  if (descend && link->FirstChild != nullptr) return link->FirstChild;
  while (link != top && link->Next == nullptr) link = link->Parent;
  return link == top ? nullptr : link->Next;
}

/// Returns the link before `link`; null for the root.
inline pQXTreeNodeLink Predecessor(pQXTreeNodeLink link) {
  if (link->Prior == nullptr) return link->Parent;
  link = link->Prior;
  while (LastChildOf(link) != nullptr) link = LastChildOf(link);
  return link;
}

/// Returns true if `link` is `top` or below it.
inline bool IsInSubtree(pQXTreeNodeLink link, pQXTreeNodeLink top) {
  for (Integer n = link->Node->Level - top->Node->Level; n > 0; --n) link = link->Parent;
  return link == top;
}

}  // namespace qxTools::qxTreeList
