/// @file
/// Finding the nodes of a settings file by name and by index without walking from the start each time. For
/// its own use.
#pragma once

#include <qxTools/runtime/HashIndex.h>
#include <qxTools/stores/Caseless.h>
#include <qxTools/stores/TreeOrder.h>
#include <qxTools/stores/qxIniTools.h>

namespace qxTools::qxIniTools {

inline pQXIniPair PairOf(pQXTreeNode node) { return static_cast<pQXIniPair>(node->Data); }
inline pQXIniPair PairOf(pQXTreeNodeLink link) { return PairOf(link->Node); }

/// A text of a pair.
inline std::string_view View(const char* text) { return text != nullptr ? text : std::string_view(); }

/// The first of each name among the children of one parent. Children without a pair have no name.
class FirstByName {
 public:
  /// @param name says which text of a pair is the name.
  explicit FirstByName(char* TQXIniPair::*name) : name_(name) {}

  void Build(pQXTreeNodeLink parent);
  void Drop() { parent_ = nullptr; }
  /// The parent whose children are indexed, or null.
  pQXTreeNodeLink GetParent() const { return parent_; }

  /// The first child of that name, or null.
  pQXTreeNodeLink Find(std::string_view name) const;
  /// The same by a walk over the children of `parent`.
  pQXTreeNodeLink Walk(pQXTreeNodeLink parent, std::string_view name) const;

  /// Takes in a new last child.
  void Append(pQXTreeNodeLink link);
  /// Before a link, which need not be a child, or its pair goes.
  void Remove(pQXTreeNodeLink link);

 private:
  void Put(pQXTreeNodeLink link);
  std::string_view NameOf(pQXTreeNodeLink link) const { return View(PairOf(link)->*name_); }
  auto HasName(std::string_view name) const {
    return [this, name](pQXTreeNodeLink link) { return SameText(NameOf(link), name); };
  }

  char* TQXIniPair::*name_;
  pQXTreeNodeLink parent_ = nullptr;
  bool shared_ = false;  // a name was met twice: when the first goes, the next is not known
  HashIndex<pQXTreeNodeLink> links_;
};

/// The nodes of a section by their number in tree order. The last place is remembered, and the next search
/// starts there when that is nearer.
class NumberedNodes {
 public:
  /// Node `number`, from 1, below `section`; null when there is none.
  pQXTreeNodeLink Find(pQXTreeNodeLink section, Integer number);

  void Forget() { section_ = nullptr; }
  /// After a last child was added to `parent`.
  void Added(pQXTreeNodeLink parent);
  void Deleting(pQXTreeNodeLink link);

 private:
  pQXTreeNodeLink section_ = nullptr;
  pQXTreeNodeLink place_ = nullptr;
  Integer number_ = 0;  // of the place; the section itself is 0
};

struct TQXIniFile::Lookup {
  FirstByName sections{&TQXIniPair::Value};
  FirstByName fields{&TQXIniPair::Name};
  pQXTreeNodeLink walked = nullptr;  // the record searched last; only compared
  NumberedNodes numbers;

  pQXTreeNodeLink FindField(pQXTreeNodeLink record, std::string_view name);
  /// After `link` was added as a last child.
  void Added(pQXTreeNodeLink link);
  /// Before `link` goes with what is below it.
  void Deleting(pQXTreeNodeLink link);
  void Clear();
};

}  // namespace qxTools::qxIniTools
