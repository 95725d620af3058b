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
using TEnumTreeNodeProc = std::function<void(pQXTreeNode Node)>;

// --- Records -----------------------------------------------------------------

/// Makes a link and its node with a fresh key, in no tree, with a zero-filled data block when `DataSize` is
/// above 0.
QXTOOLS_API void NewTreeNode(pQXTreeNodeLink& Link);
QXTOOLS_API void NewTreeNode(Integer DataSize, pQXTreeNodeLink& Link);

/// Frees node and link, and before them the data block when `DataSize` is above 0.
QXTOOLS_API void FreeTreeNode(pQXTreeNodeLink Link);
QXTOOLS_API void FreeTreeNode(Integer DataSize, pQXTreeNodeLink Link);

// --- Blocks in reserved address space ----------------------------------------

/// Commits `Size` + 4 bytes at `P`, which must point into address space of ReserveMem
/// (qxTools/platform/VirtualMemory.h), writes `Size` there and moves `P` behind it. Whether the commit
/// worked is not looked at.
QXTOOLS_API void vGetMem(void*& P, Integer Size);

/// Takes the memory of such a block back, of every page that it touches, and the whole space when the block
/// stands at its start. Without `Size` it is read from in front of the block.
QXTOOLS_API void vFreeMem(void* P, Integer Size);
QXTOOLS_API void vFreeMem(void* P);

// --- The store ---------------------------------------------------------------

class KeyIndex;
class NodePool;

/// The tree, and the node that is opened in it.
class QXTOOLS_API TQXTreeNodes : public TObject {
 public:
  /// A root without children; every node has `ADataSize` bytes of data, none when that is 0 or less.
  explicit TQXTreeNodes(Integer ADataSize = 0);
  ~TQXTreeNodes() override;
  TQXTreeNodes(const TQXTreeNodes&) = delete;
  TQXTreeNodes& operator=(const TQXTreeNodes&) = delete;

  // Opening.

  /// Opens the root.
  void OpenRootNode();
  /// Opens the node with that key. On purpose: a closed store stays closed for Add, FindNode and the others
  /// that need an opened one, until OpenRootNode.
  /// @throws Exception "Key(KEY) not Found."; the opened node stays.
  void OpenTreeNode(const TNodeKey& Key);
  /// Opens none.
  void CloseTreeNode();

  // Adding and deleting. When the opened node is deleted no node is opened until one is opened again.

  /// A new last child of the opened node. @throws Exception "TreeNode Not Opend."
  pQXTreeNode Add();
  /// A new last child of the node with that key. On purpose: an unknown key adds below the root.
  pQXTreeNode Add(const TNodeKey& ParentKey);

  /// Deletes the node with its subtree; the root's key deletes all but the root. Unknown keys do nothing.
  void Delete(const TNodeKey& Key);
  /// The same for the node's key; null and the root do nothing.
  void Delete(pQXTreeNode Node);
  /// On purpose: does nothing at all.
  void Delete(const TNodeKey& Key, Integer Index);
  /// Deletes all nodes but the root.
  void Clear();

  // By link, for a caller that has one of this store at hand: the same without a search.

  pQXTreeNodeLink GetRootLink() const { return FRoot; }
  /// A new last child.
  pQXTreeNodeLink AddLink(pQXTreeNodeLink Parent);
  /// Deletes the node with its subtree; the root itself stays.
  void DeleteLink(pQXTreeNodeLink Link);

  // Finding in the opened node's subtree, the opened node included.

  /// Without success, also when nothing is opened, `Node` is null.
  bool FindNode(const TNodeKey& Key, pQXTreeNode& Node) const;
  /// The node that FindNode finds, or null.
  pQXTreeNode GetItem(const TNodeKey& Key) const;

  // Finding in the whole tree, opened or not. Without success results are left alone, but for FindNextNode.

  /// The link of the node with that key.
  bool FindNodeLink(const TNodeKey& Key, pQXTreeNodeLink& Link) const;
  /// In the subtree of `Start`, itself included. Takes time in proportion to the depth of `Start`.
  bool FindNodeLink(const TNodeKey& Key, pQXTreeNodeLink Start, pQXTreeNodeLink& Link) const;
  /// The first child of the node with that key.
  bool FindSubNode(const TNodeKey& Key, pQXTreeNode& Node) const;
  /// The first of the siblings of the node with that key, which may be itself.
  bool FindFirstNode(const TNodeKey& Key, pQXTreeNode& Node) const;
  /// The last of them.
  bool FindLastNode(const TNodeKey& Key, pQXTreeNode& Node) const;
  /// The next sibling. On purpose: `Node` is null when there is none, and left alone for an unknown key.
  bool FindNextNode(const TNodeKey& Key, pQXTreeNode& Node) const;
  /// The previous sibling. On purpose, unlike FindNextNode: `Node` is left alone when there is none.
  bool FindPrevNode(const TNodeKey& Key, pQXTreeNode& Node) const;

  /// The first and the last child's link, null without children. For links of a store or of NewTreeNode.
  pQXTreeNodeLink FindFirstSubNodeLink(pQXTreeNodeLink Link) const;
  pQXTreeNodeLink FindLastSubNodeLink(pQXTreeNodeLink Link) const;

  // Enumerating: children in order and, when `Recursive`, below each child its own. Not the node itself.

  /// Below the link.
  void EnumTreeNodeLink(pQXTreeNodeLink Link, bool Recursive, const TEnumTreeNodeProc& Proc) const;
  /// Below the opened node; nothing when none is opened.
  void EnumTreeNode(const TEnumTreeNodeProc& Proc, bool Recursive) const;
  /// Below the node with that key, opened or not.
  void EnumTreeNode(const TNodeKey& Key, const TEnumTreeNodeProc& Proc, bool Recursive) const;
  /// Below the root.
  void EnumAllTreeNode(const TEnumTreeNodeProc& Proc) const;

  /// Fills the list with the opened node's children. On purpose: without children, or with nothing opened,
  /// the list keeps what it held.
  void GetTreeNodeList(TList& List) const;

  pQXTreeNode GetRootNode() const { return FRoot->Node; }

 private:
  pQXTreeNodeLink MakeLink(pQXTreeNodeLink parent);
  void FreeLink(pQXTreeNodeLink link);
  void FreeBelow(pQXTreeNodeLink top);
  KeyIndex& Index() const;
  pQXTreeNodeLink Find(const TNodeKey& key) const;
  pQXTreeNodeLink FindFrom(const TNodeKey& key, pQXTreeNodeLink start) const;

  pQXTreeNodeLink FRoot = nullptr;
  pQXTreeNodeLink FCurrent = nullptr;
  bool FOpened = false;
  Integer FDataSize = 0;
  std::unique_ptr<NodePool> FPool;
  mutable std::unique_ptr<KeyIndex> FIndex;  // made by the first search for a key
};

}  // namespace qxTools::qxTreeList
