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

void NewTreeNode(pQXTreeNodeLink& Link) { NewTreeNode(0, Link); }

void NewTreeNode(Integer DataSize, pQXTreeNodeLink& Link) {
  Record link(MakeRecord(sizeof(LinkWithLastChild)));
  Record node(MakeRecord(sizeof(TQXTreeNode)));
  void* const data = MakeData(DataSize);
  Link = new (link.release()) LinkWithLastChild();
  Link->Node = new (node.release()) TQXTreeNode{{}, FreshKey(), data, 0};
}

void FreeTreeNode(pQXTreeNodeLink Link) { FreeTreeNode(0, Link); }

void FreeTreeNode(Integer DataSize, pQXTreeNodeLink Link) {
  if (DataSize > 0) MemFree(Link->Node->Data);
  MemFree(Link->Node);
  MemFree(Link);
}

// --- Blocks in reserved address space ----------------------------------------

void vGetMem(void*& P, Integer Size) {
  CommitMem(P, BlockSize(Size));
  std::memcpy(P, &Size, sizeof Size);
  P = static_cast<std::byte*>(P) + sizeof Size;
}

void vFreeMem(void* P, Integer Size) {
  void* const start = static_cast<std::byte*>(P) - sizeof Size;
  DecommitMem(start, BlockSize(Size));
  ReleaseMem(start);
}

void vFreeMem(void* P) {
  Integer size = 0;
  std::memcpy(&size, static_cast<const std::byte*>(P) - sizeof size, sizeof size);
  vFreeMem(P, size);
}

// --- The store: making and freeing -------------------------------------------

TQXTreeNodes::TQXTreeNodes(Integer ADataSize) : FDataSize(ADataSize), FPool(std::make_unique<NodePool>()) {
  FreshKey();  // on purpose: the root draws a key like every node, and drops it
  Record root(MakeRecord(sizeof(LinkAndNode)));
  void* const data = MakeData(ADataSize);
  FRoot = new (root.release()) LinkAndNode({}, kRootKey, data, 0);
}

TQXTreeNodes::~TQXTreeNodes() {
  if (FDataSize > 0) MemFree(FRoot->Node->Data);
  MemFree(FRoot);
}

pQXTreeNodeLink TQXTreeNodes::MakeLink(pQXTreeNodeLink parent) {
  Record data(MakeData(FDataSize));
  const TQXTreeNode& node = *parent->Node;
  const pQXTreeNodeLink link = FPool->Make(node.Key, FreshKey(), data.get(), node.Level + 1);
  try {
    if (FIndex != nullptr) FIndex->Insert(link);
  } catch (...) {
    FPool->Free(link);
    throw;
  }
  static_cast<void>(data.release());
  return link;
}

// On purpose: the data block stays, it is the caller's.
void TQXTreeNodes::FreeLink(pQXTreeNodeLink link) {
  if (link == FCurrent) FCurrent = nullptr;
  if (FIndex != nullptr) FIndex->Erase(link);
  FPool->Free(link);
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
  FCurrent = FRoot;
  FOpened = true;
}

void TQXTreeNodes::OpenTreeNode(const TNodeKey& Key) {
  const pQXTreeNodeLink link = Find(Key);
  if (link == nullptr) throw Exception("Key(" + Key.Text() + ") not Found.");
  FCurrent = link;
}

void TQXTreeNodes::CloseTreeNode() {
  FCurrent = nullptr;
  FOpened = false;
}

pQXTreeNode TQXTreeNodes::Add() {
  if (!FOpened || FCurrent == nullptr) throw Exception("TreeNode Not Opend.");
  return Add(FCurrent->Node->Key);
}

pQXTreeNode TQXTreeNodes::Add(const TNodeKey& ParentKey) {
  const pQXTreeNodeLink parent = Find(ParentKey);
  return AddLink(parent != nullptr ? parent : FRoot)->Node;
}

pQXTreeNodeLink TQXTreeNodes::AddLink(pQXTreeNodeLink Parent) {
  const pQXTreeNodeLink link = MakeLink(Parent);
  Append(Parent, link);
  return link;
}

void TQXTreeNodes::Delete(const TNodeKey& Key) {
  const pQXTreeNodeLink link = Find(Key);
  if (link != nullptr) DeleteLink(link);
}

void TQXTreeNodes::DeleteLink(pQXTreeNodeLink Link) {
  FreeBelow(Link);
  if (Link == FRoot) return;
  Unlink(Link);
  FreeLink(Link);
}

void TQXTreeNodes::Delete(pQXTreeNode Node) {
  if (Node != nullptr && !(Node->Key == FRoot->Node->Key)) Delete(Node->Key);
}

void TQXTreeNodes::Delete(const TNodeKey&, Integer) {}

void TQXTreeNodes::Clear() {
  if (FCurrent != FRoot) FCurrent = nullptr;
  FIndex.reset();
  FPool->FreeAll();
  FRoot->FirstChild = LastChildOf(FRoot) = nullptr;
  FRoot->Count = 0;
}

// --- The store: finding ------------------------------------------------------

KeyIndex& TQXTreeNodes::Index() const {
  if (FIndex != nullptr) return *FIndex;
  auto index = std::make_unique<KeyIndex>();
  for (pQXTreeNodeLink link = FRoot; link != nullptr; link = Successor(link, FRoot, true))
    index->Insert(link);
  FIndex = std::move(index);
  return *FIndex;
}

