/// @file
/// A list of pointers.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <vector>

namespace qxTools {

/// An ordered list of pointers. The objects that they point to are not owned by the list.
class QXTOOLS_API TList : public TObject {
 public:
  ~TList() override;

  /// Appends a pointer and returns its index, which counts from 0. If memory runs out, std::bad_alloc is
  /// thrown and the list is unchanged.
  Integer Add(void* item);
  /// Removes all pointers.
  void Clear() { items_.clear(); }
  /// Returns the number of pointers.
  Integer GetCount() const { return static_cast<Integer>(items_.size()); }

  /// Returns the pointer at `index`.
  /// @throws EListError "List index out of bounds (N)".
  void* GetItems(Integer index) const;

 private:
  std::vector<void*> items_;
};

}  // namespace qxTools
