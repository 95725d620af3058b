#include <qxTools/base/Exceptions.h>
#include <qxTools/memory/MemoryCore.h>
#include <qxTools/platform/Heap.h>

#include <cstring>
#include <limits>

namespace qxTools::MemoryCore {

namespace {

constexpr Integer kDefaultSize = 32;
constexpr std::size_t kLargest = std::numeric_limits<Integer>::max();

constexpr std::size_t Bytes(Integer size) { return static_cast<std::size_t>(size); }

// The block may be copied onto itself, and nothing may be copied to nowhere.
void Move(void* dest, const void* source, std::size_t count) {
  if (count != 0) std::memmove(dest, source, count);
}

// Not inlined, as the other functions for what growth seldom does: growing in place needs no stack then.
[[noreturn, gnu::noinline]] void RaiseTooSmall(const char* message) { throw Exception(message); }

// Bytes from `position` on, which may lie beyond the end.
Integer Room(Integer size, Integer position) { return std::max(size - position, 0); }

}  // namespace

// --- Blocks ------------------------------------------------------------------

void* MemCreate(TMemorySize size) { return HeapCreate(size); }

void MemFree(void* p) { HeapFree(p); }

TMemorySize MemSize(const void* p) {
  constexpr std::size_t limit = std::numeric_limits<TMemorySize>::max();
  return static_cast<TMemorySize>(std::min(HeapSize(p), limit));
}

// --- The block with a cursor -------------------------------------------------

TMemoryOperation::TMemoryOperation(Integer aSize) : size_(aSize > 0 ? aSize : kDefaultSize) {
  address_ = static_cast<std::byte*>(HeapCreate(Bytes(size_)));
  zeroed_ = address_ != nullptr ? size_ : 0;
}

TMemoryOperation::~TMemoryOperation() { HeapFree(address_); }

void* TMemoryOperation::FindInterface(const GUID& iid) {
  const bool known = iid == IMemoryOperation::IID || iid == IInterface::IID;
  return known ? static_cast<IMemoryOperation*>(this) : nullptr;
}

void TMemoryOperation::Assign(const TMemoryOperation& source) {
  SetSize(source.size_);
  if (address_ != nullptr && source.address_ != nullptr) Move(address_, source.address_, Bytes(size_));
}

THandle TMemoryOperation::GetHandle() const { return reinterpret_cast<THandle>(address_); }

void* TMemoryOperation::GetAddress() const { return address_; }

Integer TMemoryOperation::GetSize() const { return size_; }

void TMemoryOperation::SetPosition(Integer value) { position_ = value >= 0 && value <= size_ ? value : 0; }

void TMemoryOperation::SetSize(Integer value) {
  if (value <= 0) RaiseTooSmall("Size cann`t small then 0");
  if (!SetSizeInPlace(value)) Resize(value);
}

// Growth takes the heap's room in steps, so that a block which grows little by little seldom asks the heap.
void TMemoryOperation::Resize(Integer value) {
  constexpr std::size_t kStep = 4096;
  const std::size_t room = value > size_ ? std::min(HeapSize(address_), kLargest) : 0;
  const std::size_t reach = std::max(Bytes(value), std::min(room, Bytes(value) + kStep));
  address_ = static_cast<std::byte*>(HeapResize(address_, Bytes(size_), reach));
  zeroed_ = address_ != nullptr ? static_cast<Integer>(reach) : 0;
  size_ = value;
}

void TMemoryOperation::GetMemory(void* dest, std::uint32_t offset, std::uint32_t count) const {
  Move(dest, address_ + offset, count);
}

void TMemoryOperation::SetMemory(const void* source, std::uint32_t offset, std::uint32_t count) {
  Move(address_ + offset, source, count);
}

void TMemoryOperation::Read(void* buffer, Integer count) {
  const Integer room = Room(size_, position_);
  const Integer amount = count <= 0 ? room : std::min(count, room);
  Move(buffer, address_ + position_, Bytes(amount));
  position_ += amount;
}

void TMemoryOperation::Write(const void* buffer, Integer count) {
  const Integer amount = std::min(std::max(count, 0), Room(size_, position_));
  Move(address_ + position_, buffer, Bytes(amount));
  position_ += amount;
}

// --- The array ---------------------------------------------------------------

TMemoryBank::TMemoryBank(Integer aElementSize)
    : TMemoryOperation(aElementSize), elementSize_(aElementSize), declaredElementSize_(aElementSize) {
  UpdateValidCount();
}

TMemoryBank::~TMemoryBank() = default;

void* TMemoryBank::FindInterface(const GUID& iid) {
  return iid == IMemoryBank::IID ? static_cast<IMemoryBank*>(this) : TMemoryOperation::FindInterface(iid);
}

Integer TMemoryBank::GetCount() const { return count_; }

void TMemoryBank::SetCount(Integer value) {
  if (count_ < 1) RaiseTooSmall("Count cann`t small then 1");
  count_ = value;
  const std::uint32_t size = static_cast<std::uint32_t>(value) * static_cast<std::uint32_t>(elementSize_);
  if (static_cast<Integer>(size) <= 0) UpdateValidCount();  // SetSize throws
  SetSize(static_cast<Integer>(size));
}

void TMemoryBank::SetSize(Integer value) {
  if (SetSizeInPlace(value))
    UpdateValidCount();
  else
    ResizeAndUpdate(value);
}

[[gnu::noinline]] void TMemoryBank::ResizeAndUpdate(Integer value) {
  TMemoryOperation::SetSize(value);
  UpdateValidCount();
}

void TMemoryBank::UpdateValidCount() {
  const bool allInside = std::int64_t{count_} * elementSize_ <= size_;  // the usual case, without a division
  const Integer inside = allInside ? count_ : size_ / elementSize_;
  validCount_ = address_ != nullptr ? static_cast<std::uint32_t>(std::max(inside, 0)) : 0;
  declaredSizeCount_ = elementSize_ == declaredElementSize_ ? validCount_ : 0;
}

void TMemoryBank::_GetValue(void* dest, Integer index) const {
  Move(dest, ElementAt(index), Bytes(std::max(elementSize_, 0)));
}

void TMemoryBank::_SetValue(const void* source, Integer index) {
  Move(ElementAt(index), source, Bytes(std::max(elementSize_, 0)));
}

void TMemoryBank::RaiseIndexOutbound() { throw Exception("Index outbound"); }

}  // namespace qxTools::MemoryCore
