/// @file
/// The base of objects that are handed out through interfaces without being counted: taking a reference locks
/// the object, and only a release while it is unlocked destroys it.
///
/// The owner decides when the object may go: by UnLock, after which the next release destroys it, even if
/// other references are still held. An object that nobody takes a reference to is owned and deleted like any
/// other. One thread at a time.
#pragma once

#include <qxTools/base/Interfaces.h>

namespace qxTools::qxIntf {

/// The lock of an object, for those who hold it by an interface.
class QXTOOLS_API ISafeInterface : public IInterface {
 public:
  /// It has no identifier of its own; all zeros find it.
  static constexpr GUID IID{};

  /// -1 when locked, else 0.
  virtual Integer GetLocked() const = 0;
  /// Lets the next release destroy the object. @return -1.
  virtual Integer UnLock() = 0;

 protected:
  ~ISafeInterface() = default;
};

/// The object that is locked by its references.
class QXTOOLS_API TSafeInterfacedObject : public TObject, public ISafeInterface {
 public:
  TSafeInterfacedObject() = default;
  TSafeInterfacedObject(const TSafeInterfacedObject&) = delete;
  TSafeInterfacedObject& operator=(const TSafeInterfacedObject&) = delete;
  ~TSafeInterfacedObject() override;

  /// Success takes a reference and so locks the object; a failure locks nothing.
  HRESULT QueryInterface(const GUID& iid, void** result) override;
  /// Locks the object. @return -1, which is no count.
  Integer _AddRef() override;
  /// Destroys the object if it is unlocked, does nothing otherwise. @return -1, which is no count.
  Integer _Release() override;
  Integer GetLocked() const override { return locked_ != 0 ? -1 : 0; }
  Integer UnLock() override;

 protected:
  /// The interface of this object with that identifier, or null.
  virtual void* FindInterface(const GUID& iid);

 private:
  std::uint8_t locked_ = 0;
};

}  // namespace qxTools::qxIntf
