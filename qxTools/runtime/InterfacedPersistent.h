/// @file
/// The base of objects that can be assigned, answer to interfaces, and belong to whoever made them.
#pragma once

#include <qxTools/base/Interfaces.h>
#include <qxTools/runtime/Persistent.h>

namespace qxTools {

/// References are not counted: taking and releasing them gives -1 and never frees the object.
///
/// A derived class names its interfaces in FindInterface and takes the root methods by
/// QXTOOLS_INTERFACED_OBJECT.
class QXTOOLS_API TInterfacedPersistent : public TPersistent {
 public:
  ~TInterfacedPersistent() override;

 protected:
  /// The interface of this object with that identifier, or null.
  virtual void* FindInterface(const GUID& iid) = 0;

  /// The root methods, for QXTOOLS_INTERFACED_OBJECT.
  HRESULT QueryInterfaceImpl(const GUID& iid, void** result) {
    *result = FindInterface(iid);
    return *result != nullptr ? S_OK : E_NOINTERFACE;
  }
  /// The same: -1.
  Integer AddRefImpl() { return -1; }
  /// The same: -1.
  Integer ReleaseImpl() { return -1; }
};

}  // namespace qxTools
