/// @file
/// Raw zero-filled blocks, a block with a cursor, and arrays of fixed-size elements, ten of them typed.
///
/// Sizes, counts and positions are bytes or elements, from 0. Objects are for one thread at a time.
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

/// The array of elements; see MemoryCore::TMemoryBank for its rules.
class QXTOOLS_API TMemoryBank : public MemoryCore::TMemoryBank {
 public:
  using MemoryCore::TMemoryBank::TMemoryBank;
  ~TMemoryBank() override;

  /// Takes over size and bytes, and from a bank of this unit element size and count too.
  void Assign(const TMemoryOperation& source) override;

  /// The element's address, good until the next SetSize, SetCount or Assign.
  void* _GetValueAddress(Integer index) const { return ElementAt(index); }
  void* GetValue(Integer index) const { return ElementAt(index); }

 protected:
  /// One element as a T, of which elements hold `size` bytes. After an Assign the sizes may differ: as many
  /// bytes are moved as both have, the others are zeros.
  template <class T, Integer Size>
  T ReadElement(Integer index) const {
    T value{};
    if (ReachesOwnSize(index)) [[likely]] {
      std::memcpy(&value, address_ + index * std::ptrdiff_t{Size}, Size);
    } else {
      if (!Reaches(index)) RaiseIndexOutbound();
      const std::uint64_t bytes = ReadOtherSize(index);
      std::memcpy(&value, &bytes, sizeof(T));
    }
    return value;
  }

  /// The same into the bank.
  template <class T, Integer Size>
  void WriteElement(Integer index, T value) {
    std::byte* const first = address_;  // read in any case, so that a loop reads it once
    if (ReachesOwnSize(index)) [[likely]] {
      if constexpr (Size == sizeof(T))
        ::new (first + index * std::ptrdiff_t{Size}) T(value);
      else
        std::memcpy(first + index * std::ptrdiff_t{Size}, &value, Size);
    } else {
      if (!Reaches(index)) RaiseIndexOutbound();
      const auto octets = std::bit_cast<std::array<Octet, sizeof(T)>>(value);
      const std::span<std::byte> element = OtherSizeElement(index);
      for (std::size_t i = 0; i < std::min(element.size(), sizeof(T)); ++i)
        ::new (&element[i]) Octet(octets[i]);
    }
  }

 private:
  // A byte of a type of its own. To write one cannot change the bank's fields, as writing a char might, so
  // that a loop over a bank need not read them again and again. The calls below are pure for the same reason;
  // the index was checked before, for a pure call may be left out, and an error must not.
  enum class Octet : std::uint8_t {};

  [[gnu::pure]] std::uint64_t ReadOtherSize(std::ptrdiff_t index) const;
  [[gnu::pure]] std::span<std::byte> OtherSizeElement(std::ptrdiff_t index) const;
};

/// A bank whose elements are read and written as values.
template <class T>
class QXTOOLS_API TypedBank : public TMemoryBank {
 public:
  TypedBank() : TMemoryBank(Integer{sizeof(T)}) {}
  T GetValue(Integer index) const { return ReadElement<T, Integer{sizeof(T)}>(index); }
  void SetValue(Integer index, T value) { WriteElement<T, Integer{sizeof(T)}>(index, value); }
};

class QXTOOLS_API TByteBank : public TypedBank<std::uint8_t> {};
class QXTOOLS_API TWordBank : public TypedBank<std::uint16_t> {};
class QXTOOLS_API TLongwordBank : public TypedBank<std::uint32_t> {};
class QXTOOLS_API TShortintBank : public TypedBank<std::int8_t> {};
class QXTOOLS_API TSmallintBank : public TypedBank<std::int16_t> {};
class QXTOOLS_API TLongintBank : public TypedBank<std::int32_t> {};
class QXTOOLS_API TInt64Bank : public TypedBank<std::int64_t> {};
class QXTOOLS_API TPointerBank : public TypedBank<void*> {};
class QXTOOLS_API TIntegerBank : public TLongintBank {};
class QXTOOLS_API TCardinalBank : public TLongwordBank {};

}  // namespace qxTools::QXMemTools
