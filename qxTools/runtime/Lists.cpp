#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/Lists.h>

namespace qxTools {

TList::~TList() = default;

Integer TList::Add(void* Item) {
  FItems.push_back(Item);
  return GetCount() - 1;
}

void* TList::GetItems(Integer Index) const {
  if (Index < 0 || Index >= GetCount()) RaiseListIndex(Index);
  return FItems[static_cast<std::size_t>(Index)];
}

}  // namespace qxTools
