/// @file
/// The exceptions of the library. Each carries only its message, and the messages are part of the
/// interface: callers may compare them.
#pragma once

#include <qxTools/Export.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace qxTools {

/// The general exception: misuse of an object, with a fixed text.
class QXTOOLS_API Exception : public std::runtime_error {
 public:
  /// The message is what() gives.
  explicit Exception(const std::string& message) : std::runtime_error(message) {}
  ~Exception() override;
};

/// An index outside a list.
class QXTOOLS_API EListError : public Exception {
 public:
  using Exception::Exception;
  ~EListError() override;
};

/// A text that is no number or no date, or objects that cannot be assigned to each other.
class QXTOOLS_API EConvertError : public Exception {
 public:
  using Exception::Exception;
  ~EConvertError() override;
};

/// A value that has no such form in a Variant, or an index outside a variant array.
class QXTOOLS_API EVariantError : public Exception {
 public:
  using Exception::Exception;
  ~EVariantError() override;
};

/// Division by zero.
class QXTOOLS_API EDivByZero : public Exception {
 public:
  EDivByZero() : Exception("Division by zero") {}
  ~EDivByZero() override;
};

/// A result that does not fit its integer type, where wrapping is not the rule.
class QXTOOLS_API EIntOverflow : public Exception {
 public:
  EIntOverflow() : Exception("Integer overflow") {}
  ~EIntOverflow() override;
};

/// Reading, writing, opening or creating failed.
class QXTOOLS_API EStreamError : public Exception {
 public:
  using Exception::Exception;
  ~EStreamError() override;
};

/// Fewer bytes were there than asked for.
class QXTOOLS_API EReadError : public EStreamError {
 public:
  using EStreamError::EStreamError;
  ~EReadError() override;
};

/// Fewer bytes were taken than given.
class QXTOOLS_API EWriteError : public EStreamError {
 public:
  using EStreamError::EStreamError;
  ~EWriteError() override;
};

/// A file could not be opened; the message names it and the system's reason.
class QXTOOLS_API EFOpenError : public EStreamError {
 public:
  using EStreamError::EStreamError;
  ~EFOpenError() override;
};

/// A file could not be created; the message names it and the system's reason.
class QXTOOLS_API EFCreateError : public EStreamError {
 public:
  using EStreamError::EStreamError;
  ~EFCreateError() override;
};

/// Raises EListError, "List index out of bounds (N)".
[[noreturn]] QXTOOLS_API void RaiseListIndex(std::int64_t index);

}  // namespace qxTools
