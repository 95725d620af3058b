#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/InterfacedPersistent.h>

namespace qxTools {

namespace {

[[noreturn]] void RaiseCannotAssign(const std::string& source, const TPersistent& target) {
  throw EConvertError("Cannot assign a " + source + " to a " + target.ClassName());
}

}  // namespace

TPersistent::~TPersistent() = default;

void TPersistent::Assign(const TPersistent* source) {
  if (source == nullptr) RaiseCannotAssign("nil", *this);
  source->AssignTo(this);
}

void TPersistent::DefineProperties(TFiler&) {}

std::string TPersistent::ClassName() const { return "TPersistent"; }

void TPersistent::AssignTo(TPersistent* target) const { RaiseCannotAssign(ClassName(), *target); }

TInterfacedPersistent::~TInterfacedPersistent() = default;

}  // namespace qxTools
