#include <qxTools/stores/IniLookup.h>

#include <new>

namespace qxTools::qxIniTools {

using qxTreeList::IsInSubtree;
using qxTreeList::Predecessor;
using qxTreeList::Successor;

namespace {

constexpr Integer kShortRecord = 16;  // a walk over so few names is as quick

HashTag TagOf(std::string_view name) { return {CaselessHash(name)}; }

}  // namespace

// --- By name -----------------------------------------------------------------

void FirstByName::Build(pQXTreeNodeLink parent) {
  parent_ = nullptr;
  shared_ = false;
  links_.Clear();
  for (pQXTreeNodeLink link = parent->FirstChild; link != nullptr; link = link->Next) Put(link);
  parent_ = parent;
}

bool FirstByName::TryToBuild(pQXTreeNodeLink parent) {
  try {
    Build(parent);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

pQXTreeNodeLink FirstByName::Find(pQXTreeNodeLink parent, std::string_view name) {
  return parent_ == parent || TryToBuild(parent) ? FindIndexed(name) : Walk(parent, name);
}

pQXTreeNodeLink FirstByName::FindIndexed(std::string_view name) const {
  const pQXTreeNodeLink* const found = links_.Find(TagOf(name), HasName(name));
  return found != nullptr ? *found : nullptr;
}

pQXTreeNodeLink FirstByName::Walk(pQXTreeNodeLink parent, std::string_view name) const {
  pQXTreeNodeLink link = parent->FirstChild;
  while (link != nullptr && !(PairOf(link) != nullptr && SameText(NameOf(link), name))) link = link->Next;
  return link;
}

void FirstByName::Append(pQXTreeNodeLink link) {
  try {
    Put(link);
  } catch (const std::bad_alloc&) {
    Invalidate();  // the link is there, the index is only an aid
  }
}

void FirstByName::Put(pQXTreeNodeLink link) {
  if (PairOf(link) == nullptr) return;
  const std::string_view name = NameOf(link);
  if (links_.Insert(link, TagOf(name), HasName(name)) != link) shared_ = true;
}

void FirstByName::Remove(pQXTreeNodeLink link) {
  if (parent_ == nullptr || PairOf(link) == nullptr) return;
  const std::string_view name = NameOf(link);
  if (FindIndexed(name) != link) return;
  links_.Erase(TagOf(name), HasName(name));
  if (shared_) Invalidate();
}

// --- By number ---------------------------------------------------------------

pQXTreeNodeLink IndexCursor::Find(pQXTreeNodeLink section, Integer number) {
  if (number < 1) return nullptr;
  if (section != section_ || number < number_ / 2) {
    section_ = place_ = section;
    number_ = 0;
  }
  pQXTreeNodeLink link = place_;
  for (Integer i = number_; i > number; --i) link = Predecessor(link);
  for (Integer i = number_; i < number && link != nullptr; ++i) link = Successor(link, section, true);
  if (link == nullptr) return nullptr;
  place_ = link;
  number_ = number;
  return link;
}

void IndexCursor::Added(pQXTreeNodeLink parent) {
  // The new node is after the place if that is its parent, or if it is the section's last.
  if (parent != place_ && parent != section_) Forget();
}

void IndexCursor::Deleting(pQXTreeNodeLink link) {
  if (link->Parent == place_) return;
  if (link == place_ && link != section_) {
    place_ = Predecessor(link);
    --number_;
  } else {
    Forget();
  }
}

// --- Both --------------------------------------------------------------------

// An index is built for a long record that is searched twice in a row.
pQXTreeNodeLink Lookup::FindField(pQXTreeNodeLink record, std::string_view name) {
  const bool again = record == lastWalkedRecord;
  lastWalkedRecord = record;
  if (record->Count <= kShortRecord || (!again && fields.GetParent() != record))
    return fields.Walk(record, name);
  return fields.Find(record, name);
}

void Lookup::Added(pQXTreeNodeLink link) {
  if (link->Parent == sections.GetParent()) sections.Append(link);
  if (link->Parent == fields.GetParent()) fields.Append(link);
  numbers.Added(link->Parent);
}

void Lookup::Deleting(pQXTreeNodeLink link) {
  sections.Remove(link);
  fields.Remove(link);
  if (fields.GetParent() != nullptr && IsInSubtree(fields.GetParent(), link)) fields.Invalidate();
  numbers.Deleting(link);
}

void Lookup::Clear() {
  sections.Invalidate();
  fields.Invalidate();
  lastWalkedRecord = nullptr;
  numbers.Forget();
}

}  // namespace qxTools::qxIniTools
