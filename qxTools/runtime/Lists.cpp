#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/Lists.h>

namespace qxTools {

TList::~TList() = default;

Integer TList::Add(void* item) {
  items_.push_back(item);
  return GetCount() - 1;
}

void* TList::GetItems(Integer index) const {
  if (index < 0 || index >= GetCount()) RaiseListIndex(index);
  return items_[static_cast<std::size_t>(index)];
}

}  // namespace qxTools
