#include <qxTools/base/Exceptions.h>
#include <qxTools/memory/MemoryCore.h>
#include <qxTools/platform/Heap.h>

#include <cstring>
#include <limits>

namespace qxTools::MemoryCore {

namespace {

constexpr Integer kDefaultSize = 32;

constexpr std::size_t Bytes(Integer size) { return static_cast<std::size_t>(size); }

// The block may be copied onto itself, and nothing may be copied to nowhere.
void Move(void* dest, const void* source, std::size_t count) {
  if (count != 0) std::memmove(dest, source, count);
}

// Bytes from `position` on, which may lie beyond the end.
Integer Room(Integer size, Integer position) { return std::max(size - position, 0); }

}  // namespace

// --- Blocks ------------------------------------------------------------------

void* MemCreate(TMemorySize Size) { return HeapCreate(Size); }

void MemFree(void* P) { HeapFree(P); }

TMemorySize MemSize(const void* P) {
  constexpr std::size_t limit = std::numeric_limits<TMemorySize>::max();
  return static_cast<TMemorySize>(std::min(HeapSize(P), limit));
}

// --- The block with a cursor -------------------------------------------------

TMemoryOperation::TMemoryOperation(Integer ASize) : FSize(ASize > 0 ? ASize : kDefaultSize) {
  FAddress = static_cast<std::byte*>(HeapCreate(Bytes(FSize)));
}

TMemoryOperation::~TMemoryOperation() { HeapFree(FAddress); }

void* TMemoryOperation::FindInterface(const GUID& iid) {
  const bool known = iid == IMemoryOperation::IID || iid == IInterface::IID;
  return known ? static_cast<IMemoryOperation*>(this) : nullptr;
}

void TMemoryOperation::Assign(const TMemoryOperation& Source) {
  SetSize(Source.FSize);
  Move(FAddress, Source.FAddress, Bytes(FSize));
}

THandle TMemoryOperation::GetHandle() const { return reinterpret_cast<THandle>(FAddress); }

void* TMemoryOperation::GetAddress() const { return FAddress; }

Integer TMemoryOperation::GetSize() const { return FSize; }

void TMemoryOperation::SetPosition(Integer Value) { FPosition = Value >= 0 && Value <= FSize ? Value : 0; }

void TMemoryOperation::SetSize(Integer Value) {
  if (Value <= 0) throw Exception("Size cann`t small then 0");
  FAddress = static_cast<std::byte*>(HeapResize(FAddress, Bytes(FSize), Bytes(Value)));
  FSize = Value;
}

void TMemoryOperation::GetMemory(void* Dest, std::uint32_t Offset, std::uint32_t Count) const {
  Move(Dest, FAddress + Offset, Count);
}

void TMemoryOperation::SetMemory(const void* Source, std::uint32_t Offset, std::uint32_t Count) {
  Move(FAddress + Offset, Source, Count);
}

void TMemoryOperation::Read(void* Buffer, Integer Count) {
  const Integer room = Room(FSize, FPosition);
  const Integer amount = Count <= 0 ? room : std::min(Count, room);
  Move(Buffer, FAddress + FPosition, Bytes(amount));
  FPosition += amount;
}

void TMemoryOperation::Write(const void* Buffer, Integer Count) {
  const Integer amount = std::min(std::max(Count, 0), Room(FSize, FPosition));
  Move(FAddress + FPosition, Buffer, Bytes(amount));
  FPosition += amount;
}

// --- The array ---------------------------------------------------------------

TMemoryBank::TMemoryBank(Integer AElementSize)
    : MemoryFace(AElementSize), FElementSize(AElementSize), FOwnSize(AElementSize) {
  UpdateReach();
}

TMemoryBank::~TMemoryBank() = default;

Integer TMemoryBank::GetCount() const { return FCount; }

void TMemoryBank::SetCount(Integer Value) {
  if (FCount < 1) throw Exception("Count cann`t small then 1");
  FCount = Value;
  UpdateReach();
  SetSize(static_cast<Integer>(static_cast<std::uint32_t>(Value) * static_cast<std::uint32_t>(FElementSize)));
}

void TMemoryBank::SetSize(Integer Value) {
  MemoryFace::SetSize(Value);
  UpdateReach();
}

void TMemoryBank::UpdateReach() {
  const Integer inside = FElementSize > 0 ? FSize / FElementSize : FCount;
  FReach = static_cast<std::uint32_t>(std::max(std::min(FCount, inside), 0));
  FOwnSizeReach = FElementSize == FOwnSize ? FReach : 0;
}

void TMemoryBank::_GetValue(void* Dest, Integer Index) const {
  Move(Dest, ElementAt(Index), Bytes(std::max(FElementSize, 0)));
}

void TMemoryBank::_SetValue(const void* Source, Integer Index) {
  Move(ElementAt(Index), Source, Bytes(std::max(FElementSize, 0)));
}

void TMemoryBank::RaiseIndexOutbound() { throw Exception("Index outbound"); }

}  // namespace qxTools::MemoryCore
