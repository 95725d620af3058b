/// @file
/// COM-style interfaces: the root interface, whose first three slots are QueryInterface, _AddRef and
/// _Release, interface identifiers, and a base class that counts references.
///
/// An interface has no virtual destructor, so that its methods keep their slots. An object is not deleted
/// through an interface pointer; its last _Release deletes it.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <array>
#include <atomic>
#include <compare>

namespace qxTools {

#if !defined(S_OK)  // where windows.h came first, these are its macros of the same values
/// Success.
constexpr HRESULT S_OK = 0;
/// The object does not have this interface.
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
/// Any other error.
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFU);
#endif

/// A 128-bit interface identifier, as memory holds it.
struct GUID {
  std::uint32_t Data1 = 0;              ///< The first 8 digits.
  std::uint16_t Data2 = 0;              ///< The next 4 digits.
  std::uint16_t Data3 = 0;              ///< The next 4 digits.
  std::array<std::uint8_t, 8> Data4{};  ///< The last 16 digits, two in a byte.

  /// Returns whether two identifiers are equal.
  friend constexpr bool operator==(const GUID&, const GUID&) = default;
};
static_assert(sizeof(GUID) == 16);

/// Returns the identifier that is written like "185AAE8D-8541-4801-B0D1-D5D3B47B30BE", at compile time.
/// Digits other than 0 to 9 and A to F are a compile error.
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

/// The root of all interfaces. On Windows it is the system's own root interface, slot by slot: an object of
/// the system can be used through it, and an object of this library is one to the system.
class QXTOOLS_API IInterface {
 public:
  /// The identifier of this interface.
  static constexpr GUID IID = MakeGuid("00000000-0000-0000-C000-000000000046");

  /// Sets `*result` to the interface with this identifier, adds a reference and returns S_OK. If the object
  /// does not have it, sets `*result` to null and returns E_NOINTERFACE.
  virtual HRESULT QXTOOLS_CALL QueryInterface(const GUID& iid, void** result) = 0;
  /// Adds a reference and returns the number of references, for information only.
  virtual Integer QXTOOLS_CALL _AddRef() = 0;
  /// Gives a reference back and returns the number of references that are left, for information only. The
  /// last one deletes the object.
  virtual Integer QXTOOLS_CALL _Release() = 0;

 protected:
  IInterface() = default;
  IInterface(const IInterface&) = default;
  IInterface& operator=(const IInterface&) = default;
  ~IInterface() = default;
};

/// The base of objects that are deleted with their last reference. An object that never hands out a reference
/// can be owned and deleted like any other.
///
/// A derived class lists its interfaces in FindInterface. The count of references is atomic; nothing else is.
class QXTOOLS_API TInterfacedObject : public TObject {
 public:
  /// Makes an object without references.
  TInterfacedObject() = default;
  TInterfacedObject(const TInterfacedObject&) = delete;
  TInterfacedObject& operator=(const TInterfacedObject&) = delete;
  ~TInterfacedObject() override;

  /// Returns the number of references that interfaces hold. It is 0 if the object is owned without them.
  Integer RefCount() const { return refCount_.load(); }

 protected:
  /// Returns this object's interface with that identifier, or null if it has none. No reference is added.
  virtual void* FindInterface(const GUID& iid) = 0;

  /// QueryInterface of the root interface, for QXTOOLS_INTERFACED_OBJECT.
  HRESULT QueryInterfaceImpl(const GUID& iid, void** result);
  /// _AddRef of the root interface, for QXTOOLS_INTERFACED_OBJECT.
  Integer AddRefImpl();
  /// _Release of the root interface, for QXTOOLS_INTERFACED_OBJECT. The last one deletes the object.
  Integer ReleaseImpl();

 private:
  std::atomic<Integer> refCount_{0};
};

}  // namespace qxTools

/// Defines the three methods of the root interface in a class (or class template) that derives from
/// TInterfacedObject and from an interface.
#define QXTOOLS_INTERFACED_OBJECT                                                                      \
  ::qxTools::HRESULT QXTOOLS_CALL QueryInterface(const ::qxTools::GUID& iid, void** result) override { \
    return this->QueryInterfaceImpl(iid, result);                                                      \
  }                                                                                                    \
  ::qxTools::Integer QXTOOLS_CALL _AddRef() override { return this->AddRefImpl(); }                    \
  ::qxTools::Integer QXTOOLS_CALL _Release() override { return this->ReleaseImpl(); }
