#include <qxTools/base/Exceptions.h>

namespace qxTools {

// The destructors are defined here so that each class has its type information only in the library.
Exception::~Exception() = default;
EListError::~EListError() = default;
EConvertError::~EConvertError() = default;
EVariantError::~EVariantError() = default;
EDivByZero::~EDivByZero() = default;
EIntOverflow::~EIntOverflow() = default;
EStreamError::~EStreamError() = default;
EReadError::~EReadError() = default;
EWriteError::~EWriteError() = default;
EFOpenError::~EFOpenError() = default;
EFCreateError::~EFCreateError() = default;

void RaiseListIndex(std::int64_t index) {
  throw EListError("List index out of bounds (" + std::to_string(index) + ")");
}

}  // namespace qxTools
