/// @file
/// What QXMemTools and QXArrayTools have in common: free blocks, the block with a cursor, and the array of
/// fixed-size elements. Include one of the two units, not this header.
///
/// Sizes, counts and positions are bytes or elements, counted from 0. Sums and products wrap at 32 bits. An
/// object is either held through an interface or owned and deleted like any other. Not thread-safe.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Interfaces.h>

#include <algorithm>
#include <cstddef>

namespace qxTools::MemoryCore {

/// The size of a block in bytes, 0 to 4294967295.
using TMemorySize = std::uint32_t;
/// Names a block; the value is the block's address.
using THandle = std::uintptr_t;

// --- Blocks ------------------------------------------------------------------

/// Returns a block of `size` zero bytes, aligned for any type, or null if memory runs out. All blocks of size
/// 0 share one address. Free the block with MemFree.
QXTOOLS_API void* MemCreate(TMemorySize size);

/// Frees a block of MemCreate. Null is ignored.
QXTOOLS_API void MemFree(void* p);

/// Returns the number of bytes that the block has room for, which may be more than MemCreate was asked for; 0
/// for null and for a block of size 0.
QXTOOLS_API TMemorySize MemSize(const void* p);

// --- Interfaces --------------------------------------------------------------
// On purpose: interfaces derive virtually, so that a bank is one IMemoryOperation however it comes by it.
// They have no data, and such an interface shares its table of methods with the one it derives from: the
// methods keep their slots.

/// A block with a cursor.
class QXTOOLS_API IMemoryOperation : public IInterface {
 public:
  /// The identifier for QueryInterface.
  static constexpr GUID IID = MakeGuid("185AAE8D-8541-4801-B0D1-D5D3B47B30BE");

  /// Copies `count` bytes from `offset` of the block to `dest`. Nothing is checked.
  virtual void GetMemory(void* dest, std::uint32_t offset, std::uint32_t count) const = 0;
  /// Copies `count` bytes from `source` to `offset` of the block. Nothing is checked.
  virtual void SetMemory(const void* source, std::uint32_t offset, std::uint32_t count) = 0;
  /// Copies `count` bytes (fewer at the end) from the cursor to `buffer` and moves the cursor after them. On
  /// purpose: a count of 0 or less reads all that is left.
  virtual void Read(void* buffer, Integer count) = 0;
  /// Copies `count` bytes from `buffer` to the cursor and moves the cursor after them. Bytes that do not fit
  /// are dropped.
  virtual void Write(const void* buffer, Integer count) = 0;
  /// Returns the block's address as a number.
  virtual THandle GetHandle() const = 0;
  /// Returns the block's address.
  virtual void* GetAddress() const = 0;
  /// Returns the block's size in bytes.
  virtual Integer GetSize() const = 0;
  /// Resizes the block; new bytes are zeros.
  /// @throws Exception "Size cann`t small then 0" if `value` is 0 or less; nothing is changed then.
  virtual void SetSize(Integer value) = 0;

 protected:
  ~IMemoryOperation() = default;
};

/// A block of elements.
class QXTOOLS_API IMemoryBank : public virtual IMemoryOperation {
 public:
  /// The identifier for QueryInterface.
  static constexpr GUID IID = MakeGuid("260EDC51-6BA2-4814-BAC7-67645FD92869");

  /// Returns the number of elements.
  virtual Integer GetCount() const = 0;
  /// Sets the count, then the size to count times element size; new elements are zeros.
  /// @throws Exception "Count cann`t small then 1" if the count before the call is below 1.
  /// @throws Exception "Size cann`t small then 0" if the new size is 0 or less; the count has changed by
  /// then.
  virtual void SetCount(Integer value) = 0;

 protected:
  ~IMemoryBank() = default;
};

// --- The block with a cursor -------------------------------------------------

/// A zero-filled block and a cursor in it.
///
/// If memory runs out, no error is reported: the address is null and the size is as asked. Check GetAddress,
/// for reading and writing such a block is the caller's mistake.
class QXTOOLS_API TMemoryOperation : public TInterfacedObject, public virtual IMemoryOperation {
 public:
  /// Makes a block of `aSize` bytes, or of 32 bytes if `aSize` is 0 or less.
  explicit TMemoryOperation(Integer aSize);
  /// Frees the block.
  ~TMemoryOperation() override;
  QXTOOLS_INTERFACED_OBJECT

  /// Copies the size and the bytes of `source`. Neither cursor moves. If memory runs out, the address is null
  /// afterwards.
  virtual void Assign(const TMemoryOperation& source);

  /// Returns true if the cursor is at the start.
  bool Bof() const { return position_ <= 0; }
  /// Returns true if the cursor is at the end or beyond it.
  bool Eof() const { return position_ >= size_; }

  /// Returns the block's address as a number.
  THandle GetHandle() const override;
  /// Returns the block's address, which is valid until the next SetSize, SetCount or Assign.
  void* GetAddress() const override;
  /// Returns the block's size in bytes.
  Integer GetSize() const override;
  /// Returns the cursor's position in bytes from the start.
  Integer GetPosition() const { return position_; }

