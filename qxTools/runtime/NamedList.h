/// @file
/// A list that owns its items and finds them by name. For the library's own use.
#pragma once

#include <qxTools/runtime/NamePlaces.h>
#include <qxTools/runtime/OwnedList.h>

namespace qxTools {

/// Items in order, as in OwnedList, and the places of their names. `Naming::Of(item)` gives the name by which
/// an item is found, and `Naming::Same(name, asked)` says whether it is the one that is looked up. After an
/// item's name has changed, the names must be dropped. If memory runs out, std::bad_alloc is thrown and the
/// list is unchanged.
template <class Item, class Naming>
class NamedList {
 public:
  Integer GetCount() const { return items_.GetCount(); }
  Item* GetItems(Integer index) const { return items_.GetItems(index); }

  Item* Add(std::unique_ptr<Item> item) {
    Item* const added = items_.Add(std::move(item));
    names_.Append(GetCount() - 1, NamesOfItems());
    return added;
  }

  /// Calls `add`, which adds items. What it has added is deleted again if it throws.
  template <class Call>
  void AddAllOrNothing(Call add) {
    const Integer before = GetCount();
    try {
      add();
    } catch (...) {
      while (GetCount() > before) Delete(GetCount() - 1);
      throw;
    }
  }

  void Insert(Integer index, std::unique_ptr<Item> item) {
    items_.Insert(index, std::move(item));
    names_.Drop();
  }

  void Delete(Integer index) {
    items_.Delete(index);
    names_.Drop();
  }

  void Clear() {
    items_.Clear();
    names_.Drop();
  }

  NamePlaces::Places Find(const HashedName& name) { return names_.Find(name, GetCount(), NamesOfItems()); }
  NamePlaces& Names() { return names_; }

 private:
  struct NameReader : Naming {
    std::string_view At(Integer i) const { return Naming::Of(*items->GetItems(i)); }
    const OwnedList<Item>* items;
  };

  NameReader NamesOfItems() const { return {{}, &items_}; }

  OwnedList<Item> items_;
  NamePlaces names_;
};

}  // namespace qxTools
