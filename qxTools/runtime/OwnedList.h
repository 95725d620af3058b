/// @file
/// An ordered list that owns its items and returns plain pointers to them.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/base/Types.h>

#include <memory>
#include <vector>

namespace qxTools {

/// A list of items, whose indexes count from 0. An item keeps its address until it is deleted. If memory runs
/// out, std::bad_alloc is thrown and the list is unchanged.
template <class Item>
class OwnedList {
 public:
  /// Returns the number of items.
  Integer GetCount() const { return static_cast<Integer>(items_.size()); }

  /// Returns the item at `index`.
  /// @throws EListError "List index out of bounds (N)".
  Item* GetItems(Integer index) const { return items_[Checked(index)].get(); }

  /// Appends an item and returns its address.
  Item* Add(std::unique_ptr<Item> item) { return items_.emplace_back(std::move(item)).get(); }

  /// Inserts an item before the item at `index`, or at the end if `index` is the number of items.
  /// @throws EListError "List index out of bounds (N)" for any other index.
  void Insert(Integer index, std::unique_ptr<Item> item) {
    if (index != GetCount()) Checked(index);
    items_.insert(items_.begin() + index, std::move(item));
  }

  /// Deletes the item at `index`.
  /// @throws EListError "List index out of bounds (N)".
  void Delete(Integer index) { items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(Checked(index))); }

  /// Deletes all items, from last to first.
  void Clear() {
    while (!items_.empty()) items_.pop_back();
  }

  /// Allocates memory for this number of items.
  void Reserve(std::size_t count) { items_.reserve(count); }

 private:
  std::size_t Checked(Integer index) const {
    if (index < 0 || index >= GetCount()) RaiseListIndex(index);
    return static_cast<std::size_t>(index);
  }

  std::vector<std::unique_ptr<Item>> items_;
};

}  // namespace qxTools