  /// Moves the cursor. On purpose: a value below 0 or above the size moves it to the start, not to the end.
  void SetPosition(Integer value);

  /// Resizes the block: the first min(old, new) bytes are kept and new bytes are zeros. The cursor is
  /// unchanged, even if it is beyond the new end. Growing in small steps is linear in the final size.
  /// @throws Exception "Size cann`t small then 0" if `value` is 0 or less; nothing is changed then.
  void SetSize(Integer value) override;

  /// Copies `count` bytes from `offset` of the block to `dest`. Nothing is checked.
  void GetMemory(void* dest, std::uint32_t offset, std::uint32_t count) const override;
  /// Copies `count` bytes from `source` to `offset` of the block. Nothing is checked.
  void SetMemory(const void* source, std::uint32_t offset, std::uint32_t count) override;

  /// Copies `count` bytes (fewer at the end) from the cursor to `buffer` and moves the cursor after them. On
  /// purpose: a count of 0 or less reads all that is left. With the cursor beyond the end nothing happens.
  void Read(void* buffer, Integer count) override;

  /// Copies `count` bytes from `buffer` to the cursor and moves the cursor after them. The block never
  /// grows: bytes that do not fit are dropped. On purpose: a count of 0 or less writes nothing.
  void Write(const void* buffer, Integer count) override;

 protected:
  void* FindInterface(const GUID& iid) override;

  /// Sets a size for which the block has room and zeros. Returns false for any other size; nothing is changed
  /// then.
  bool SetSizeInPlace(Integer value) {
    if (value < size_ || value > zeroed_) return false;
    size_ = value;
    return true;
  }

  std::byte* address_ = nullptr;  ///< The block.
  Integer size_ = 0;              ///< Its bytes in use.
  Integer position_ = 0;          ///< The cursor, which may be beyond the end.

 private:
  void Resize(Integer value);

  Integer zeroed_ = 0;  // the block reaches to here, with zeros after the bytes in use
};

// --- The array ---------------------------------------------------------------

/// Elements of one size, one after the other in a block. An index is valid if it is from 0 to the count - 1
/// and the element is wholly inside the block; otherwise Exception "Index outbound" is thrown and nothing is
/// moved.
///
/// The fields are part of the interface, since reading and writing elements is inlined into the caller's
/// loops.
class QXTOOLS_API TMemoryBank : public TMemoryOperation, public virtual IMemoryBank {
 public:
  /// Makes one element of `aElementSize` bytes. A size below 1 gives a block of 32 bytes, and reading or
  /// writing its elements moves nothing.
  explicit TMemoryBank(Integer aElementSize);
  ~TMemoryBank() override;

  /// Returns the bytes of one element.
  Integer GetElementSize() const { return elementSize_; }
  /// Returns the number of elements.
  Integer GetCount() const override;

  /// Sets the count, then the size to count times element size; new elements are zeros. Growing by one
  /// element at a time is linear in the final size.
  /// @throws Exception "Count cann`t small then 1". On purpose: the count before the call is tested, not
  /// `value`.
  /// @throws Exception "Size cann`t small then 0" if the new size is 0 or less. On purpose: the count has
  /// changed by then, the block has not.
  void SetCount(Integer value) override;

  /// Resizes the block and leaves the count as it is. Elements that are no longer inside have no valid index.
  /// @throws Exception "Size cann`t small then 0" if `value` is 0 or less; nothing is changed then.
  void SetSize(Integer value) override;

  /// Copies one element to `dest`. @throws Exception "Index outbound"
  void _GetValue(void* dest, Integer index) const;
  /// Copies one element from `source`. @throws Exception "Index outbound"
  void _SetValue(const void* source, Integer index);

 protected:
  void* FindInterface(const GUID& iid) override;

  /// Returns the element's address. @throws Exception "Index outbound"
  std::byte* ElementAt(Integer index) const {
    if (!IsValidIndex(index)) RaiseIndexOutbound();
    return address_ + index * std::ptrdiff_t{std::max(elementSize_, 0)};
  }

  /// Returns true if the index is valid.
  bool IsValidIndex(Integer index) const { return static_cast<std::uint32_t>(index) < validCount_; }

  /// Returns true if the index is valid and elements have the size that was given to the constructor.
  bool HasDeclaredElementSize(Integer index) const {
    return static_cast<std::uint32_t>(index) < declaredSizeCount_;
  }
  /// @throws Exception "Index outbound"
  [[noreturn]] static void RaiseIndexOutbound();

  /// Works out which indexes are valid. Call it after every change of address, size, count or element size.
  void UpdateValidCount();

  Integer count_ = 1;        ///< Elements, whether inside the block or not.
  Integer elementSize_ = 0;  ///< Bytes of one.

 private:
  void ResizeAndUpdate(Integer value);

  const Integer declaredElementSize_;
  std::uint32_t validCount_ = 0;         // elements that are counted and wholly inside the block
  std::uint32_t declaredSizeCount_ = 0;  // validCount_, or 0 while elements have another size than declared
};

}  // namespace qxTools::MemoryCore
