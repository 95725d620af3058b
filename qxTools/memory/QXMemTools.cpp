#include <qxTools/memory/QXMemTools.h>

namespace qxTools::QXMemTools {

TMemoryBank::~TMemoryBank() = default;

void TMemoryBank::Assign(const TMemoryOperation& source) {
  TMemoryOperation::Assign(source);
  if (const auto* bank = dynamic_cast<const TMemoryBank*>(&source)) {
    elementSize_ = bank->elementSize_;
    count_ = bank->count_;
    UpdateValidCount();
  }
}

std::uint64_t TMemoryBank::ReadOtherSize(std::ptrdiff_t index) const {
  const std::span<std::byte> element = OtherSizeElement(index);
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, element.data(), std::min(element.size(), sizeof bytes));
  return bytes;
}

std::span<std::byte> TMemoryBank::OtherSizeElement(std::ptrdiff_t index) const {
  return {ElementAt(static_cast<Integer>(index)), static_cast<std::size_t>(std::max(elementSize_, 0))};
}

}  // namespace qxTools::QXMemTools
