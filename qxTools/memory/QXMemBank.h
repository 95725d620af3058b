/// @file
/// Four banks, each with a typed interface of its own.
///
/// The banks can be derived from. Not thread-safe.
#pragma once

#include <qxTools/memory/QXMemTools.h>

namespace qxTools::QXMemBank {

using QXMemTools::IMemoryBank;
using QXMemTools::TMemoryBank;

// --- Interfaces --------------------------------------------------------------

/// A bank of characters.
class QXTOOLS_API ICharBank : public virtual IMemoryBank {
 public:
  /// The identifier for QueryInterface.
  static constexpr GUID IID = MakeGuid("C3CF33E7-30DB-4361-8E6E-A59C4C3B4F83");

  /// Returns the element. @throws Exception "Index outbound"
  virtual char GetValue(Integer index) const = 0;
  /// Replaces the element. @throws Exception "Index outbound"
  virtual void SetValue(Integer index, char value) = 0;

 protected:
  ~ICharBank() = default;
};

/// A bank of 32-bit integers.
class QXTOOLS_API IIntegerBank : public virtual IMemoryBank {
 public:
  /// The identifier for QueryInterface.
  static constexpr GUID IID = MakeGuid("4C588B5F-4DFC-4F4C-96C5-BFE6727EB30A");

  /// Returns the element. @throws Exception "Index outbound"
  virtual Integer GetValue(Integer index) const = 0;
  /// Replaces the element. @throws Exception "Index outbound"
  virtual void SetValue(Integer index, Integer value) = 0;

 protected:
  ~IIntegerBank() = default;
};

/// A bank of doubles.
class QXTOOLS_API IDoubleBank : public virtual IMemoryBank {
 public:
  /// The identifier for QueryInterface.
  static constexpr GUID IID = MakeGuid("63ECE5EB-CB5F-4E08-A2A7-E98127B2A0C9");

  /// Returns the element. @throws Exception "Index outbound"
  virtual double GetValue(Integer index) const = 0;
  /// Replaces the element. @throws Exception "Index outbound"
  virtual void SetValue(Integer index, double value) = 0;

 protected:
  ~IDoubleBank() = default;
};

/// A bank of pointers.
class QXTOOLS_API IPointerBank : public virtual IMemoryBank {
 public:
  /// The identifier for QueryInterface.
  static constexpr GUID IID = MakeGuid("5AE88DA0-2C30-42C9-8EF7-EEA9D13FA6C0");

  /// Returns the element. @throws Exception "Index outbound"
  virtual void* GetValue(Integer index) const = 0;
  /// Replaces the element. @throws Exception "Index outbound"
  virtual void SetValue(Integer index, void* value) = 0;

 protected:
  ~IPointerBank() = default;
};

// --- Banks -------------------------------------------------------------------

/// A bank of T that has the interface `Interface`, with `ElementSize` bytes an element.
template <class Interface, class T, Integer ElementSize>
class QXTOOLS_API InterfaceBank : public TMemoryBank, public virtual Interface {
 public:
  /// Makes one element of zero bytes.
  InterfaceBank() : TMemoryBank(ElementSize) {}

  /// Returns the element. @throws Exception "Index outbound"
  T GetValue(Integer index) const override { return this->template ReadElement<T, ElementSize>(index); }
  /// Replaces the element. @throws Exception "Index outbound"
  void SetValue(Integer index, T value) override {
    this->template WriteElement<T, ElementSize>(index, value);
  }

 protected:
  /// Returns this bank's interface with that identifier, or null if it has none. No reference is added.
  void* FindInterface(const GUID& iid) override {
    return iid == Interface::IID ? static_cast<Interface*>(this) : TMemoryBank::FindInterface(iid);
  }
};

/// A bank of characters.
class QXTOOLS_API TCharBank : public InterfaceBank<ICharBank, char, 1> {
 public:
  ~TCharBank() override;
};

/// A bank of 32-bit integers.
class QXTOOLS_API TIntegerBank : public InterfaceBank<IIntegerBank, Integer, 4> {
 public:
  ~TIntegerBank() override;
};

/// A bank of doubles.
class QXTOOLS_API TDoubleBank : public InterfaceBank<IDoubleBank, double, 8> {
 public:
  ~TDoubleBank() override;
};

/// A bank of pointers. On purpose: an element has one byte. SetValue keeps the lowest byte of the pointer,
/// and GetValue returns a pointer of that byte with zeros above it.
class QXTOOLS_API TPointerBank : public InterfaceBank<IPointerBank, void*, 1> {
 public:
  ~TPointerBank() override;
};

}  // namespace qxTools::QXMemBank
