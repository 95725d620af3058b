#include <qxTools/base/Exceptions.h>
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/memory/QXMemTools.h>
#include <qxTools/platform/VirtualMemory.h>
#include <qxTools/stores/KeyIndex.h>
#include <qxTools/stores/ZeroedBlock.h>

#include <array>
#include <cstring>

namespace qxTools::qxTreeList {

using QXMemTools::MemFree;
using stores::MakeZeroedBlock;
using stores::ZeroedBlock;

namespace {

constexpr std::string_view kRootKey = "0000000000000000";

TNodeKey FreshKey() {
  std::array<char, 16> key;
  return QXUniKey::UniKeyBytes(key) ? TNodeKey(std::string_view(key.data(), key.size())) : TNodeKey();
}

ZeroedBlock MakeData(Integer size) {
  return size > 0 ? MakeZeroedBlock(static_cast<std::size_t>(size)) : nullptr;
}

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

bool SetIfFound(pQXTreeNodeLink link, pQXTreeNode& node) {
  if (link != nullptr) node = NodeOf(link);
  return link != nullptr;
}

std::size_t BlockSize(Integer size) { return static_cast<std::uint32_t>(size) + std::uint32_t{sizeof size}; }

}  // namespace

// --- Records -----------------------------------------------------------------

void NewTreeNode(pQXTreeNodeLink& link) { NewTreeNode(0, link); }

void NewTreeNode(Integer dataSize, pQXTreeNodeLink& link) {
  ZeroedBlock made = MakeZeroedBlock(sizeof(LinkWithLastChild));
  ZeroedBlock node = MakeZeroedBlock(sizeof(TQXTreeNode));
  ZeroedBlock data = MakeData(dataSize);
  const TNodeKey key = FreshKey();
  link = new (made.release()) LinkWithLastChild();
  link->Node = new (node.release()) TQXTreeNode{{}, key, data.release(), 0};
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

struct TQXTreeNodes::State {
  Integer dataSize;
  NodePool pool{};  // the root's number is 1
  pQXTreeNodeLink root = nullptr;
  pQXTreeNodeLink current = nullptr;
  bool opened = false;
  std::unique_ptr<KeyIndex> index{};  // made by the first search for a key

  pQXTreeNodeLink Open() const { return opened ? current : nullptr; }
  pQXTreeNodeLink Make(pQXTreeNodeLink parent);
  void Free(pQXTreeNodeLink link);
  void FreeBelow(pQXTreeNodeLink top);
  KeyIndex& Index() { return index != nullptr ? *index : MakeIndex(); }
  KeyIndex& MakeIndex();
  pQXTreeNodeLink Find(const TNodeKey& key);
  pQXTreeNodeLink FindFrom(const TNodeKey& key, pQXTreeNodeLink start);
};

TQXTreeNodes::TQXTreeNodes(Integer aDataSize) : state_(new State{aDataSize}) {
  FreshKey();  // on purpose: the root draws a key like every node, and drops it
  ZeroedBlock data = MakeData(aDataSize);
  state_->root = state_->pool.Make(TNodeKey(), TNodeKey(kRootKey), data.get(), 0);
  static_cast<void>(data.release());
}

TQXTreeNodes::~TQXTreeNodes() {
  if (state_->dataSize > 0) MemFree(state_->root->Node->Data);
}

pQXTreeNodeLink TQXTreeNodes::State::Make(pQXTreeNodeLink parent) {
  ZeroedBlock data = MakeData(dataSize);
  const TQXTreeNode& node = *parent->Node;
  const pQXTreeNodeLink link = pool.Make(node.Key, FreshKey(), data.get(), node.Level + 1);
  try {
    if (index != nullptr) index->Insert(link);
  } catch (...) {
    pool.Free(WithNode(link));
    throw;
  }
  static_cast<void>(data.release());
  return link;
}

// On purpose: the data block is not freed, it is the caller's.
void TQXTreeNodes::State::Free(pQXTreeNodeLink link) {
  if (link == current) current = nullptr;
  if (index != nullptr) index->Erase(link);
  pool.Free(WithNode(link));
}

// Children first, down to a leaf and back by the parents.
void TQXTreeNodes::State::FreeBelow(pQXTreeNodeLink top) {
  pQXTreeNodeLink link = top;
  while (true) {
    while (link->FirstChild != nullptr) link = link->FirstChild;
    if (link == top) break;
    const pQXTreeNodeLink parent = link->Parent;
    const pQXTreeNodeLink next = link->Next;
    Free(link);
    parent->FirstChild = next;
    link = next != nullptr ? next : parent;
  }
  top->Count = 0;
  LastChildOf(top) = nullptr;
}

// --- The store: opening, adding, deleting ------------------------------------

pQXTreeNodeLink TQXTreeNodes::GetRootLink() const { return state_->root; }

pQXTreeNode TQXTreeNodes::GetRootNode() const { return state_->root->Node; }

void TQXTreeNodes::OpenRootNode() {
  state_->current = state_->root;
  state_->opened = true;
}

void TQXTreeNodes::OpenTreeNode(const TNodeKey& key) {
  const pQXTreeNodeLink link = state_->Find(key);
  if (link == nullptr) throw Exception("Key(" + key.Text() + ") not Found.");
  state_->current = link;
}

void TQXTreeNodes::CloseTreeNode() {
  state_->current = nullptr;
  state_->opened = false;
}

pQXTreeNode TQXTreeNodes::Add() {
  if (state_->Open() == nullptr) throw Exception("TreeNode Not Opend.");
  return Add(state_->current->Node->Key);
}

pQXTreeNode TQXTreeNodes::Add(const TNodeKey& parentKey) {
  const pQXTreeNodeLink parent = state_->Find(parentKey);
  return NodeOf(AddLink(parent != nullptr ? parent : state_->root));
}

pQXTreeNodeLink TQXTreeNodes::AddLink(pQXTreeNodeLink parent) {
  const pQXTreeNodeLink link = state_->Make(parent);
  Append(parent, link);
  return link;
}

void TQXTreeNodes::Delete(const TNodeKey& key) {
  const pQXTreeNodeLink link = state_->Find(key);
  if (link != nullptr) DeleteLink(link);
}

void TQXTreeNodes::DeleteLink(pQXTreeNodeLink link) {
  state_->FreeBelow(link);
  if (link == state_->root) return;
  Unlink(link);
  state_->Free(link);
}

void TQXTreeNodes::Delete(pQXTreeNode node) {
  if (node != nullptr && !(node->Key == kRootKey)) Delete(node->Key);
}

void TQXTreeNodes::Delete(const TNodeKey&, Integer) {}

void TQXTreeNodes::Clear() {
  State& state = *state_;
  if (state.current != state.root) state.current = nullptr;
  state.index.reset();
  state.pool.FreeFrom(2);
  state.root->FirstChild = LastChildOf(state.root) = nullptr;
  state.root->Count = 0;
}

// --- The store: finding ------------------------------------------------------

KeyIndex& TQXTreeNodes::State::MakeIndex() {
  auto made = std::make_unique<KeyIndex>(pool);
  for (pQXTreeNodeLink link = root; link != nullptr; link = Successor(link, root, true)) made->Insert(link);
  index = std::move(made);
  return *index;
}

pQXTreeNodeLink TQXTreeNodes::State::Find(const TNodeKey& key) {
  const pQXTreeNodeLink link = Index().Find(key);
  return link == nullptr && index->IsShared(key) ? Walk(key, root) : link;
}

// `start` is a link of this store.
pQXTreeNodeLink TQXTreeNodes::State::FindFrom(const TNodeKey& key, pQXTreeNodeLink start) {
  const pQXTreeNodeLink link = Index().Find(key);
  if (link == nullptr) return index->IsShared(key) ? Walk(key, start) : nullptr;
  return start == root || IsInSubtree(link, start) ? link : nullptr;
}

bool TQXTreeNodes::FindNodeLink(const TNodeKey& key, pQXTreeNodeLink& link) const {
  const pQXTreeNodeLink found = state_->Find(key);
  if (found != nullptr) link = found;
  return found != nullptr;
}

bool TQXTreeNodes::FindNodeLink(const TNodeKey& key, pQXTreeNodeLink start, pQXTreeNodeLink& link) const {
  if (start == nullptr) return false;
  const bool isOwn = IsInSubtree(start, state_->root);
  const pQXTreeNodeLink found = isOwn ? state_->FindFrom(key, start) : Walk(key, start);
  if (found != nullptr) link = found;
  return found != nullptr;
}

bool TQXTreeNodes::FindNode(const TNodeKey& key, pQXTreeNode& node) const {
  node = nullptr;
  const pQXTreeNodeLink open = state_->Open();
  return open != nullptr && SetIfFound(state_->FindFrom(key, open), node);
}

pQXTreeNode TQXTreeNodes::GetItem(const TNodeKey& key) const {
  pQXTreeNode node = nullptr;
  FindNode(key, node);
  return node;
}

bool TQXTreeNodes::FindSubNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = state_->Find(key);
  return link != nullptr && SetIfFound(link->FirstChild, node);
}

bool TQXTreeNodes::FindFirstNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = state_->Find(key);
  return link != nullptr && SetIfFound(link == state_->root ? state_->root : link->Parent->FirstChild, node);
}

