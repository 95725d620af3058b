// The elements behind a Variant array: bytes as they are, everything else as values.
#pragma once

#include <qxTools/runtime/Variant.h>

namespace qxTools {

[[noreturn]] void RaiseArrayIndex();

struct VariantArray {
  VariantArray(std::span<const VarBounds> bounds, VarType element);

  Variant Get(std::span<const Integer> indexes) const;
  void Set(std::span<const Integer> indexes, const Variant& value);
  std::span<const std::uint8_t> Bytes() const;
  std::span<std::uint8_t> Bytes();

  friend bool operator==(const VariantArray&, const VariantArray&) = default;

  std::vector<VarBounds> Bounds;

 private:
  /// The element's place, the first dimension running fastest.
  std::size_t Offset(std::span<const Integer> indexes) const;

  std::variant<std::vector<Variant>, std::vector<std::uint8_t>> elements_;
};

}  // namespace qxTools
