/// @file
/// Links found by what they are known by, in constant time on average. For the stores' own use.
#pragma once

#include <qxTools/stores/qxTreeList.h>

#include <vector>

namespace qxTools::qxTreeList {

/// A table of links with open addressing. Each slot holds a link's tag beside it, so that links with other
/// tags are passed by without being read: a tag has `Hash()` and ==. Equal tags need not mean the same, so
/// callers give `matches(link)` too. Inserting may throw std::bad_alloc; nothing has changed then.
template <class Tag>
class LinkTable {
 public:
  void Clear() {
    FSlots.clear();
    FUsed = 0;
  }

  /// The link, or null.
  template <class Matches>
  pQXTreeNodeLink Find(const Tag& tag, Matches matches) const {
    return FSlots.empty() ? nullptr : FSlots[SlotOf(tag, matches)].link;
  }

  /// Puts the link in unless one is there that matches. @return that one, or null.
  template <class Matches>
  pQXTreeNodeLink Insert(pQXTreeNodeLink link, const Tag& tag, Matches matches) {
    if (FUsed * 4 >= FSlots.size() * 3) Grow();
    Slot& slot = FSlots[SlotOf(tag, matches)];
    if (slot.link != nullptr) return slot.link;
    slot = {link, tag};
    ++FUsed;
    return nullptr;
  }

  /// Takes out the link that matches, which is there.
  template <class Matches>
  void Erase(const Tag& tag, Matches matches) {
    Empty(SlotOf(tag, matches));
  }

 private:
  static constexpr std::size_t kFirstSize = 16;

  // The next slot is the next choice, and a slot without a link ends the search.
  struct Slot {
    pQXTreeNodeLink link = nullptr;
    Tag tag{};
  };

  // The slot that holds the link, or the free one where it belongs.
  template <class Matches>
  std::size_t SlotOf(const Tag& tag, Matches matches) const {
    std::size_t slot = HomeOf(tag);
    while (FSlots[slot].link != nullptr && !(FSlots[slot].tag == tag && matches(FSlots[slot].link)))
      slot = Next(slot);
    return slot;
  }

  // Moves up what a search would no longer reach behind the gap.
  void Empty(std::size_t gap) {
    for (std::size_t slot = Next(gap); FSlots[slot].link != nullptr; slot = Next(slot)) {
      const std::size_t fromHome = (slot - HomeOf(FSlots[slot].tag)) & Mask();
      const std::size_t fromGap = (slot - gap) & Mask();
      if (fromHome < fromGap) continue;
      FSlots[gap] = FSlots[slot];
      gap = slot;
    }
    FSlots[gap] = {};
    --FUsed;
  }

  void Grow() {
    std::vector<Slot> old(FSlots.empty() ? kFirstSize : FSlots.size() * 2);
    old.swap(FSlots);
    for (const Slot& entry : old) {
      if (entry.link == nullptr) continue;
      std::size_t slot = HomeOf(entry.tag);
      while (FSlots[slot].link != nullptr) slot = Next(slot);
      FSlots[slot] = entry;
    }
  }

  std::size_t Mask() const { return FSlots.size() - 1; }
  std::size_t HomeOf(const Tag& tag) const { return tag.Hash() & Mask(); }
  std::size_t Next(std::size_t slot) const { return (slot + 1) & Mask(); }

  std::vector<Slot> FSlots;  // a power of two of them
  std::size_t FUsed = 0;
};

}  // namespace qxTools::qxTreeList
