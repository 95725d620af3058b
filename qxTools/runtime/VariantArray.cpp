#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/VariantArray.h>

#include <algorithm>
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
    : Bounds(bounds.begin(), bounds.end()), isBytes_(element == varByte) {
  if (isBytes_)
    bytes_.resize(ElementCount(bounds));
  else
    values_.resize(ElementCount(bounds));
}

VariantArray::~VariantArray() {
  std::shared_ptr<VariantArray> doomed;
  GiveUpArrays(doomed);
  while (doomed != nullptr) {
    const std::shared_ptr<VariantArray> array = std::move(doomed);
    doomed = std::move(array->next_);
    array->GiveUpArrays(doomed);
  }
}

void VariantArray::GiveUpArrays(std::shared_ptr<VariantArray>& doomed) {
  for (Variant& value : values_) {
    std::shared_ptr<VariantArray> array = value.TakeArray();
    if (array == nullptr || array.use_count() > 1) continue;
    array->next_ = std::move(doomed);
    doomed = std::move(array);
  }
}

bool VariantArray::IsLike(const VariantArray& other, VariantArrayPairs& pending) const {
  const auto isLike = [&pending](const Variant& a, const Variant& b) { return a.IsLike(b, pending); };
  return Bounds == other.Bounds && isBytes_ == other.isBytes_ && bytes_ == other.bytes_ &&
         std::equal(values_.begin(), values_.end(), other.values_.begin(), other.values_.end(), isLike);
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
  return isBytes_ ? Variant(bytes_[offset]) : values_[offset];
}

void VariantArray::Set(std::span<const Integer> indexes, const Variant& value) {
  const std::size_t offset = Offset(indexes);
  if (isBytes_)
    bytes_[offset] = static_cast<std::uint8_t>(value.AsInteger());
  else
    values_[offset] = value;
}

std::span<const std::uint8_t> VariantArray::Bytes() const {
  if (!isBytes_) throw EVariantError("Variant is not an array of bytes");
  return bytes_;
}

std::span<std::uint8_t> VariantArray::Bytes() {
  std::as_const(*this).Bytes();  // throws when there are none
  return bytes_;
}

}  // namespace qxTools
