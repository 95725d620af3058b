#include <qxTools/stores/IniLookup.h>

#include <new>

namespace qxTools::qxIniTools {

using qxTreeList::Predecessor;
using qxTreeList::Successor;

namespace {

constexpr Integer kShortRecord = 16;  // a walk over so few names is as quick

bool IsAboveOrSame(pQXTreeNodeLink above, pQXTreeNodeLink link) {
  while (link != nullptr && link != above) link = link->Parent;
  return link != nullptr;
}

}  // namespace

// --- By name -----------------------------------------------------------------

void FirstByName::Build(pQXTreeNodeLink parent) {
  FParent = nullptr;
  FShared = false;
  FNodes.clear();
  FNodes.reserve(static_cast<std::size_t>(parent->Count));
  for (pQXTreeNodeLink link = parent->FirstChild; link != nullptr; link = link->Next) Put(link->Node);
  FParent = parent;
}

pQXTreeNode FirstByName::Find(std::string_view name) const {
  const auto found = FNodes.find(name);
  return found != FNodes.end() ? found->second : nullptr;
}

pQXTreeNode FirstByName::Walk(pQXTreeNodeLink parent, std::string_view name) const {
  for (pQXTreeNodeLink link = parent->FirstChild; link != nullptr; link = link->Next)
    if (PairOf(link->Node) != nullptr && SameText(NameOf(link->Node), name)) return link->Node;
  return nullptr;
}

void FirstByName::Append(pQXTreeNode node) {
  try {
    Put(node);
  } catch (const std::bad_alloc&) {
    Drop();  // the node is there, the index is only an aid
  }
}

void FirstByName::Put(pQXTreeNode node) {
  if (PairOf(node) != nullptr && !FNodes.emplace(NameOf(node), node).second) FShared = true;
}

void FirstByName::Remove(pQXTreeNode node) {
  if (FParent == nullptr || PairOf(node) == nullptr) return;
  const auto found = FNodes.find(NameOf(node));
  if (found == FNodes.end() || found->second != node) return;
  FNodes.erase(found);
  if (FShared) Drop();
}

// --- By number ---------------------------------------------------------------

pQXTreeNodeLink NumberedNodes::Find(pQXTreeNodeLink section, Integer number) {
  if (number < 1) return nullptr;
  if (section != FSection || number < FNumber / 2) {
    FSection = FPlace = section;
    FNumber = 0;
  }
  pQXTreeNodeLink link = FPlace;
  for (Integer i = FNumber; i > number; --i) link = Predecessor(link);
  for (Integer i = FNumber; i < number && link != nullptr; ++i) link = Successor(link, section, true);
  if (link == nullptr) return nullptr;
  FPlace = link;
  FNumber = number;
  return link;
}

void NumberedNodes::Added(pQXTreeNodeLink parent) {
  // The new node stands behind the place when that is its parent, or when it is the section's last.
  if (parent != FPlace && parent != FSection) Forget();
}

void NumberedNodes::Deleting(pQXTreeNodeLink link) {
  if (link->Parent == FPlace) return;
  if (link == FPlace && link != FSection) {
    FPlace = Predecessor(link);
    --FNumber;
  } else {
    Forget();
  }
}

// --- Both --------------------------------------------------------------------

// An index is built for a long record that is searched twice in a row.
pQXTreeNode TQXIniFile::Lookup::FindField(pQXTreeNodeLink record, std::string_view name) {
  const bool again = record == walked;
  walked = record;
  if (record->Count <= kShortRecord || (!again && fields.GetParent() != record))
    return fields.Walk(record, name);
  if (fields.GetParent() != record) fields.Build(record);
  return fields.Find(name);
}

void TQXIniFile::Lookup::Added(pQXTreeNode node, pQXTreeNodeLink parent) {
  if (parent == sections.GetParent()) sections.Append(node);
  if (parent == fields.GetParent()) fields.Append(node);
  numbers.Added(parent);
}

void TQXIniFile::Lookup::Deleting(pQXTreeNodeLink link) {
  sections.Remove(link->Node);
  fields.Remove(link->Node);
  if (fields.GetParent() != nullptr && IsAboveOrSame(link, fields.GetParent())) fields.Drop();
  numbers.Deleting(link);
}

void TQXIniFile::Lookup::Clear() {
  sections.Drop();
  fields.Drop();
  walked = nullptr;
  numbers.Forget();
}

}  // namespace qxTools::qxIniTools
