/// @file
/// Finding the nodes of a settings file by name and by index without walking from the start each time. For
/// its own use.
#pragma once

#include <qxTools/base/Ascii.h>
#include <qxTools/base/CaselessHash.h>
#include <qxTools/runtime/HashIndex.h>
#include <qxTools/stores/IniPairs.h>
#include <qxTools/stores/TreeOrder.h>

namespace qxTools::qxIniTools {

/// The first of each name among the children of one parent. Children without a pair have no name.
class FirstByName {
 public:
  /// @param name says which text of a pair is the name.
  explicit FirstByName(char* TQXIniPair::*name) : name_(name) {}

  void Invalidate() { parent_ = nullptr; }
  /// Returns the parent whose children are indexed, or null.
  pQXTreeNodeLink GetParent() const { return parent_; }

  /// Returns the first child of `parent` with that name, or null. Indexes the children first; if memory runs
  /// out for that, walks over them.
  pQXTreeNodeLink Find(pQXTreeNodeLink parent, std::string_view name);
  /// Returns the first child of `parent` with that name, or null, by a walk over the children.
  pQXTreeNodeLink Walk(pQXTreeNodeLink parent, std::string_view name) const;

  /// Takes in a new last child.
  void Append(pQXTreeNodeLink link);
  /// Call it before a link, which need not be a child, or its pair is deleted.
  void Remove(pQXTreeNodeLink link);

 private:
  void Build(pQXTreeNodeLink parent);
  bool TryToBuild(pQXTreeNodeLink parent);
  pQXTreeNodeLink FindIndexed(std::string_view name) const;
  void Put(pQXTreeNodeLink link);
  std::string_view NameOf(pQXTreeNodeLink link) const { return View(PairOf(link)->*name_); }
  auto HasName(std::string_view name) const {
    return [this, name](pQXTreeNodeLink link) { return SameHashedName(NameOf(link), name); };
  }

  char* TQXIniPair::*name_;
  pQXTreeNodeLink parent_ = nullptr;
  bool shared_ = false;  // a name was met twice: when the first is deleted, the next is not known
  HashIndex<pQXTreeNodeLink> links_;
};

/// The nodes of a section by their number in tree order. The last place is remembered, and the next search
/// starts there when that is nearer.
class IndexCursor {
 public:
  /// Returns node `number`, from 1, below `section`; null if there is none.
  pQXTreeNodeLink Find(pQXTreeNodeLink section, Integer number);

  void Forget() { section_ = nullptr; }
  /// Call it after a last child was added to `parent`.
  void Added(pQXTreeNodeLink parent);
  void Deleting(pQXTreeNodeLink link);

 private:
  pQXTreeNodeLink section_ = nullptr;
  pQXTreeNodeLink place_ = nullptr;
  Integer number_ = 0;  // of the place; the section itself is 0
};

struct Lookup {
  FirstByName sections{&TQXIniPair::Value};
  FirstByName fields{&TQXIniPair::Name};
  pQXTreeNodeLink lastWalkedRecord = nullptr;  // only compared
  IndexCursor numbers{};

  pQXTreeNodeLink FindField(pQXTreeNodeLink record, std::string_view name);
  /// Call it after `link` was added as a last child.
  void Added(pQXTreeNodeLink link);
  /// Call it before `link` is deleted with what is below it.
  void Deleting(pQXTreeNodeLink link);
  void Clear();
};

}  // namespace qxTools::qxIniTools
