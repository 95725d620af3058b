// Finding the records of a list by name in constant time on average.
#pragma once

#include <qxTools/data/NamedRecord.h>

#include <optional>
#include <unordered_map>

namespace qxTools {

/// How often the name of a record was changed by a caller, in all lists together.
std::uint64_t NameChanges();

/// The first and last place of each key in a list. Records are handed out, and a caller may have changed a
/// name since the index was built: then one look-up walks the list, and the index is built again only when
/// the next one finds the names unchanged. So changing and looking up in turn costs a walk each time, never a
/// new index.
class RecordIndex {
 public:
  struct Places {
    Integer first = -1;
    Integer last = -1;

    void Add(Integer place) {
      if (first < 0) first = place;
      last = place;
    }
  };

  RecordIndex() { places_.max_load_factor(0.5F); }

  /// The list has changed otherwise than by an Append.
  void Drop() {
    places_.clear();
    builtAt_.reset();
    walkedAt_.reset();
  }

  /// A record was appended at `place`.
  void Append(std::string_view key, Integer place) {
    if (builtAt_) places_[std::string(key)].Add(place);
  }

  /// @param keyAt gives the key at a place from 0 to count - 1, as a view or as what converts to one.
  template <class KeyAt>
  Places Find(std::string_view key, Integer count, KeyAt keyAt) {
    const std::uint64_t now = NameChanges();
    if (builtAt_ != now) {
      if (walkedAt_ != now) {
        walkedAt_ = now;
        return Walk(key, count, keyAt);
      }
      Build(count, keyAt);
      builtAt_ = now;
    }
    const auto found = places_.find(key);
    return found != places_.end() ? found->second : Places();
  }

 private:
  // Not noexcept: the table then keeps the hashes and need not compute those of the keys that it passes.
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>()(key); }
  };

  template <class KeyAt>
  static Places Walk(std::string_view key, Integer count, KeyAt keyAt) {
    Places places;
    for (Integer i = 0; i < count; ++i)
      if (std::string_view(keyAt(i)) == key) places.Add(i);
    return places;
  }

  template <class KeyAt>
  void Build(Integer count, KeyAt keyAt) {
    Drop();
    for (Integer i = 0; i < count; ++i) places_[std::string(std::string_view(keyAt(i)))].Add(i);
  }

  std::unordered_map<std::string, Places, Hash, std::equal_to<>> places_;
  std::optional<std::uint64_t> builtAt_;   // NameChanges() then
  std::optional<std::uint64_t> walkedAt_;  // the same of the last walk
};

}  // namespace qxTools
