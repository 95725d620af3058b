/// @file
/// Finding the items of a list by name, in constant time on average. For the library's own use.
#pragma once

#include <qxTools/base/CaselessHash.h>
#include <qxTools/base/Types.h>
#include <qxTools/runtime/HashIndex.h>

#include <new>

namespace qxTools {

/// The first and the last place of each name in a list. The names are not copied: `names.At(place)` is one of
/// the list, and `names.Same(name, asked)` compares it with the one that is looked up, with letter case or
/// without.
///
/// After a change of the list or of a name, the first look-up walks the list and the second one builds the
/// index, so that changing and looking up in turn costs a walk each time and never a new index. Without
/// memory for the index, look-ups walk the list too: no function here throws.
class NamePlaces {
 public:
  struct Places {
    Integer first = -1;
    Integer last = -1;

    bool operator==(const Places&) const = default;
  };

  /// To be called after any change of the list or of a name, but for Append.
  void Drop() {
    index_.Clear();
    state_ = State::kChanged;
  }

  /// Drops if `changes`, a count of changes of names, is not the number of the last call.
  void Follow(std::uint64_t changes) {
    if (changes != changes_) Drop();
    changes_ = changes;
  }

  /// To be called after an item was appended at `place`.
  template <class Names>
  void Append(Integer place, Names names) {
    if (state_ != State::kIndexed) return;
    try {
      Put(place, names);
    } catch (const std::bad_alloc&) {
      Drop();
    }
  }

  /// Returns the places of `name` among the places from 0 to count - 1; -1 twice if it is at none.
  template <class Names>
  Places Find(const HashedName& name, Integer count, Names names) {
    if (state_ != State::kIndexed && !IsIndexed(count, names)) return Walk(name.text, count, names);
    const Places* const found = index_.Find({name.hash}, Matching(name.text, names));
    return found != nullptr ? *found : Places();
  }

 private:
  enum class State { kChanged, kWalked, kIndexed };

  template <class Names>
  static auto Matching(std::string_view name, Names names) {
    return [=](const Places& places) { return names.Same(names.At(places.first), name); };
  }

  // Builds the index for the second look-up in a row.
  template <class Names>
  [[gnu::noinline]] bool IsIndexed(Integer count, Names names) {
    if (state_ == State::kWalked && Build(count, names)) return true;
    state_ = State::kWalked;
    return false;
  }

  template <class Names>
  [[gnu::noinline]] static Places Walk(std::string_view name, Integer count, Names names) {
    Places places;
    for (Integer i = 0; i < count; ++i)
      if (names.Same(names.At(i), name)) places = {places.first < 0 ? i : places.first, i};
    return places;
  }

  template <class Names>
  void Put(Integer place, Names names) {
    const std::string_view name = names.At(place);
    index_.Insert({place, place}, {CaselessHash(name)}, Matching(name, names)).last = place;
  }

  template <class Names>
  bool Build(Integer count, Names names) {
    try {
      index_.Reserve(static_cast<std::size_t>(count));
    } catch (const std::bad_alloc&) {
      return false;
    }
    for (Integer i = 0; i < count; ++i) Put(i, names);
    state_ = State::kIndexed;
    return true;
  }

  HashIndex<Places> index_;
  State state_ = State::kChanged;
  std::uint64_t changes_ = 0;
};

}  // namespace qxTools
