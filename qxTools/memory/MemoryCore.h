/// @file
/// What QXMemTools and QXArrayTools have in common: free blocks, the block with a cursor, and the array of
/// fixed-size elements. Users include one of the two units.
///
/// Sizes, counts and positions are bytes or elements, from 0. Sums and products wrap at 32 bits. An object
/// is held through an interface, or owned and deleted like any other; it is for one thread at a time.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Interfaces.h>

#include <algorithm>
#include <cstddef>

namespace qxTools::MemoryCore {

using TMemorySize = std::uint32_t;  ///< Bytes of a block, 0 to 4294967295.
using THandle = std::uintptr_t;     ///< Names a block; its value is the block's address.

// --- Blocks ------------------------------------------------------------------

/// A block of `size` zero bytes, aligned for any type, at an address that is its identity. A failed
/// allocation gives null. All blocks of size 0 share one address.
QXTOOLS_API void* MemCreate(TMemorySize size);

/// Gives a block of MemCreate back; null does nothing.
QXTOOLS_API void MemFree(void* p);

/// The bytes that the block has room for, at least as many as MemCreate was asked for; 0 for null.
QXTOOLS_API TMemorySize MemSize(const void* p);

// --- Interfaces --------------------------------------------------------------

/// A block with a cursor.
class QXTOOLS_API IMemoryOperation : public IInterface {
 public:
  static constexpr GUID IID = MakeGuid("185AAE8D-8541-4801-B0D1-D5D3B47B30BE");

  virtual void GetMemory(void* dest, std::uint32_t offset, std::uint32_t count) const = 0;
  virtual void SetMemory(const void* source, std::uint32_t offset, std::uint32_t count) = 0;
  /// Copies from the cursor on, and moves it.
  virtual void Read(void* buffer, Integer count) = 0;
  /// Copies to the cursor, and moves it.
  virtual void Write(const void* buffer, Integer count) = 0;
  virtual THandle GetHandle() const = 0;
  virtual void* GetAddress() const = 0;
  virtual Integer GetSize() const = 0;
  virtual void SetSize(Integer value) = 0;

 protected:
  ~IMemoryOperation() = default;
};

/// A block of elements.
class QXTOOLS_API IMemoryBank : public IMemoryOperation {
 public:
  static constexpr GUID IID = MakeGuid("260EDC51-6BA2-4814-BAC7-67645FD92869");

  virtual Integer GetCount() const = 0;
  virtual void SetCount(Integer value) = 0;

 protected:
  ~IMemoryBank() = default;
};

// --- The block with a cursor -------------------------------------------------

/// One zero-filled block and a cursor in it.
///
/// A failed allocation is not detected: the address is null then, the size as asked, and using the object
/// is the caller's mistake.
class QXTOOLS_API TMemoryOperation : public TInterfacedObject, public IMemoryOperation {
 public:
  /// A block of `ASize` bytes, or of 32 when `ASize` is 0 or less.
  explicit TMemoryOperation(Integer aSize);
  ~TMemoryOperation() override;
  QXTOOLS_INTERFACED_OBJECT

  /// Takes over size and bytes of `source`. Neither cursor moves.
  virtual void Assign(const TMemoryOperation& source);

  /// Whether the cursor is at the start, at the end.
  bool Bof() const { return position_ <= 0; }
  bool Eof() const { return position_ >= size_; }

  THandle GetHandle() const override;
  /// The start of the block, good until the next SetSize, SetCount or Assign.
  void* GetAddress() const override;
  Integer GetSize() const override;
  Integer GetPosition() const { return position_; }

  /// Moves the cursor. On purpose: a value outside 0 to the size moves it to 0, not to the end.
  void SetPosition(Integer value);

  /// Resizes the block: the first min(old, new) bytes stay, growth is zeros. The cursor stays, even beyond
  /// the new end. Growing in small steps is linear in the final size.
  /// @throws Exception "Size cann`t small then 0" when `value` is 0 or less; nothing has changed then.
  void SetSize(Integer value) override;

  /// Copies bytes out of or into the block. Nothing is checked.
  void GetMemory(void* dest, std::uint32_t offset, std::uint32_t count) const override;
  void SetMemory(const void* source, std::uint32_t offset, std::uint32_t count) override;

