/// @file
/// The exceptions of the library. Each has only a message. The messages are part of the interface: callers
/// may compare them.
#pragma once

#include <qxTools/Export.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace qxTools {

/// The general exception, for example when an object is used in the wrong way.
class QXTOOLS_API Exception : public std::runtime_error {
 public:
  /// what() returns the message.
  explicit Exception(const std::string& message) : std::runtime_error(message) {}
  ~Exception() override;
};

/// An index is outside a list.
class QXTOOLS_API EListError : public Exception {
 public:
  using Exception::Exception;
  ~EListError() override;
};

/// A text is not a number or not a date, or an object cannot be assigned to another.
class QXTOOLS_API EConvertError : public Exception {
 public:
  using Exception::Exception;
  ~EConvertError() override;
};

/// A Variant cannot be converted, or an index is outside a variant array.
class QXTOOLS_API EVariantError : public Exception {
 public:
  using Exception::Exception;
  ~EVariantError() override;
};

/// A number was divided by zero.
class QXTOOLS_API EDivByZero : public Exception {
 public:
  /// The message is "Division by zero".
  EDivByZero() : Exception("Division by zero") {}
  ~EDivByZero() override;
};

/// A result does not fit its integer type, in a function whose results do not wrap.
class QXTOOLS_API EIntOverflow : public Exception {
 public:
  /// The message is "Integer overflow".
  EIntOverflow() : Exception("Integer overflow") {}
  ~EIntOverflow() override;
};

/// A stream or file could not be read, written, opened or created.
class QXTOOLS_API EStreamError : public Exception {
 public:
  using Exception::Exception;
  ~EStreamError() override;
};

/// Fewer bytes could be read than were asked for.
class QXTOOLS_API EReadError : public EStreamError {
 public:
  using EStreamError::EStreamError;
  ~EReadError() override;
};

/// Fewer bytes could be written than were given.
class QXTOOLS_API EWriteError : public EStreamError {
 public:
  using EStreamError::EStreamError;
  ~EWriteError() override;
};

/// A file could not be opened. The message has its name and the system's reason.
class QXTOOLS_API EFOpenError : public EStreamError {
 public:
  using EStreamError::EStreamError;
  ~EFOpenError() override;
};

/// A file could not be created. The message has its name and the system's reason.
class QXTOOLS_API EFCreateError : public EStreamError {
 public:
  using EStreamError::EStreamError;
  ~EFCreateError() override;
};

/// Throws EListError "List index out of bounds (N)".
[[noreturn]] QXTOOLS_API void RaiseListIndex(std::int64_t index);

}  // namespace qxTools
