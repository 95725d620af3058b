/// @file
/// Four banks that also answer to a typed interface of their own.
#pragma once

#include <qxTools/memory/QXMemTools.h>

namespace qxTools::QXMemBank {

using QXMemTools::IMemoryBank;
using QXMemTools::TMemoryBank;

// --- Interfaces --------------------------------------------------------------

/// A bank of characters.
class QXTOOLS_API ICharBank : public IMemoryBank {
 public:
  static constexpr GUID IID = MakeGuid("C3CF33E7-30DB-4361-8E6E-A59C4C3B4F83");

  virtual char GetValue(Integer index) const = 0;
  virtual void SetValue(Integer index, char value) = 0;

 protected:
  ~ICharBank() = default;
};

/// A bank of 32-bit integers.
class QXTOOLS_API IIntegerBank : public IMemoryBank {
 public:
  static constexpr GUID IID = MakeGuid("4C588B5F-4DFC-4F4C-96C5-BFE6727EB30A");

  virtual Integer GetValue(Integer index) const = 0;
  virtual void SetValue(Integer index, Integer value) = 0;

 protected:
  ~IIntegerBank() = default;
};

/// A bank of doubles.
class QXTOOLS_API IDoubleBank : public IMemoryBank {
 public:
  static constexpr GUID IID = MakeGuid("63ECE5EB-CB5F-4E08-A2A7-E98127B2A0C9");

  virtual double GetValue(Integer index) const = 0;
  virtual void SetValue(Integer index, double value) = 0;

 protected:
  ~IDoubleBank() = default;
};

/// A bank of pointers.
class QXTOOLS_API IPointerBank : public IMemoryBank {
 public:
  static constexpr GUID IID = MakeGuid("5AE88DA0-2C30-42C9-8EF7-EEA9D13FA6C0");

  virtual void* GetValue(Integer index) const = 0;
  virtual void SetValue(Integer index, void* value) = 0;

 protected:
  ~IPointerBank() = default;
};

// --- Banks -------------------------------------------------------------------

/// A bank of T with the interface `Face`.
template <class Face, class T, Integer ElementSize>
class QXTOOLS_API InterfaceBank : public MemoryCore::MemoryFace<TMemoryBank, Face> {
 public:
  InterfaceBank() : MemoryCore::MemoryFace<TMemoryBank, Face>(ElementSize) {}

  Integer GetCount() const override { return TMemoryBank::GetCount(); }
  void SetCount(Integer value) override { TMemoryBank::SetCount(value); }
  T GetValue(Integer index) const override { return this->template ReadElement<T, ElementSize>(index); }
  void SetValue(Integer index, T value) override {
    this->template WriteElement<T, ElementSize>(index, value);
  }
};

class QXTOOLS_API TCharBank final : public InterfaceBank<ICharBank, char, 1> {
 public:
  ~TCharBank() override;
};

class QXTOOLS_API TIntegerBank final : public InterfaceBank<IIntegerBank, Integer, 4> {
 public:
  ~TIntegerBank() override;
};

class QXTOOLS_API TDoubleBank final : public InterfaceBank<IDoubleBank, double, 8> {
 public:
  ~TDoubleBank() override;
};

/// On purpose: one byte an element. SetValue keeps the lowest byte of the pointer, and GetValue gives a
/// pointer of that byte with zeros above it.
class QXTOOLS_API TPointerBank final : public InterfaceBank<IPointerBank, void*, 1> {
 public:
  ~TPointerBank() override;
};

}  // namespace qxTools::QXMemBank
