// The elements behind a Variant array: bytes as they are, everything else as values.
#pragma once

#include <qxTools/runtime/Variant.h>

namespace qxTools {

[[noreturn]] void RaiseArrayIndex();

// However deep arrays are nested, comparing and deleting them takes the same room on the stack. Copying needs
// none: the elements of a copy share their arrays.
struct VariantArray {
  VariantArray(std::span<const VarBounds> bounds, VarType element);
  VariantArray(const VariantArray&) = default;
  VariantArray& operator=(const VariantArray&) = delete;
  ~VariantArray();

  Variant Get(std::span<const Integer> indexes) const;
  void Set(std::span<const Integer> indexes, const Variant& value);
  std::span<const std::uint8_t> Bytes() const;
  std::span<std::uint8_t> Bytes();
  /// Whether both are equal apart from the arrays among their elements, which are added to `pending`.
  bool IsLike(const VariantArray& other, VariantArrayPairs& pending) const;

  std::vector<VarBounds> Bounds;

 private:
  /// The element's place, the first dimension running fastest.
  std::size_t Offset(std::span<const Integer> indexes) const;
  /// Puts each array that only this one holds in front of `doomed`, and gives up the others.
  void GiveUpArrays(std::shared_ptr<VariantArray>& doomed);

  // One of them is in use. Not a std::variant: g++ 12 destroys the wrong thing when copying a vector in one
  // runs out of memory.
  bool isBytes_;
  std::vector<Variant> values_;
  std::vector<std::uint8_t> bytes_;
  std::shared_ptr<VariantArray> next_;  // in the chain of those to be deleted
};

}  // namespace qxTools
