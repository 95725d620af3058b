/// @file
/// Objects of one type, many to a block of memory. For the stores' own use.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace qxTools::stores {

/// Makes objects that keep their place until they are freed. Each has a number, counted from 1, which takes
/// half the memory of its address. Making, freeing, and finding one by its number take constant time. Memory
/// of an object that was freed is used again; it goes back to the system with all others.
template <class T>
class Pool {
  static_assert(std::is_trivially_destructible_v<T> && sizeof(T) >= sizeof(void*));

 public:
  /// Makes an object. @throws std::bad_alloc; nothing has changed then.
  template <class... Arguments>
  T* Make(Arguments&&... arguments) {
    return new (Take()) T{std::forward<Arguments>(arguments)...};
  }

  void Free(T* object) { freed_ = new (object) Freed{freed_}; }

  /// Frees all objects from that number on. Those below it must be in use.
  void FreeFrom(std::uint32_t number) {
    last_ = number - 1;
    freed_ = nullptr;
    for (auto k = static_cast<std::size_t>(std::bit_width(last_)); k < blocks_.size(); ++k)
      blocks_[k].reset();
  }

  T* At(std::uint32_t number) const {
    const std::size_t k = BlockOf(number);
    return reinterpret_cast<T*>(&blocks_[k][number - FirstOf(k)]);
  }

  /// Returns the number of an object of this pool.
  std::uint32_t NumberOf(const T* object) const {
    std::size_t k = BlockOf(last_);  // the largest, where most objects are
    while (OffsetIn(k, object) >= FirstOf(k) * sizeof(T)) --k;
    return static_cast<std::uint32_t>(FirstOf(k) + OffsetIn(k, object) / sizeof(T));
  }

 private:
  struct Freed {
    Freed* next;
  };
  struct Place {
    alignas(T) std::byte bytes[sizeof(T)];
  };

  // Block k holds the objects with the numbers from 2^k on, 2^k of them.
  static std::size_t BlockOf(std::uint32_t number) {
    return static_cast<std::size_t>(std::countl_zero(number) ^ 31);
  }
  static std::size_t FirstOf(std::size_t k) { return std::size_t{1} << k; }
  // Above the size of the block if the object is not in it.
  std::size_t OffsetIn(std::size_t k, const T* object) const {
    return reinterpret_cast<std::uintptr_t>(object) - reinterpret_cast<std::uintptr_t>(blocks_[k].get());
  }

  void* Take() {
    if (freed_ != nullptr) return std::exchange(freed_, freed_->next);
    if (last_ == std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    std::unique_ptr<Place[]>& block = blocks_[BlockOf(last_ + 1)];
    if (block == nullptr) block = std::make_unique_for_overwrite<Place[]>(FirstOf(BlockOf(last_ + 1)));
    return At(++last_);
  }

  std::array<std::unique_ptr<Place[]>, 32> blocks_;
  std::uint32_t last_ = 0;  // of the numbers given so far
  Freed* freed_ = nullptr;
};

}  // namespace qxTools::stores
