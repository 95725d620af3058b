/// @file
/// An ordered tree of nodes with 16-character keys and, if wanted, a data block of one size for each.
///
/// The root always exists; its key is sixteen "0". One node is the open one: some functions work on its
/// subtree, the others on the whole tree. Keys are exact bytes; a longer key is cut to 16 characters. New
/// keys come from QXUniKey and are not compared with existing ones: if a repeated clock and generator make
/// equal keys, the first node in tree order (parents before children) is found.
///
/// Finding, adding and deleting take constant time on average. A key used by more than one node is found by
/// walking the tree. There is no recursion, so depth is unlimited.
///
/// Data blocks belong to the caller. Delete and Clear do not free them; only the root's is freed with the
/// store. If nodes have data, free the blocks before deleting the nodes:
///
///     const auto freeData = [](pQXTreeNode node) {
///       MemFree(node->Data);
///       node->Data = nullptr;
///     };
///     tree.EnumTreeNode(key, freeData, true);  // below the node; EnumAllTreeNode before Clear
///     freeData(node);
///     tree.Delete(key);
///
/// Not thread-safe. If memory runs out, std::bad_alloc is thrown and the tree is unchanged.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/ShortString.h>
#include <qxTools/base/Types.h>
#include <qxTools/runtime/Lists.h>

#include <functional>
#include <memory>

namespace qxTools::qxTreeList {

/// The key of a node.
using TNodeKey = ShortString<16>;

/// A node. Callers may change what Data points at, and Data; they only read the rest.
struct TQXTreeNode {
  const TNodeKey ParentKey;  ///< The parent's key; empty in the root.
  const TNodeKey Key;        ///< The node's own key.
  void* Data;                ///< The data block, zeros at first; null if the store's data size is 0 or less.
  const Integer Level;       ///< The depth in the tree; 0 for the root.
};
/// A node as the store returns it, valid until the node is deleted.
using pQXTreeNode = TQXTreeNode*;

/// A node's place in the tree. Callers only read it.
struct TQXTreeNodeLink {
  TQXTreeNodeLink* Prior;       ///< Previous sibling; null for a first child.
  pQXTreeNode Node;             ///< The node, which the link owns.
  TQXTreeNodeLink* Parent;      ///< The parent; null for the root.
  TQXTreeNodeLink* FirstChild;  ///< The first child; null if there is none.
  Integer Count;                ///< Number of direct children.
  bool Flag;                    ///< Not used.
  TQXTreeNodeLink* Next;        ///< Next sibling; null for a last child.
};
/// A link as the store returns it, valid until the node is deleted.
using pQXTreeNodeLink = TQXTreeNodeLink*;

static_assert(sizeof(TQXTreeNode) == (sizeof(void*) == 4 ? 44 : 56));
static_assert(sizeof(TQXTreeNodeLink) == (sizeof(void*) == 4 ? 28 : 48));

/// Called for each node of an enumeration. It may change data and add nodes. It must not delete a node that
/// the enumeration still has to read: the current one, one above it, or the next sibling.
using TEnumTreeNodeProc = std::function<void(pQXTreeNode node)>;

// --- Records -----------------------------------------------------------------

/// Sets `link` to a new link with a node that has a new key, no data, and is in no tree. Free it with
/// FreeTreeNode.
/// @throws std::bad_alloc; `link` is unchanged then.
QXTOOLS_API void NewTreeNode(pQXTreeNodeLink& link);
/// Sets `link` to a new link with a node that has a new key, `dataSize` zero bytes of data (none if that is 0
/// or less), and is in no tree. Free it with FreeTreeNode and the same size.
/// @throws std::bad_alloc; `link` is unchanged then.
QXTOOLS_API void NewTreeNode(Integer dataSize, pQXTreeNodeLink& link);

/// Frees a link of NewTreeNode and its node. The data block is not freed.
QXTOOLS_API void FreeTreeNode(pQXTreeNodeLink link);
/// Frees a link of NewTreeNode and its node, and the data block if `dataSize` is above 0.
QXTOOLS_API void FreeTreeNode(Integer dataSize, pQXTreeNodeLink link);

// --- Blocks in reserved address space ----------------------------------------

/// Commits `size` + 4 bytes at `p`, which must point into address space that was reserved by ReserveMem
/// (qxTools/platform/VirtualMemory.h) or by the system's own means. Writes `size` there and moves `p` after
/// it. Does not check whether the commit succeeded.
QXTOOLS_API void vGetMem(void*& p, Integer size);

/// Decommits every page that a block of vGetMem of `size` bytes touches. If the block is at the start of the
/// reserved space, the whole space is released too.
QXTOOLS_API void vFreeMem(void* p, Integer size);
/// Decommits every page that a block of vGetMem touches; the size is read from the 4 bytes before the block.
/// If the block is at the start of the reserved space, the whole space is released too.
QXTOOLS_API void vFreeMem(void* p);

// --- The store ---------------------------------------------------------------

/// The tree, and the node that is open in it.
class QXTOOLS_API TQXTreeNodes : public TObject {
 public:
  /// Makes a root without children. Every node gets `aDataSize` bytes of data, none if that is 0 or less.
  explicit TQXTreeNodes(Integer aDataSize = 0);
  /// Frees all nodes and the root's data; the data of the others belongs to the caller.
  ~TQXTreeNodes() override;
  TQXTreeNodes(const TQXTreeNodes&) = delete;
  TQXTreeNodes& operator=(const TQXTreeNodes&) = delete;

