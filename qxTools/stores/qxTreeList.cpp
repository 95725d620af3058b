#include <qxTools/base/Exceptions.h>
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/memory/QXMemTools.h>
#include <qxTools/platform/VirtualMemory.h>
#include <qxTools/stores/KeyIndex.h>
#include <qxTools/stores/NodePool.h>
#include <qxTools/stores/TreeOrder.h>
#include <qxTools/stores/qxTreeList.h>

#include <array>
#include <cstring>

namespace qxTools::qxTreeList {

using QXMemTools::MemFree;
using stores::MakeRecord;
using stores::Record;

namespace {

constexpr std::string_view kRootKey = "0000000000000000";

TNodeKey FreshKey() {
  std::array<char, 16> key;
  return QXUniKey::UniKeyBytes(key) ? TNodeKey(std::string_view(key.data(), key.size())) : TNodeKey();
}

void* MakeData(Integer size) { return size > 0 ? MakeRecord(static_cast<std::size_t>(size)) : nullptr; }

// The first node with that key in the subtree of `top`.
pQXTreeNodeLink Walk(const TNodeKey& key, pQXTreeNodeLink top) {
  pQXTreeNodeLink link = top;
  while (link != nullptr && !(link->Node->Key == key)) link = Successor(link, top, true);
  return link;
}

bool HasChildren(pQXTreeNodeLink link) { return link->FirstChild != nullptr && link->Count != 0; }

void Append(pQXTreeNodeLink parent, pQXTreeNodeLink link) {
  link->Parent = parent;
  link->Prior = LastChildOf(parent);
  (link->Prior != nullptr ? link->Prior->Next : parent->FirstChild) = link;
  LastChildOf(parent) = link;
  ++parent->Count;
}

void Unlink(pQXTreeNodeLink link) {
  (link->Prior != nullptr ? link->Prior->Next : link->Parent->FirstChild) = link->Next;
  (link->Next != nullptr ? link->Next->Prior : LastChildOf(link->Parent)) = link->Prior;
  --link->Parent->Count;
}

// Sets `node` to that of `link` when there is one.
bool Give(pQXTreeNodeLink link, pQXTreeNode& node) {
  if (link != nullptr) node = NodeBehind(link);
  return link != nullptr;
}

std::size_t BlockSize(Integer size) { return static_cast<std::uint32_t>(size) + std::uint32_t{sizeof size}; }

}  // namespace

// --- Records -----------------------------------------------------------------

void NewTreeNode(pQXTreeNodeLink& link) { NewTreeNode(0, link); }

void NewTreeNode(Integer dataSize, pQXTreeNodeLink& link) {
  Record made(MakeRecord(sizeof(LinkWithLastChild)));
  Record node(MakeRecord(sizeof(TQXTreeNode)));
  void* const data = MakeData(dataSize);
  link = new (made.release()) LinkWithLastChild();
  link->Node = new (node.release()) TQXTreeNode{{}, FreshKey(), data, 0};
}

void FreeTreeNode(pQXTreeNodeLink link) { FreeTreeNode(0, link); }

void FreeTreeNode(Integer dataSize, pQXTreeNodeLink link) {
  if (dataSize > 0) MemFree(link->Node->Data);
  MemFree(link->Node);
  MemFree(link);
}

// --- Blocks in reserved address space ----------------------------------------

void vGetMem(void*& p, Integer size) {
  CommitMem(p, BlockSize(size));
  std::memcpy(p, &size, sizeof size);
  p = static_cast<std::byte*>(p) + sizeof size;
}

void vFreeMem(void* p, Integer size) {
  void* const start = static_cast<std::byte*>(p) - sizeof size;
  DecommitMem(start, BlockSize(size));
  ReleaseMem(start);
}

void vFreeMem(void* p) {
  Integer size = 0;
  std::memcpy(&size, static_cast<const std::byte*>(p) - sizeof size, sizeof size);
  vFreeMem(p, size);
}

// --- The store: making and freeing -------------------------------------------

TQXTreeNodes::TQXTreeNodes(Integer aDataSize) : dataSize_(aDataSize), pool_(std::make_unique<NodePool>()) {
  FreshKey();  // on purpose: the root draws a key like every node, and drops it
  Record root(MakeRecord(sizeof(LinkAndNode)));
  void* const data = MakeData(aDataSize);
  root_ = new (root.release()) LinkAndNode({}, kRootKey, data, 0);
}

TQXTreeNodes::~TQXTreeNodes() {
  if (dataSize_ > 0) MemFree(root_->Node->Data);
  MemFree(root_);
}

pQXTreeNodeLink TQXTreeNodes::MakeLink(pQXTreeNodeLink parent) {
  Record data(MakeData(dataSize_));
  const TQXTreeNode& node = *parent->Node;
  const pQXTreeNodeLink link = pool_->Make(node.Key, FreshKey(), data.get(), node.Level + 1);
  try {
    if (index_ != nullptr) index_->Insert(link);
  } catch (...) {
    pool_->Free(link);
    throw;
  }
  static_cast<void>(data.release());
  return link;
}

// On purpose: the data block stays, it is the caller's.
void TQXTreeNodes::FreeLink(pQXTreeNodeLink link) {
  if (link == current_) current_ = nullptr;
  if (index_ != nullptr) index_->Erase(link);
  pool_->Free(link);
}

// Children first, down to a leaf and back by the parents.
void TQXTreeNodes::FreeBelow(pQXTreeNodeLink top) {
  pQXTreeNodeLink link = top;
  while (true) {
    while (link->FirstChild != nullptr) link = link->FirstChild;
    if (link == top) break;
    const pQXTreeNodeLink parent = link->Parent;
    const pQXTreeNodeLink next = link->Next;
    FreeLink(link);
    parent->FirstChild = next;
    link = next != nullptr ? next : parent;
  }
  top->Count = 0;
  LastChildOf(top) = nullptr;
}

// --- The store: opening, adding, deleting ------------------------------------

void TQXTreeNodes::OpenRootNode() {
  current_ = root_;
  opened_ = true;
}

void TQXTreeNodes::OpenTreeNode(const TNodeKey& key) {
  const pQXTreeNodeLink link = Find(key);
  if (link == nullptr) throw Exception("Key(" + key.Text() + ") not Found.");
  current_ = link;
}

void TQXTreeNodes::CloseTreeNode() {
  current_ = nullptr;
  opened_ = false;
}

pQXTreeNode TQXTreeNodes::Add() {
  if (!opened_ || current_ == nullptr) throw Exception("TreeNode Not Opend.");
  return Add(current_->Node->Key);
}

pQXTreeNode TQXTreeNodes::Add(const TNodeKey& parentKey) {
  const pQXTreeNodeLink parent = Find(parentKey);
  return AddLink(parent != nullptr ? parent : root_)->Node;
}

pQXTreeNodeLink TQXTreeNodes::AddLink(pQXTreeNodeLink parent) {
  const pQXTreeNodeLink link = MakeLink(parent);
  Append(parent, link);
  return link;
}

void TQXTreeNodes::Delete(const TNodeKey& key) {
  const pQXTreeNodeLink link = Find(key);
  if (link != nullptr) DeleteLink(link);
}

void TQXTreeNodes::DeleteLink(pQXTreeNodeLink link) {
  FreeBelow(link);
  if (link == root_) return;
  Unlink(link);
  FreeLink(link);
}

void TQXTreeNodes::Delete(pQXTreeNode node) {
  if (node != nullptr && !(node->Key == root_->Node->Key)) Delete(node->Key);
}

void TQXTreeNodes::Delete(const TNodeKey&, Integer) {}

void TQXTreeNodes::Clear() {
  if (current_ != root_) current_ = nullptr;
  index_.reset();
  pool_->FreeAll();
  root_->FirstChild = LastChildOf(root_) = nullptr;
  root_->Count = 0;
}

// --- The store: finding ------------------------------------------------------

KeyIndex& TQXTreeNodes::Index() const {
  if (index_ != nullptr) return *index_;
  auto index = std::make_unique<KeyIndex>();
  for (pQXTreeNodeLink link = root_; link != nullptr; link = Successor(link, root_, true))
    index->Insert(link);
  index_ = std::move(index);
  return *index_;
}

pQXTreeNodeLink TQXTreeNodes::Find(const TNodeKey& key) const {
  return Index().IsShared(key) ? Walk(key, root_) : Index().Find(key);
}

// `start` is a link of this store.
pQXTreeNodeLink TQXTreeNodes::FindFrom(const TNodeKey& key, pQXTreeNodeLink start) const {
  if (Index().IsShared(key)) return Walk(key, start);
  const pQXTreeNodeLink link = Index().Find(key);
  return link != nullptr && (start == root_ || IsInSubtree(link, start)) ? link : nullptr;
}

bool TQXTreeNodes::FindNodeLink(const TNodeKey& key, pQXTreeNodeLink& link) const {
  const pQXTreeNodeLink found = Find(key);
  if (found != nullptr) link = found;
  return found != nullptr;
}

bool TQXTreeNodes::FindNodeLink(const TNodeKey& key, pQXTreeNodeLink start, pQXTreeNodeLink& link) const {
  if (start == nullptr) return false;
  const bool isOwn = IsInSubtree(start, root_);
  const pQXTreeNodeLink found = isOwn ? FindFrom(key, start) : Walk(key, start);
  if (found != nullptr) link = found;
  return found != nullptr;
}

bool TQXTreeNodes::FindNode(const TNodeKey& key, pQXTreeNode& node) const {
  node = nullptr;
  return opened_ && current_ != nullptr && Give(FindFrom(key, current_), node);
}

pQXTreeNode TQXTreeNodes::GetItem(const TNodeKey& key) const {
  pQXTreeNode node = nullptr;
  FindNode(key, node);
  return node;
}

bool TQXTreeNodes::FindSubNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = Find(key);
  return link != nullptr && Give(link->FirstChild, node);
}

