#include <qxTools/data/qxIntf.h>

namespace qxTools::qxIntf {

namespace {

constexpr Integer kNoCount = -1;

}  // namespace

TSafeInterfacedObject::~TSafeInterfacedObject() = default;

HRESULT QXTOOLS_CALL TSafeInterfacedObject::QueryInterface(const GUID& iid, void** result) {
  *result = FindInterface(iid);
  if (*result == nullptr) return E_NOINTERFACE;
  _AddRef();
  return S_OK;
}

Integer QXTOOLS_CALL TSafeInterfacedObject::_AddRef() {
  locked_ = 1;
  return kNoCount;
}

Integer QXTOOLS_CALL TSafeInterfacedObject::_Release() {
  if (locked_ == 0) delete this;
  return kNoCount;
}

Integer QXTOOLS_CALL TSafeInterfacedObject::UnLock() {
  locked_ = 0;
  return kNoCount;
}

void* TSafeInterfacedObject::FindInterface(const GUID& iid) {
  const bool known = iid == ISafeInterface::IID || iid == IInterface::IID;
  return known ? static_cast<ISafeInterface*>(this) : nullptr;
}

}  // namespace qxTools::qxIntf
