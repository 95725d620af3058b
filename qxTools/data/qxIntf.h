/// @file
/// The base of objects that are handed out through interfaces without counting references: taking a reference
/// locks the object, and only a release while it is unlocked destroys it.
///
/// The owner decides when the object may be destroyed: it calls UnLock, and the next release destroys the
/// object, even if other references are still held. An object that nobody takes a reference to is deleted
/// like any other. For one thread at a time.
#pragma once

#include <qxTools/base/Interfaces.h>

namespace qxTools::qxIntf {

/// The lock of an object, for callers that hold it by an interface.
class QXTOOLS_API ISafeInterface : public IInterface {
 public:
  /// All zeros: the interface has no identifier of its own.
  static constexpr GUID IID{};

  /// Returns -1 if the object is locked, otherwise 0.
  virtual Integer QXTOOLS_CALL GetLocked() const = 0;
  /// Unlocks the object, so that the next release destroys it. Returns -1.
  virtual Integer QXTOOLS_CALL UnLock() = 0;

 protected:
  ~ISafeInterface() = default;
};

/// An object that is locked by taking a reference to it. Derived classes implement further interfaces and
/// return them from FindInterface.
class QXTOOLS_API TSafeInterfacedObject : public TObject, public ISafeInterface {
 public:
  /// Makes an unlocked object.
  TSafeInterfacedObject() = default;
  TSafeInterfacedObject(const TSafeInterfacedObject&) = delete;
  TSafeInterfacedObject& operator=(const TSafeInterfacedObject&) = delete;
  ~TSafeInterfacedObject() override;

  /// Sets `*result` to the interface of that identifier, locks the object and returns S_OK. If the object
  /// does not have it, sets `*result` to null, locks nothing and returns E_NOINTERFACE.
  HRESULT QXTOOLS_CALL QueryInterface(const GUID& iid, void** result) override;
  /// Locks the object. Returns -1, because references are not counted.
  Integer QXTOOLS_CALL _AddRef() override;
  /// Destroys the object if it is unlocked. Returns -1, because references are not counted.
  Integer QXTOOLS_CALL _Release() override;
  /// Returns -1 if the object is locked, otherwise 0.
  Integer QXTOOLS_CALL GetLocked() const override { return locked_ != 0 ? -1 : 0; }
  /// Unlocks the object, so that the next release destroys it. Returns -1.
  Integer QXTOOLS_CALL UnLock() override;

 protected:
  /// Returns this object's interface of that identifier, or null. A derived class returns its own interfaces
  /// and leaves the others to this function.
  virtual void* FindInterface(const GUID& iid);

 private:
  std::uint8_t locked_ = 0;
};

}  // namespace qxTools::qxIntf
