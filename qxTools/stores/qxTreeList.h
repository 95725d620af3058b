/// @file
/// An ordered tree of nodes with 16-character keys and, if wanted, a data block of one size each.
///
/// The root always exists; its key is sixteen "0". One node is the opened one: some operations act on its
/// subtree, the others on the whole tree. Keys are exact bytes; a longer key is cut to 16 characters. New
/// keys come from QXUniKey and are not compared with existing ones: should a repeated clock and generator
/// make equal keys, the first node in tree order (parents before children) is the one that is found.
///
/// Finding, adding and deleting take constant time on average however large the tree; a key that has
/// company is found by a walk. Nothing recurses, so depth does not matter.
///
/// Data blocks belong to the caller. Delete and Clear leave them allocated, and only the root's goes with
/// the store. Whoever gave nodes data frees the blocks before deleting the nodes:
///
///     const auto freeData = [](pQXTreeNode node) {
///       MemFree(node->Data);
///       node->Data = nullptr;
///     };
///     tree.EnumTreeNode(key, freeData, true);  // below the node; EnumAllTreeNode before Clear
///     freeData(node);
///     tree.Delete(key);
///
/// For one thread at a time. Records that cannot be allocated raise std::bad_alloc, and the tree stays.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/ShortString.h>
#include <qxTools/base/Types.h>
#include <qxTools/runtime/Lists.h>

#include <functional>
#include <memory>

namespace qxTools::qxTreeList {

/// A key of a node.
using TNodeKey = ShortString<16>;

/// A node. All but the data is the store's: callers read it and never write.
struct TQXTreeNode {
  const TNodeKey ParentKey;  ///< Empty in the root.
  const TNodeKey Key;        ///< The node's own.
  void* Data;                ///< Zeros at first; null when the store's data size is 0 or less.
  const Integer Level;       ///< 0 for the root.
};
/// How nodes are handed out.
using pQXTreeNode = TQXTreeNode*;

/// A node's place in the tree. Callers read it and never write.
struct TQXTreeNodeLink {
  TQXTreeNodeLink* Prior;       ///< Previous sibling; null for a first child.
  pQXTreeNode Node;             ///< The node, which the link owns.
  TQXTreeNodeLink* Parent;      ///< Null for the root.
  TQXTreeNodeLink* FirstChild;  ///< Null without children.
  Integer Count;                ///< Number of direct children.
  bool Flag;                    ///< Not used.
  TQXTreeNodeLink* Next;        ///< Next sibling; null for a last child.
};
/// How links are handed out.
using pQXTreeNodeLink = TQXTreeNodeLink*;

static_assert(sizeof(TQXTreeNode) == (sizeof(void*) == 4 ? 44 : 56));
static_assert(sizeof(TQXTreeNodeLink) == (sizeof(void*) == 4 ? 28 : 48));

/// Called for each node of an enumeration. It may change data and add nodes; deleting a node that the
/// enumeration has yet to read (the one at hand, one above it, or the next sibling) is the caller's mistake.
using TEnumTreeNodeProc = std::function<void(pQXTreeNode node)>;

// --- Records -----------------------------------------------------------------

/// Makes a link and its node with a fresh key, in no tree, with a zero-filled data block when `DataSize` is
/// above 0.
QXTOOLS_API void NewTreeNode(pQXTreeNodeLink& link);
QXTOOLS_API void NewTreeNode(Integer dataSize, pQXTreeNodeLink& link);

/// Frees node and link, and before them the data block when `DataSize` is above 0.
QXTOOLS_API void FreeTreeNode(pQXTreeNodeLink link);
QXTOOLS_API void FreeTreeNode(Integer dataSize, pQXTreeNodeLink link);

// --- Blocks in reserved address space ----------------------------------------

/// Commits `size` + 4 bytes at `p`, which must point into address space of ReserveMem
/// (qxTools/platform/VirtualMemory.h), writes `size` there and moves `p` behind it. Whether the commit
/// worked is not looked at.
QXTOOLS_API void vGetMem(void*& p, Integer size);

/// Takes the memory of such a block back, of every page that it touches, and the whole space when the block
/// stands at its start. Without `size` it is read from in front of the block.
QXTOOLS_API void vFreeMem(void* p, Integer size);
QXTOOLS_API void vFreeMem(void* p);

// --- The store ---------------------------------------------------------------

class KeyIndex;
class NodePool;

/// The tree, and the node that is opened in it.
class QXTOOLS_API TQXTreeNodes : public TObject {
 public:
  /// A root without children; every node has `ADataSize` bytes of data, none when that is 0 or less.
  explicit TQXTreeNodes(Integer aDataSize = 0);
  ~TQXTreeNodes() override;
  TQXTreeNodes(const TQXTreeNodes&) = delete;
  TQXTreeNodes& operator=(const TQXTreeNodes&) = delete;

