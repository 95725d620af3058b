#include <qxTools/base/Interfaces.h>

namespace qxTools {

TInterfacedObject::~TInterfacedObject() = default;

HRESULT TInterfacedObject::QueryInterfaceImpl(const GUID& iid, void** result) {
  *result = FindInterface(iid);
  if (*result == nullptr) return E_NOINTERFACE;
  AddRefImpl();
  return S_OK;
}

Integer TInterfacedObject::AddRefImpl() { return refCount_.fetch_add(1) + 1; }

Integer TInterfacedObject::ReleaseImpl() {
  const Integer left = refCount_.fetch_sub(1) - 1;
  if (left == 0) delete this;
  return left;
}

}  // namespace qxTools
