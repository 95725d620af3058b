#include <qxTools/stores/LinkTable.h>

namespace qxTools::qxTreeList {

namespace {

constexpr std::size_t kFirstSize = 16;

}  // namespace

// Moves up what a search would no longer reach behind the gap.
void LinkTable::Empty(std::size_t slot) {
  for (std::size_t next = (slot + 1) & Mask(); FSlots[next].link != nullptr; next = (next + 1) & Mask()) {
    const std::size_t fromHome = (next - FSlots[next].hash) & Mask();
    const std::size_t fromGap = (next - slot) & Mask();
    if (fromHome < fromGap) continue;
    FSlots[slot] = FSlots[next];
    slot = next;
  }
  FSlots[slot] = {};
  --FUsed;
}

void LinkTable::Grow() {
  std::vector<Slot> old(FSlots.empty() ? kFirstSize : FSlots.size() * 2);
  old.swap(FSlots);
  for (const Slot& entry : old) {
    if (entry.link == nullptr) continue;
    std::size_t slot = entry.hash & Mask();
    while (FSlots[slot].link != nullptr) slot = (slot + 1) & Mask();
    FSlots[slot] = entry;
  }
}

}  // namespace qxTools::qxTreeList
