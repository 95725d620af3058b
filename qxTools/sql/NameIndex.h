// Finding an item of a list by its name in constant time.
#pragma once

#include <qxTools/base/Types.h>

#include <bit>
#include <functional>
#include <vector>

namespace qxTools {

/// The LAST position of each name in a list: a table of positions with open addressing, the names staying
/// with their items. It is dropped when the list or a name changes and built again at the next look-up; an
/// item that is appended is taken in without that.
class NameIndex {
 public:
  void Drop() { built_ = false; }

  /// @param nameAt gives the name at each position from 0 to `position`, which is the new one.
  template <class NameAt>
  void Append(Integer position, NameAt nameAt) {
    if (!built_) return;
    if (static_cast<std::size_t>(position) * 2 >= slots_.size())
      Build(position + 1, nameAt);
    else
      Put(nameAt(position), position, nameAt);
  }

  /// @param nameAt gives the name at each position from 0 to count - 1.
  /// @return the last position of `name`, or -1.
  template <class NameAt>
  Integer Find(std::string_view name, Integer count, NameAt nameAt) {
    if (!built_) Build(count, nameAt);
    return slots_[SlotOf(name, Hash(name), nameAt)].position;
  }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    Integer position = -1;
  };

  static std::uint32_t Hash(std::string_view name) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
  }

  /// The slot that holds the name, or the free one where it belongs.
  template <class NameAt>
  std::size_t SlotOf(std::string_view name, std::uint32_t hash, NameAt nameAt) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = hash & mask;
    while (slots_[i].position >= 0 && !(slots_[i].hash == hash && nameAt(slots_[i].position) == name))
      i = (i + 1) & mask;
    return i;
  }

  template <class NameAt>
  void Put(std::string_view name, Integer position, NameAt nameAt) {
    const std::uint32_t hash = Hash(name);
    slots_[SlotOf(name, hash, nameAt)] = {hash, position};
  }

  template <class NameAt>
  void Build(Integer count, NameAt nameAt) {
    constexpr std::size_t kFewest = 16;
    built_ = false;  // and stays so when there is no memory
    slots_.assign(std::bit_ceil(kFewest + static_cast<std::size_t>(count) * 4), Slot());
    for (Integer i = 0; i < count; ++i) Put(nameAt(i), i, nameAt);
    built_ = true;
  }

  std::vector<Slot> slots_;
  bool built_ = false;
};

}  // namespace qxTools
