/// @file
/// Links found by a hash, in constant time on average. For the stores' own use.
#pragma once

#include <qxTools/stores/qxTreeList.h>

#include <vector>

namespace qxTools::qxTreeList {

/// A table of links with open addressing. What a link is known by stays with the link: callers give its hash
/// and `matches(link)`, which compares it with what they look for. Inserting may throw std::bad_alloc;
/// nothing has changed then.
class LinkTable {
 public:
  void Clear() {
    FSlots.clear();
    FUsed = 0;
  }

  /// The link, or null.
  template <class Matches>
  pQXTreeNodeLink Find(std::size_t hash, Matches matches) const {
    return FSlots.empty() ? nullptr : FSlots[SlotOf(hash, matches)].link;
  }

  /// Puts the link in unless one is there that matches. @return that one, or null.
  template <class Matches>
  pQXTreeNodeLink Insert(pQXTreeNodeLink link, std::size_t hash, Matches matches) {
    if (FUsed * 4 >= FSlots.size() * 3) Grow();
    Slot& slot = FSlots[SlotOf(hash, matches)];
    if (slot.link != nullptr) return slot.link;
    slot = {link, hash};
    ++FUsed;
    return nullptr;
  }

  /// Takes out the link that matches, which is there.
  template <class Matches>
  void Erase(std::size_t hash, Matches matches) {
    Empty(SlotOf(hash, matches));
  }

 private:
  // The next slot is the next choice, and a slot without a link ends the search.
  struct Slot {
    pQXTreeNodeLink link = nullptr;
    std::size_t hash = 0;
  };

  // The slot that holds the link, or the free one where it belongs.
  template <class Matches>
  std::size_t SlotOf(std::size_t hash, Matches matches) const {
    std::size_t slot = hash & Mask();
    while (FSlots[slot].link != nullptr && !(FSlots[slot].hash == hash && matches(FSlots[slot].link)))
      slot = (slot + 1) & Mask();
    return slot;
  }

  std::size_t Mask() const { return FSlots.size() - 1; }
  void Empty(std::size_t slot);
  void Grow();

  std::vector<Slot> FSlots;  // a power of two of them
  std::size_t FUsed = 0;
};

}  // namespace qxTools::qxTreeList
