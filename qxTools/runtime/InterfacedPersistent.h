/// @file
/// The base of objects that can be assigned, have interfaces, and are deleted by their owner.
#pragma once

#include <qxTools/base/Interfaces.h>
#include <qxTools/runtime/Persistent.h>

namespace qxTools {

/// References are not counted: _AddRef and _Release return -1 and never delete the object.
///
/// A derived class lists its interfaces in FindInterface and defines the root methods by
/// QXTOOLS_INTERFACED_OBJECT.
class QXTOOLS_API TInterfacedPersistent : public TPersistent {
 public:
  ~TInterfacedPersistent() override;

 protected:
  /// Returns this object's interface with that identifier, or null if it has none.
  virtual void* FindInterface(const GUID& iid) = 0;

  /// QueryInterface of the root interface, for QXTOOLS_INTERFACED_OBJECT.
  HRESULT QueryInterfaceImpl(const GUID& iid, void** result) {
    *result = FindInterface(iid);
    return *result != nullptr ? S_OK : E_NOINTERFACE;
  }
  /// _AddRef of the root interface, for QXTOOLS_INTERFACED_OBJECT. Always returns -1.
  Integer AddRefImpl() { return -1; }
  /// _Release of the root interface, for QXTOOLS_INTERFACED_OBJECT. Always returns -1.
  Integer ReleaseImpl() { return -1; }
};

}  // namespace qxTools