  // --- Opening -----------------------------------------------------------------

  /// Opens the root.
  void OpenRootNode();
  /// Opens the node with that key. On purpose: this does not open a closed store. After CloseTreeNode, or
  /// before the first OpenRootNode, Add, FindNode and what else needs an open node behave as if none was
  /// open.
  /// @throws Exception "Key(...) not Found." with the key as compared, cut to 16 characters.
  void OpenTreeNode(const TNodeKey& key);
  /// Closes the store: no node is open until OpenRootNode is called.
  void CloseTreeNode();

  // --- Adding and deleting -----------------------------------------------------
  // If the open node is deleted, none is open until one is opened again.

  /// Appends a new last child to the open node and returns it.
  /// @throws Exception "TreeNode Not Opend." if no node is open.
  pQXTreeNode Add();
  /// Appends a new last child to the node with that key and returns it. On purpose: with an unknown key the
  /// node is added below the root.
  pQXTreeNode Add(const TNodeKey& parentKey);

  /// Deletes the node with that key and its subtree. With the root's key all nodes but the root are deleted.
  /// An unknown key is ignored.
  void Delete(const TNodeKey& key);
  /// Deletes the node with the key of `node` and its subtree. Null and the root are ignored.
  void Delete(pQXTreeNode node);
  /// On purpose: does nothing at all.
  void Delete(const TNodeKey& key, Integer index);
  /// Deletes all nodes but the root. If the root is open it stays open; otherwise no node is open afterwards.
  void Clear();

  // --- By link, without a search -----------------------------------------------

  /// Returns the root's link.
  pQXTreeNodeLink GetRootLink() const;
  /// Appends a new last child to `parent`, a link of this store, and returns its link.
  pQXTreeNodeLink AddLink(pQXTreeNodeLink parent);
  /// Deletes the node of `link`, a link of this store, and its subtree. With the root's link all nodes but
  /// the root are deleted.
  void DeleteLink(pQXTreeNodeLink link);

  // --- Finding in the open node's subtree, the open node included --------------

  /// Sets `node` to the node with that key and returns true; if it is not in the subtree, or no node is open,
  /// sets it to null and returns false.
  bool FindNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// Returns the node with that key, or null if it is not in the subtree or no node is open.
  pQXTreeNode GetItem(const TNodeKey& key) const;

  // --- Finding in the whole tree, whether a node is open or not ----------------

  /// Sets `link` to the link of the node with that key. Returns false if there is none; `link` is unchanged
  /// then.
  bool FindNodeLink(const TNodeKey& key, pQXTreeNodeLink& link) const;
  /// Sets `link` to the link of the node with that key in the subtree of `start`, `start` included. Returns
  /// false if there is none or `start` is null; `link` is unchanged then. The time grows with the depth of
  /// `start`.
  bool FindNodeLink(const TNodeKey& key, pQXTreeNodeLink start, pQXTreeNodeLink& link) const;
  /// Sets `node` to the first child of the node with that key. Returns false if there is none; `node` is
  /// unchanged then.
  bool FindSubNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// Sets `node` to the first sibling of the node with that key, which may be the node itself. Returns false
  /// if there is no such key; `node` is unchanged then.
  bool FindFirstNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// Sets `node` to the last sibling of the node with that key, which may be the node itself. Returns false
  /// if there is no such key; `node` is unchanged then.
  bool FindLastNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// Sets `node` to the next sibling of the node with that key. On purpose: if there is no next sibling,
  /// `node` is null; for an unknown key it is unchanged. Both return false.
  bool FindNextNode(const TNodeKey& key, pQXTreeNode& node) const;
  /// Sets `node` to the previous sibling of the node with that key. Returns false if there is none. On
  /// purpose: unlike with FindNextNode, `node` is always unchanged then.
  bool FindPrevNode(const TNodeKey& key, pQXTreeNode& node) const;

  /// Returns the first child's link, or null. `link` is of a store or of NewTreeNode.
  pQXTreeNodeLink FindFirstSubNodeLink(pQXTreeNodeLink link) const;
  /// Returns the last child's link, or null. `link` is of a store or of NewTreeNode.
  pQXTreeNodeLink FindLastSubNodeLink(pQXTreeNodeLink link) const;

  // --- Enumerating -------------------------------------------------------------

  /// Calls `proc` for each child of the node of `link`, in order, and with `recursive` after each child for
  /// those below it.
  void EnumTreeNodeLink(pQXTreeNodeLink link, bool recursive, const TEnumTreeNodeProc& proc) const;
  /// Calls `proc` for each child of the open node, in order, and with `recursive` after each child for those
  /// below it. Does nothing if no node is open.
  void EnumTreeNode(const TEnumTreeNodeProc& proc, bool recursive) const;
  /// Calls `proc` for each child of the node with that key, in order, and with `recursive` after each child
  /// for those below it. No node need be open. An unknown key is ignored.
  void EnumTreeNode(const TNodeKey& key, const TEnumTreeNodeProc& proc, bool recursive) const;
  /// Calls `proc` for each node but the root, parents before children.
  void EnumAllTreeNode(const TEnumTreeNodeProc& proc) const;

  /// Fills the list with the open node's children. On purpose: if it has none, or no node is open, the list
  /// is unchanged.
  void GetTreeNodeList(TList& list) const;

  /// Returns the root.
  pQXTreeNode GetRootNode() const;

 private:
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace qxTools::qxTreeList