bool TQXTreeNodes::FindFirstNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = Find(key);
  return link != nullptr && Give(link == root_ ? root_ : link->Parent->FirstChild, node);
}

bool TQXTreeNodes::FindLastNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = Find(key);
  return link != nullptr && Give(link == root_ ? root_ : LastChildOf(link->Parent), node);
}

bool TQXTreeNodes::FindNextNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = Find(key);
  if (link == nullptr) return false;
  node = nullptr;
  return Give(link->Next, node);
}

bool TQXTreeNodes::FindPrevNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = Find(key);
  return link != nullptr && Give(link->Prior, node);
}

pQXTreeNodeLink TQXTreeNodes::FindFirstSubNodeLink(pQXTreeNodeLink link) const { return link->FirstChild; }

pQXTreeNodeLink TQXTreeNodes::FindLastSubNodeLink(pQXTreeNodeLink link) const {
  // Links of NewTreeNode that a caller has tied together himself know no last child.
  pQXTreeNodeLink last = LastChildOf(link) != nullptr ? LastChildOf(link) : link->FirstChild;
  while (last != nullptr && last->Next != nullptr) last = last->Next;
  return last;
}

// --- The store: enumerating --------------------------------------------------

void TQXTreeNodes::EnumTreeNodeLink(pQXTreeNodeLink link, bool recursive,
                                    const TEnumTreeNodeProc& proc) const {
  pQXTreeNodeLink next = HasChildren(link) ? link->FirstChild : nullptr;
  while (next != nullptr) {
    proc(next->Node);
    next = Successor(next, link, recursive && next->Count > 0);  // read after the call, which may add
  }
}

void TQXTreeNodes::EnumTreeNode(const TEnumTreeNodeProc& proc, bool recursive) const {
  if (opened_ && current_ != nullptr) EnumTreeNodeLink(current_, recursive, proc);
}

void TQXTreeNodes::EnumTreeNode(const TNodeKey& key, const TEnumTreeNodeProc& proc, bool recursive) const {
  const pQXTreeNodeLink link = Find(key);
  if (link != nullptr) EnumTreeNodeLink(link, recursive, proc);
}

void TQXTreeNodes::EnumAllTreeNode(const TEnumTreeNodeProc& proc) const {
  EnumTreeNodeLink(root_, true, proc);
}

void TQXTreeNodes::GetTreeNodeList(TList& list) const {
  if (!opened_ || current_ == nullptr || !HasChildren(current_)) return;
  list.Clear();
  for (pQXTreeNodeLink link = current_->FirstChild; link != nullptr; link = link->Next) list.Add(link->Node);
}

}  // namespace qxTools::qxTreeList
