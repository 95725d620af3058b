/// @file
/// COM-style interfaces: a root with QueryInterface, _AddRef and _Release in its first three slots,
/// identifiers, and the reference-counted base class.
///
/// An interface has no virtual destructor: its methods keep their slots. Objects are never deleted
/// through an interface pointer; the last _Release does it.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <array>
#include <atomic>
#include <compare>

namespace qxTools {

/// Done, no such interface, any other failure.
constexpr HRESULT S_OK = 0;
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFU);

/// A 128-bit interface identifier in its memory layout.
struct GUID {
  /// The parts, in the order in which they are written.
  std::uint32_t Data1 = 0;
  std::uint16_t Data2 = 0;
  std::uint16_t Data3 = 0;
  std::array<std::uint8_t, 8> Data4{};

  friend constexpr bool operator==(const GUID&, const GUID&) = default;
};
static_assert(sizeof(GUID) == 16);

/// The identifier written as "185AAE8D-8541-4801-B0D1-D5D3B47B30BE", read at compile time.
consteval GUID MakeGuid(const char (&text)[37]) {
  const auto hex = [&](int at, int digits) {
    std::uint32_t value = 0;
    for (int i = at; i < at + digits; ++i) {
      const char c = text[i];
      if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'))) throw "GUID digits are 0-9 and A-F";
      value = value * 16 + static_cast<std::uint32_t>(c <= '9' ? c - '0' : c - 'A' + 10);
    }
    return value;
  };
  GUID guid{hex(0, 8), static_cast<std::uint16_t>(hex(9, 4)), static_cast<std::uint16_t>(hex(14, 4)), {}};
  for (int i = 0; i < 8; ++i)
    guid.Data4[static_cast<std::size_t>(i)] =
        static_cast<std::uint8_t>(hex(i < 2 ? 19 + 2 * i : 20 + 2 * i, 2));
  return guid;
}

/// The root interface.
class QXTOOLS_API IInterface {
 public:
  static constexpr GUID IID = MakeGuid("00000000-0000-0000-C000-000000000046");

  /// Gives the interface with that identifier, with a reference taken, and S_OK; or null and E_NOINTERFACE.
  virtual HRESULT QueryInterface(const GUID& iid, void** result) = 0;
  /// Takes a reference. The result is for information only.
  virtual Integer _AddRef() = 0;
  /// Gives a reference back; the object may be gone afterwards.
  virtual Integer _Release() = 0;

 protected:
  IInterface() = default;
  IInterface(const IInterface&) = default;
  IInterface& operator=(const IInterface&) = default;
  ~IInterface() = default;
};

/// The base of objects that live until the last reference goes. Objects that never hand out a reference
/// can be owned and deleted like any other.
///
/// A derived class names its interfaces in FindInterface. The count is atomic; nothing else is.
class QXTOOLS_API TInterfacedObject : public TObject {
 public:
  TInterfacedObject() = default;
  TInterfacedObject(const TInterfacedObject&) = delete;
  TInterfacedObject& operator=(const TInterfacedObject&) = delete;
  ~TInterfacedObject() override;

  /// References held through interfaces; 0 for a plainly owned object.
  Integer RefCount() const { return refCount_.load(); }

 protected:
  /// The interface of this object with that identifier (no reference taken), or null.
  virtual void* FindInterface(const GUID& iid) = 0;

  /// The root methods, for QXTOOLS_INTERFACED_OBJECT.
  HRESULT QueryInterfaceImpl(const GUID& iid, void** result);
  /// The same.
  Integer AddRefImpl();
  /// The same; the last one destroys the object.
  Integer ReleaseImpl();

 private:
  std::atomic<Integer> refCount_{0};
};

}  // namespace qxTools

/// The three root methods of a class (or class template) that derives from TInterfacedObject and from an
/// interface.
#define QXTOOLS_INTERFACED_OBJECT                                                         \
  ::qxTools::HRESULT QueryInterface(const ::qxTools::GUID& iid, void** result) override { \
    return this->QueryInterfaceImpl(iid, result);                                         \
  }                                                                                       \
  ::qxTools::Integer _AddRef() override { return this->AddRefImpl(); }                    \
  ::qxTools::Integer _Release() override { return this->ReleaseImpl(); }
