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
    slots_.clear();
    used_ = 0;
  }

  /// The link, or null.
  template <class Matches>
  pQXTreeNodeLink Find(const Tag& tag, Matches matches) const {
    return slots_.empty() ? nullptr : slots_[SlotOf(tag, matches)].link;
  }

  /// Puts the link in unless one is there that matches. @return that one, or null.
  template <class Matches>
  pQXTreeNodeLink Insert(pQXTreeNodeLink link, const Tag& tag, Matches matches) {
    if (used_ * 4 >= slots_.size() * 3) Grow();
    Slot& slot = slots_[SlotOf(tag, matches)];
    if (slot.link != nullptr) return slot.link;
    slot = {link, tag};
    ++used_;
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
    while (slots_[slot].link != nullptr && !(slots_[slot].tag == tag && matches(slots_[slot].link)))
      slot = Next(slot);
    return slot;
  }

  // Moves up what a search would no longer reach behind the gap.
  void Empty(std::size_t gap) {
    for (std::size_t slot = Next(gap); slots_[slot].link != nullptr; slot = Next(slot)) {
      const std::size_t fromHome = (slot - HomeOf(slots_[slot].tag)) & Mask();
      const std::size_t fromGap = (slot - gap) & Mask();
      if (fromHome < fromGap) continue;
      slots_[gap] = slots_[slot];
      gap = slot;
    }
    slots_[gap] = {};
    --used_;
  }

  void Grow() {
    std::vector<Slot> old(slots_.empty() ? kFirstSize : slots_.size() * 2);
    old.swap(slots_);
    for (const Slot& entry : old) {
      if (entry.link == nullptr) continue;
      std::size_t slot = HomeOf(entry.tag);
      while (slots_[slot].link != nullptr) slot = Next(slot);
      slots_[slot] = entry;
    }
  }

  std::size_t Mask() const { return slots_.size() - 1; }
  std::size_t HomeOf(const Tag& tag) const { return tag.Hash() & Mask(); }
  std::size_t Next(std::size_t slot) const { return (slot + 1) & Mask(); }

  std::vector<Slot> slots_;  // a power of two of them
  std::size_t used_ = 0;
};

}  // namespace qxTools::qxTreeList
