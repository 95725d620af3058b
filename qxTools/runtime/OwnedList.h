/// @file
/// An ordered list that owns its items and hands out plain pointers to them.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/base/Types.h>

#include <memory>
#include <vector>

namespace qxTools {

/// Items keep their address until they are removed. A bad index raises EListError, "List index out of
/// bounds (N)".
template <class Item>
class OwnedList {
 public:
  Integer GetCount() const { return static_cast<Integer>(items_.size()); }

  Item* GetItems(Integer index) const { return items_[Checked(index)].get(); }

  /// Appends an item. @return where it stands from now on.
  Item* Add(std::unique_ptr<Item> item) { return items_.emplace_back(std::move(item)).get(); }

  /// Inserts an item at 0 to the count.
  void Insert(Integer index, std::unique_ptr<Item> item) {
    if (index != GetCount()) Checked(index);
    items_.insert(items_.begin() + index, std::move(item));
  }

  /// Frees an item.
  void Delete(Integer index) { items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(Checked(index))); }

  /// Frees the items, last to first.
  void Clear() {
    while (!items_.empty()) items_.pop_back();
  }

  /// Takes room for so many items.
  void Reserve(std::size_t count) { items_.reserve(count); }

 private:
  std::size_t Checked(Integer index) const {
    if (index < 0 || index >= GetCount()) RaiseListIndex(index);
    return static_cast<std::size_t>(index);
  }

  std::vector<std::unique_ptr<Item>> items_;
};

}  // namespace qxTools
