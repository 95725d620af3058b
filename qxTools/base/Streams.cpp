#include <qxTools/base/Exceptions.h>
#include <qxTools/base/Streams.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace qxTools {

namespace {

constexpr std::int64_t kLastPlace = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kPiece = std::int64_t{1} << 20;
constexpr std::int64_t kBuffer = std::int64_t{1} << 16;
constexpr std::int64_t kLargestBlock = std::numeric_limits<std::ptrdiff_t>::max();

std::size_t Length(std::int64_t count) { return static_cast<std::size_t>(count); }

[[noreturn]] void RaiseRead() { throw EReadError("Stream read error"); }
[[noreturn]] void RaiseWrite() { throw EWriteError("Stream write error"); }

}  // namespace

// --- TStream -----------------------------------------------------------------------------------------

TStream::~TStream() = default;

void TStream::ReadBuffer(void* buffer, std::size_t count) {
  if (count != 0 && Read(buffer, count) != count) RaiseRead();
}

void TStream::WriteBuffer(const void* buffer, std::size_t count) {
  if (count != 0 && Write(buffer, count) != count) RaiseWrite();
}

void TStream::CopyFrom(TStream& source, std::int64_t count) {
  if (count < 0) RaiseRead();
  std::array<char, kBuffer> piece;
  while (count > 0) {
    const std::size_t got = source.Read(piece.data(), Length(std::min(count, kBuffer)));
    if (got == 0) RaiseRead();
    WriteBuffer(piece.data(), got);
    count -= static_cast<std::int64_t>(got);
  }
}

std::int64_t TStream::Place(std::int64_t base, std::int64_t offset) {
  if (offset > kLastPlace - base) return kLastPlace;
  return std::max(base + offset, std::int64_t{0});
}

// --- TMemoryStream -----------------------------------------------------------------------------------

TMemoryStream::~TMemoryStream() = default;

std::size_t TMemoryStream::Read(void* buffer, std::size_t count) {
  const std::int64_t left = std::max(size_ - position_, std::int64_t{0});
  const std::size_t amount = std::min(count, Length(left));
  if (amount == 0) return 0;
  std::memcpy(buffer, memory_.get() + position_, amount);
  position_ += static_cast<std::int64_t>(amount);
  return amount;
}

std::size_t TMemoryStream::Write(const void* buffer, std::size_t count) {
  if (count == 0 || count > static_cast<std::uint64_t>(kLastPlace - position_)) return 0;
  const std::int64_t end = position_ + static_cast<std::int64_t>(count);
  const std::int64_t doubled = Place(capacity_, capacity_);
  if (end > capacity_ && !Reserve(std::max(end, doubled)) && !Reserve(end)) return 0;
  FillGap();
  std::memcpy(memory_.get() + position_, buffer, count);
  position_ = end;
  size_ = std::max(size_, end);
  return count;
}

std::int64_t TMemoryStream::Seek(std::int64_t offset, TSeekOrigin origin) {
  const std::int64_t base = origin == soBeginning ? 0 : origin == soCurrent ? position_ : size_;
  return position_ = Place(base, offset);
}

void TMemoryStream::SetSize(std::int64_t size) {
  if (size < 0 || (size > capacity_ && !Reserve(size))) RaiseWrite();
  if (size > size_) std::memset(memory_.get() + size_, 0, Length(size - size_));
  size_ = size;
  position_ = std::min(position_, size);
}

void TMemoryStream::CopyFrom(TStream& source, std::int64_t count) {
  if (&source == this) return TStream::CopyFrom(source, count);
  if (count < 0) RaiseRead();
  // Room for what the source has; beyond that it doubles, so a false count costs no more than the bytes that
  // came.
  std::int64_t room = Place(position_, source.GetSize() - source.GetPosition());
  while (count > 0) {
    room = std::max({room, Place(position_, kPiece), Place(capacity_, capacity_)});
    if (position_ >= capacity_ && !Reserve(std::min(Place(position_, count), room))) RaiseWrite();
    FillGap();
    const std::size_t piece = Length(std::min(count, capacity_ - position_));
    const std::size_t got = source.Read(memory_.get() + position_, piece);
    if (got == 0) RaiseRead();
    count -= static_cast<std::int64_t>(got);
    position_ += static_cast<std::int64_t>(got);
    size_ = std::max(size_, position_);
  }
}

void TMemoryStream::Clear() {
  memory_.reset();
  capacity_ = size_ = position_ = 0;
}

bool TMemoryStream::Reserve(std::int64_t size) {
  if (size > kLargestBlock) return false;
  void* const moved = std::realloc(memory_.get(), Length(size));
  if (moved == nullptr) return false;
  static_cast<void>(memory_.release());
  memory_.reset(static_cast<char*>(moved));
  capacity_ = size;
  return true;
}

void TMemoryStream::FillGap() {
  if (position_ > size_) std::memset(memory_.get() + size_, 0, Length(position_ - size_));
}

}  // namespace qxTools