bool TQXTreeNodes::FindLastNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = state_->Find(key);
  return link != nullptr && SetIfFound(link == state_->root ? state_->root : LastChildOf(link->Parent), node);
}

bool TQXTreeNodes::FindNextNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = state_->Find(key);
  if (link == nullptr) return false;
  node = nullptr;
  return SetIfFound(link->Next, node);
}

bool TQXTreeNodes::FindPrevNode(const TNodeKey& key, pQXTreeNode& node) const {
  const pQXTreeNodeLink link = state_->Find(key);
  return link != nullptr && SetIfFound(link->Prior, node);
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
  if (state_->Open() != nullptr) EnumTreeNodeLink(state_->Open(), recursive, proc);
}

void TQXTreeNodes::EnumTreeNode(const TNodeKey& key, const TEnumTreeNodeProc& proc, bool recursive) const {
  const pQXTreeNodeLink link = state_->Find(key);
  if (link != nullptr) EnumTreeNodeLink(link, recursive, proc);
}

void TQXTreeNodes::EnumAllTreeNode(const TEnumTreeNodeProc& proc) const {
  EnumTreeNodeLink(state_->root, true, proc);
}

void TQXTreeNodes::GetTreeNodeList(TList& list) const {
  const pQXTreeNodeLink open = state_->Open();
  if (open == nullptr || !HasChildren(open)) return;
  list.Clear();
  for (pQXTreeNodeLink link = open->FirstChild; link != nullptr; link = link->Next) list.Add(link->Node);
}

}  // namespace qxTools::qxTreeList