pQXTreeNodeLink TQXTreeNodes::Find(const TNodeKey& key) const {
  return Index().IsShared(key) ? Walk(key, FRoot) : Index().Find(key);
}

// `start` is a link of this store.
pQXTreeNodeLink TQXTreeNodes::FindFrom(const TNodeKey& key, pQXTreeNodeLink start) const {
  if (Index().IsShared(key)) return Walk(key, start);
  const pQXTreeNodeLink link = Index().Find(key);
  return link != nullptr && (start == FRoot || IsInSubtree(link, start)) ? link : nullptr;
}

bool TQXTreeNodes::FindNodeLink(const TNodeKey& Key, pQXTreeNodeLink& Link) const {
  const pQXTreeNodeLink found = Find(Key);
  if (found != nullptr) Link = found;
  return found != nullptr;
}

bool TQXTreeNodes::FindNodeLink(const TNodeKey& Key, pQXTreeNodeLink Start, pQXTreeNodeLink& Link) const {
  if (Start == nullptr) return false;
  const bool isOwn = IsInSubtree(Start, FRoot);
  const pQXTreeNodeLink found = isOwn ? FindFrom(Key, Start) : Walk(Key, Start);
  if (found != nullptr) Link = found;
  return found != nullptr;
}

bool TQXTreeNodes::FindNode(const TNodeKey& Key, pQXTreeNode& Node) const {
  Node = nullptr;
  return FOpened && FCurrent != nullptr && Give(FindFrom(Key, FCurrent), Node);
}

pQXTreeNode TQXTreeNodes::GetItem(const TNodeKey& Key) const {
  pQXTreeNode node = nullptr;
  FindNode(Key, node);
  return node;
}

bool TQXTreeNodes::FindSubNode(const TNodeKey& Key, pQXTreeNode& Node) const {
  const pQXTreeNodeLink link = Find(Key);
  return link != nullptr && Give(link->FirstChild, Node);
}

bool TQXTreeNodes::FindFirstNode(const TNodeKey& Key, pQXTreeNode& Node) const {
  const pQXTreeNodeLink link = Find(Key);
  return link != nullptr && Give(link == FRoot ? FRoot : link->Parent->FirstChild, Node);
}

bool TQXTreeNodes::FindLastNode(const TNodeKey& Key, pQXTreeNode& Node) const {
  const pQXTreeNodeLink link = Find(Key);
  return link != nullptr && Give(link == FRoot ? FRoot : LastChildOf(link->Parent), Node);
}

bool TQXTreeNodes::FindNextNode(const TNodeKey& Key, pQXTreeNode& Node) const {
  const pQXTreeNodeLink link = Find(Key);
  if (link == nullptr) return false;
  Node = nullptr;
  return Give(link->Next, Node);
}

bool TQXTreeNodes::FindPrevNode(const TNodeKey& Key, pQXTreeNode& Node) const {
  const pQXTreeNodeLink link = Find(Key);
  return link != nullptr && Give(link->Prior, Node);
}

pQXTreeNodeLink TQXTreeNodes::FindFirstSubNodeLink(pQXTreeNodeLink Link) const { return Link->FirstChild; }

pQXTreeNodeLink TQXTreeNodes::FindLastSubNodeLink(pQXTreeNodeLink Link) const {
  // Links of NewTreeNode that a caller has tied together himself know no last child.
  pQXTreeNodeLink last = LastChildOf(Link) != nullptr ? LastChildOf(Link) : Link->FirstChild;
  while (last != nullptr && last->Next != nullptr) last = last->Next;
  return last;
}

// --- The store: enumerating --------------------------------------------------

void TQXTreeNodes::EnumTreeNodeLink(pQXTreeNodeLink Link, bool Recursive,
                                    const TEnumTreeNodeProc& Proc) const {
  pQXTreeNodeLink link = HasChildren(Link) ? Link->FirstChild : nullptr;
  while (link != nullptr) {
    Proc(link->Node);
    link = Successor(link, Link, Recursive && link->Count > 0);  // read after the call, which may add
  }
}

void TQXTreeNodes::EnumTreeNode(const TEnumTreeNodeProc& Proc, bool Recursive) const {
  if (FOpened && FCurrent != nullptr) EnumTreeNodeLink(FCurrent, Recursive, Proc);
}

void TQXTreeNodes::EnumTreeNode(const TNodeKey& Key, const TEnumTreeNodeProc& Proc, bool Recursive) const {
  const pQXTreeNodeLink link = Find(Key);
  if (link != nullptr) EnumTreeNodeLink(link, Recursive, Proc);
}

void TQXTreeNodes::EnumAllTreeNode(const TEnumTreeNodeProc& Proc) const {
  EnumTreeNodeLink(FRoot, true, Proc);
}

void TQXTreeNodes::GetTreeNodeList(TList& List) const {
  if (!FOpened || FCurrent == nullptr || !HasChildren(FCurrent)) return;
  List.Clear();
  for (pQXTreeNodeLink link = FCurrent->FirstChild; link != nullptr; link = link->Next) List.Add(link->Node);
}

}  // namespace qxTools::qxTreeList