  // Opening.

  /// Opens the root.
  void OpenRootNode();
  /// Opens the node with that key. On purpose: a closed store stays closed for Add, FindNode and the others
  /// that need an opened one, until OpenRootNode.
  /// @throws Exception "Key(KEY) not Found."; the opened node stays.
  void OpenTreeNode(const TNodeKey& key);
  /// Opens none.
  void CloseTreeNode();

  // Adding and deleting. When the opened node is deleted no node is opened until one is opened again.

  /// A new last child of the opened node. @throws Exception "TreeNode Not Opend."
  pQXTreeNode Add();
  /// A new last child of the node with that key. On purpose: an unknown key adds below the root.
  pQXTreeNode Add(const TNodeKey& parentKey);

  /// Deletes the node with its subtree; the root's key deletes all but the root. Unknown keys do nothing.
  void Delete(const TNodeKey& key);
  /// The same for the node's key; null and the root do nothing.
  void Delete(pQXTreeNode node);
  /// On purpose: does nothing at all.
  void Delete(const TNodeKey& key, Integer index);
  /// Deletes all nodes but the root.
  void Clear();

  // By link, for a caller that has one of this store at hand: the same without a search.

  pQXTreeNodeLink GetRootLink() const { return root_; }
  /// A new last child.
  pQXTreeNodeLink AddLink(pQXTreeNodeLink parent);
  /// Deletes the node with its subtree; the root itself stays.
  void DeleteLink(pQXTreeNodeLink link);

  // Finding in the opened node's subtree, the opened node included.

  /// Without success, also when nothing is opened, `node` is null.
  bool FindNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// The node that FindNode finds, or null.
  pQXTreeNode GetItem(const TNodeKey& key) const;

  // Finding in the whole tree, opened or not. Without success results are left alone, but for FindNextNode.

  /// The link of the node with that key.
  bool FindNodeLink(const TNodeKey& key, pQXTreeNodeLink& link) const;
  /// In the subtree of `Start`, itself included. Takes time in proportion to the depth of `Start`.
  bool FindNodeLink(const TNodeKey& key, pQXTreeNodeLink start, pQXTreeNodeLink& link) const;
  /// The first child of the node with that key.
  bool FindSubNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// The first of the siblings of the node with that key, which may be itself.
  bool FindFirstNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// The last of them.
  bool FindLastNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// The next sibling. On purpose: `node` is null when there is none, and left alone for an unknown key.
  bool FindNextNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// The previous sibling. On purpose, unlike FindNextNode: `node` is left alone when there is none.
  bool FindPrevNode(const TNodeKey& key, pQXTreeNode& node) const;

  /// The first and the last child's link, null without children. For links of a store or of NewTreeNode.
  pQXTreeNodeLink FindFirstSubNodeLink(pQXTreeNodeLink link) const;
  pQXTreeNodeLink FindLastSubNodeLink(pQXTreeNodeLink link) const;

  // Enumerating: children in order and, when `Recursive`, below each child its own. Not the node itself.

  /// Below the link.
  void EnumTreeNodeLink(pQXTreeNodeLink link, bool recursive, const TEnumTreeNodeProc& proc) const;
  /// Below the opened node; nothing when none is opened.
  void EnumTreeNode(const TEnumTreeNodeProc& proc, bool recursive) const;
  /// Below the node with that key, opened or not.
  void EnumTreeNode(const TNodeKey& key, const TEnumTreeNodeProc& proc, bool recursive) const;
  /// Below the root.
  void EnumAllTreeNode(const TEnumTreeNodeProc& proc) const;

  /// Fills the list with the opened node's children. On purpose: without children, or with nothing opened,
  /// the list keeps what it held.
  void GetTreeNodeList(TList& list) const;

  pQXTreeNode GetRootNode() const { return root_->Node; }

 private:
  pQXTreeNodeLink MakeLink(pQXTreeNodeLink parent);
  void FreeLink(pQXTreeNodeLink link);
  void FreeBelow(pQXTreeNodeLink top);
  KeyIndex& Index() const;
  pQXTreeNodeLink Find(const TNodeKey& key) const;
  pQXTreeNodeLink FindFrom(const TNodeKey& key, pQXTreeNodeLink start) const;

  pQXTreeNodeLink root_ = nullptr;
  pQXTreeNodeLink current_ = nullptr;
  bool opened_ = false;
  Integer dataSize_ = 0;
  std::unique_ptr<NodePool> pool_;
  mutable std::unique_ptr<KeyIndex> index_;  // made by the first search for a key
};

}  // namespace qxTools::qxTreeList
