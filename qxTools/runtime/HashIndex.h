/// @file
/// Finding values by what they are known by, in constant time on average. For the library's own use.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qxTools {

/// What HashIndex keeps beside a value: the hash of what it is known by.
struct HashTag {
  std::uint32_t hash = 0;

  bool operator==(const HashTag&) const = default;
};

/// A hash table with open addressing that keeps small values (a link, a place in a list), not the names or
/// keys that they are found by: those stay where they are, and the owner compares them by `matches(value)`.
/// Values with another tag are passed by without being read.
///
/// Why a table of its own: the core links the standard library only, whose tables ask for memory for each
/// value: filling one takes 1.6 to 4 times as long. Finding takes as long as in Abseil's table of the same
/// values (bench/runtime/HashIndex_bench.cpp).
///
/// `Value()` marks a free slot, so it cannot be put in. Any insertion or removal may move the others.
template <class Value>
class HashIndex {
 public:
  void Clear() {
    slots_.clear();
    used_ = 0;
  }

  /// Makes room for `count` values in all. @throws std::bad_alloc; nothing has changed then.
  void Reserve(std::size_t count) {
    std::size_t size = kFewest;
    while (size / 2 < count) size *= 2;
    if (size > slots_.size()) Rehash(size);
  }

  /// Returns the value that matches, or null.
  template <class Matches>
  const Value* Find(HashTag tag, Matches matches) const {
    if (slots_.empty()) return nullptr;
    const Slot& slot = slots_[SlotOf(tag, matches)];
    return IsFree(slot) ? nullptr : &slot.value;
  }

  /// Returns the value that matches; if there is none, puts `value` in and returns that. The caller may
  /// change it, but not to Value() and not to one that is found by another name.
  /// @throws std::bad_alloc; nothing has changed then.
  template <class Matches>
  Value& Insert(const Value& value, HashTag tag, Matches matches) {
    if (used_ >= slots_.size() / 2) Rehash(slots_.empty() ? kFewest : slots_.size() * 2);
    Slot& slot = slots_[SlotOf(tag, matches)];
    if (IsFree(slot)) {
      slot = {value, tag};
      ++used_;
    }
    return slot.value;
  }

  /// Removes the value that matches, which must be there.
  template <class Matches>
  void Erase(HashTag tag, Matches matches) {
    Free(SlotOf(tag, matches));
  }

 private:
  static constexpr std::size_t kFewest = 16;

  // A search goes from slot to slot, from the tag's home to the first free one.
  struct Slot {
    Value value{};
    HashTag tag{};
  };

  static bool IsFree(const Slot& slot) { return slot.value == Value(); }

  // The slot of the value that matches, or the free one where it belongs.
  template <class Matches>
  std::size_t SlotOf(HashTag tag, Matches matches) const {
    std::size_t slot = HomeOf(tag);
    while (!IsFree(slots_[slot]) && !(slots_[slot].tag == tag && matches(slots_[slot].value)))
      slot = Next(slot);
    return slot;
  }

  // Moves up what a search would no longer reach after the gap.
  void Free(std::size_t gap) {
    for (std::size_t slot = Next(gap); !IsFree(slots_[slot]); slot = Next(slot)) {
      const std::size_t fromHome = (slot - HomeOf(slots_[slot].tag)) & Mask();
      const std::size_t fromGap = (slot - gap) & Mask();
      if (fromHome < fromGap) continue;
      slots_[gap] = slots_[slot];
      gap = slot;
    }
    slots_[gap] = {};
    --used_;
  }

  void Rehash(std::size_t size) {
    std::vector<Slot> old(size);
    old.swap(slots_);
    for (const Slot& entry : old) {
      if (IsFree(entry)) continue;
      std::size_t slot = HomeOf(entry.tag);
      while (!IsFree(slots_[slot])) slot = Next(slot);
      slots_[slot] = entry;
    }
  }

  std::size_t Mask() const { return slots_.size() - 1; }
  std::size_t HomeOf(HashTag tag) const { return tag.hash & Mask(); }
  std::size_t Next(std::size_t slot) const { return (slot + 1) & Mask(); }

  std::vector<Slot> slots_;  // a power of two of them
  std::size_t used_ = 0;
};

}  // namespace qxTools
