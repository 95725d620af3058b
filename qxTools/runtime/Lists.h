/// @file
/// The list of pointers.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <vector>

namespace qxTools {

/// Pointers in order. The list owns nothing that they point at.
class QXTOOLS_API TList : public TObject {
 public:
  ~TList() override;

  /// Appends a pointer. @return its index, from 0.
  Integer Add(void* item);
  /// Drops all pointers.
  void Clear() { items_.clear(); }
  Integer GetCount() const { return static_cast<Integer>(items_.size()); }

  /// @throws EListError when the index is not in the list.
  void* GetItems(Integer index) const;

 private:
  std::vector<void*> items_;
};

}  // namespace qxTools
