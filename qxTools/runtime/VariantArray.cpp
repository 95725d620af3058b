#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/VariantArray.h>

#include <limits>
#include <utility>

namespace qxTools {

namespace {

std::uint64_t Length(const VarBounds& bounds) {
  return static_cast<std::uint64_t>(std::int64_t{bounds.High} - bounds.Low + 1);
}

std::size_t ElementCount(std::span<const VarBounds> bounds) {
  std::uint64_t count = 1;
  for (const VarBounds& dimension : bounds) {
    if (std::int64_t{dimension.High} + 1 < dimension.Low) RaiseArrayIndex();
    count *= Length(dimension);
    if (count > std::uint64_t{std::numeric_limits<Integer>::max()})
      throw EVariantError("Variant array is too large");
  }
  return static_cast<std::size_t>(count);
}

}  // namespace

void RaiseArrayIndex() { throw EVariantError("Variant array index out of bounds"); }

VariantArray::VariantArray(std::span<const VarBounds> bounds, VarType element)
    : Bounds(bounds.begin(), bounds.end()) {
  if (element == varByte)
    elements_ = std::vector<std::uint8_t>(ElementCount(bounds));
  else
    elements_ = std::vector<Variant>(ElementCount(bounds));
}

std::size_t VariantArray::Offset(std::span<const Integer> indexes) const {
  if (indexes.size() != Bounds.size()) RaiseArrayIndex();
  std::uint64_t offset = 0;
  std::uint64_t stride = 1;
  for (std::size_t i = 0; i < indexes.size(); ++i) {
    if (indexes[i] < Bounds[i].Low || indexes[i] > Bounds[i].High) RaiseArrayIndex();
    offset += static_cast<std::uint64_t>(std::int64_t{indexes[i]} - Bounds[i].Low) * stride;
    stride *= Length(Bounds[i]);
  }
  return static_cast<std::size_t>(offset);
}

Variant VariantArray::Get(std::span<const Integer> indexes) const {
  const std::size_t offset = Offset(indexes);
  if (const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&elements_)) return (*bytes)[offset];
  return std::get<std::vector<Variant>>(elements_)[offset];
}

void VariantArray::Set(std::span<const Integer> indexes, const Variant& value) {
  const std::size_t offset = Offset(indexes);
  if (auto* bytes = std::get_if<std::vector<std::uint8_t>>(&elements_))
    (*bytes)[offset] = static_cast<std::uint8_t>(value.AsInteger());
  else
    std::get<std::vector<Variant>>(elements_)[offset] = value;
}

std::span<const std::uint8_t> VariantArray::Bytes() const {
  const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&elements_);
  if (bytes == nullptr) throw EVariantError("Variant is not an array of bytes");
  return *bytes;
}

std::span<std::uint8_t> VariantArray::Bytes() {
  const auto bytes = std::as_const(*this).Bytes();
  return {const_cast<std::uint8_t*>(bytes.data()), bytes.size()};
}

}  // namespace qxTools