  /// Copies `count` bytes, or as many as there are, from the cursor on, and moves it behind them. On
  /// purpose: a count of 0 or less reads all that is left. A cursor beyond the end stays, with nothing read.
  void Read(void* buffer, Integer count) override;

  /// The same into the block, which never grows: what does not fit is dropped. On purpose: a count of 0 or
  /// less writes nothing.
  void Write(const void* buffer, Integer count) override;

 protected:
  void* FindInterface(const GUID& iid) override;

  /// Block, bytes in use, and cursor.
  std::byte* address_ = nullptr;
  Integer size_ = 0;
  Integer position_ = 0;
};

/// `Base`, a TMemoryOperation or derived from it, with `Face` beside it: what Face has from IMemoryOperation
/// is done by Base.
template <class Base, class Face>
class QXTOOLS_API MemoryFace : public Base, public Face {
 public:
  using Base::Base;
  QXTOOLS_INTERFACED_OBJECT

  void GetMemory(void* dest, std::uint32_t offset, std::uint32_t count) const override {
    Base::GetMemory(dest, offset, count);
  }
  void SetMemory(const void* source, std::uint32_t offset, std::uint32_t count) override {
    Base::SetMemory(source, offset, count);
  }
  void Read(void* buffer, Integer count) override { Base::Read(buffer, count); }
  void Write(const void* buffer, Integer count) override { Base::Write(buffer, count); }
  THandle GetHandle() const override { return Base::GetHandle(); }
  void* GetAddress() const override { return Base::GetAddress(); }
  Integer GetSize() const override { return Base::GetSize(); }
  void SetSize(Integer value) override { Base::SetSize(value); }

 protected:
  void* FindInterface(const GUID& iid) override {
    return iid == Face::IID ? static_cast<Face*>(this) : Base::FindInterface(iid);
  }
};

// --- The array ---------------------------------------------------------------

/// Elements of one size, one after the other in a block. An index below 0 or not below the count, or of an
/// element that is not wholly inside the block, raises Exception "Index outbound"; nothing is moved then.
class QXTOOLS_API TMemoryBank : public MemoryFace<TMemoryOperation, IMemoryBank> {
 public:
  /// One element of that size. A size below 1 gives a block of 32 bytes whose elements move nothing.
  explicit TMemoryBank(Integer aElementSize);
  ~TMemoryBank() override;

  Integer GetElementSize() const { return elementSize_; }
  Integer GetCount() const override;

  /// Sets the count, then the size to count times element size; new elements are zeros. Growing by one
  /// element a time is linear in the final size.
  /// @throws Exception "Count cann`t small then 1". On purpose: the count before the call is looked at,
  /// not `value`.
  /// @throws Exception "Size cann`t small then 0" when the new size is 0 or less. On purpose: the count has
  /// changed by then, the block has not.
  void SetCount(Integer value) override;

  void SetSize(Integer value) override;

  /// Copies one element out of or into the bank.
  void _GetValue(void* dest, Integer index) const;
  void _SetValue(const void* source, Integer index);

 protected:
  /// The element's first byte, its index checked.
  std::byte* ElementAt(Integer index) const {
    if (!Reaches(index)) RaiseIndexOutbound();
    return address_ + index * std::ptrdiff_t{std::max(elementSize_, 0)};
  }

  /// Whether the index is good.
  bool Reaches(Integer index) const { return static_cast<std::uint32_t>(index) < reach_; }

  /// Whether the index is good and elements have the size given to the constructor.
  bool ReachesOwnSize(Integer index) const { return static_cast<std::uint32_t>(index) < ownSizeReach_; }
  [[noreturn]] static void RaiseIndexOutbound();

  /// To be called after every change of count, size or element size.
  void UpdateReach();

  /// Elements, and the bytes of one.
  Integer count_ = 1;
  Integer elementSize_ = 0;

 private:
  const Integer ownSize_;
  std::uint32_t reach_ = 0;         // elements that are counted and wholly inside the block
  std::uint32_t ownSizeReach_ = 0;  // the same, 0 while elements have another size
};

}  // namespace qxTools::MemoryCore
