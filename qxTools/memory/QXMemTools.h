/// @file
/// Raw zero-filled blocks, a block with a cursor, and arrays of fixed-size elements, ten of them typed.
///
/// Sizes, counts and positions are bytes or elements, counted from 0. Not thread-safe.
#pragma once

#include <qxTools/memory/MemoryCore.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <new>
#include <span>

namespace qxTools::QXMemTools {

using MemoryCore::IMemoryBank;
using MemoryCore::IMemoryOperation;
using MemoryCore::MemCreate;
using MemoryCore::MemFree;
using MemoryCore::MemSize;
using MemoryCore::THandle;
using MemoryCore::TMemoryOperation;
using MemoryCore::TMemorySize;

/// The array of elements; MemoryCore::TMemoryBank has the rules for indexes.
class QXTOOLS_API TMemoryBank : public MemoryCore::TMemoryBank {
 public:
  using MemoryCore::TMemoryBank::TMemoryBank;
  ~TMemoryBank() override;

  /// Copies the size and the bytes of `source`, and from a bank of this unit its element size and count too.
  /// The cursor does not move. If memory runs out, the address is null afterwards.
  void Assign(const TMemoryOperation& source) override;

  /// Returns the element's address, which is valid until the next SetSize, SetCount or Assign.
  /// @throws Exception "Index outbound"
  void* _GetValueAddress(Integer index) const { return ElementAt(index); }
  /// Returns the element's address, which is valid until the next SetSize, SetCount or Assign.
  /// @throws Exception "Index outbound"
  void* GetValue(Integer index) const { return ElementAt(index); }

 protected:
  /// Reads an element as a T, of which an element of the declared size holds `Size` bytes. After an Assign
  /// elements may have another size: as many bytes are read as both have, and the others are zeros.
  /// @throws Exception "Index outbound"
  template <class T, Integer Size>
  T ReadElement(Integer index) const {
    T value{};
    if (HasDeclaredElementSize(index)) [[likely]] {
      std::memcpy(&value, address_ + index * std::ptrdiff_t{Size}, Size);
    } else {
      if (!IsValidIndex(index)) RaiseIndexOutbound();
      const std::uint64_t bytes = ReadOtherSize(index);
      std::memcpy(&value, &bytes, sizeof(T));
    }
    return value;
  }

  /// Writes a T to an element, which at the declared size holds `Size` bytes of it. After an Assign elements
  /// may have another size: as many bytes are written as both have.
  /// @throws Exception "Index outbound"
  template <class T, Integer Size>
  void WriteElement(Integer index, T value) {
    std::byte* const first = address_;  // read in any case, so that a loop reads it once
    if (HasDeclaredElementSize(index)) [[likely]] {
      if constexpr (Size == sizeof(T))
        ::new (first + index * std::ptrdiff_t{Size}) T(value);
      else
        std::memcpy(first + index * std::ptrdiff_t{Size}, &value, Size);
    } else {
      if (!IsValidIndex(index)) RaiseIndexOutbound();
      const auto octets = std::bit_cast<std::array<Octet, sizeof(T)>>(value);
      const std::span<std::byte> element = OtherSizeElement(index);
      for (std::size_t i = 0; i < std::min(element.size(), sizeof(T)); ++i)
        ::new (&element[i]) Octet(octets[i]);
    }
  }

 private:
  // A byte of a type of its own. Writing one cannot change the bank's fields, as writing a char might, so a
  // loop over a bank need not read them again and again. The functions below are pure for the same reason.
  // The index is tested before they are called, because the compiler may leave out a pure call but must not
  // leave out an error.
  enum class Octet : std::uint8_t {};

  [[gnu::pure]] std::uint64_t ReadOtherSize(std::ptrdiff_t index) const;
  [[gnu::pure]] std::span<std::byte> OtherSizeElement(std::ptrdiff_t index) const;
};

/// A bank whose elements are read and written as values of type T.
template <class T>
class QXTOOLS_API TypedBank : public TMemoryBank {
 public:
  /// Makes one element, which is 0.
  TypedBank() : TMemoryBank(Integer{sizeof(T)}) {}
  /// Returns the element. @throws Exception "Index outbound"
  T GetValue(Integer index) const { return ReadElement<T, Integer{sizeof(T)}>(index); }
  /// Replaces the element. @throws Exception "Index outbound"
  void SetValue(Integer index, T value) { WriteElement<T, Integer{sizeof(T)}>(index, value); }
};

/// A bank of unsigned 8-bit numbers.
class QXTOOLS_API TByteBank : public TypedBank<std::uint8_t> {};
/// A bank of unsigned 16-bit numbers.
class QXTOOLS_API TWordBank : public TypedBank<std::uint16_t> {};
/// A bank of unsigned 32-bit numbers.
class QXTOOLS_API TLongwordBank : public TypedBank<std::uint32_t> {};
/// A bank of signed 8-bit numbers.
class QXTOOLS_API TShortintBank : public TypedBank<std::int8_t> {};
/// A bank of signed 16-bit numbers.
class QXTOOLS_API TSmallintBank : public TypedBank<std::int16_t> {};
/// A bank of signed 32-bit numbers.
class QXTOOLS_API TLongintBank : public TypedBank<std::int32_t> {};
/// A bank of signed 64-bit numbers.
class QXTOOLS_API TInt64Bank : public TypedBank<std::int64_t> {};
/// A bank of pointers.
class QXTOOLS_API TPointerBank : public TypedBank<void*> {};
/// A bank of signed 32-bit numbers.
class QXTOOLS_API TIntegerBank : public TLongintBank {};
/// A bank of unsigned 32-bit numbers.
class QXTOOLS_API TCardinalBank : public TLongwordBank {};

}  // namespace qxTools::QXMemTools
