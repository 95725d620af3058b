#include <qxTools/memory/QXMemTools.h>

namespace qxTools::QXMemTools {

namespace {

std::size_t SharedBytes(Integer elementSize, Integer size) {
  return static_cast<std::size_t>(std::clamp(elementSize, 0, size));
}

}  // namespace

TMemoryBank::~TMemoryBank() = default;

void TMemoryBank::Assign(const TMemoryOperation& Source) {
  TMemoryOperation::Assign(Source);
  if (const auto* bank = dynamic_cast<const TMemoryBank*>(&Source)) {
    FElementSize = bank->FElementSize;
    FCount = bank->FCount;
    UpdateReach();
  }
}

std::uint64_t TMemoryBank::ReadOtherSize(Integer index) const {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, ElementAt(index), SharedBytes(FElementSize, sizeof bytes));
  return bytes;
}

void TMemoryBank::WriteOtherSize(std::ptrdiff_t index, std::uint64_t bytes, Integer size) {
  std::memcpy(ElementAt(static_cast<Integer>(index)), &bytes, SharedBytes(FElementSize, size));
}

}  // namespace qxTools::QXMemTools
