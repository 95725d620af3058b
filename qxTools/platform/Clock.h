/// @file
/// The local date and time, from a replaceable source.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools {

/// A clock. Tests, and hosts that want repeatable keys, plug in their own.
class QXTOOLS_API ClockSource {
 public:
  virtual ~ClockSource();
  /// Returns the local date and time, to the microsecond or better if the system has it.
  virtual TDateTime Now() = 0;
};

/// Plugs in a clock, which the caller owns and keeps alive. Null brings the system's clock back.
/// @return the clock plugged in before, or null for the system's.
QXTOOLS_API ClockSource* SetClockSource(ClockSource* source);

/// Returns the local date and time by the plugged-in clock, or by the system's. A program that changes its
/// own time zone sees the new one from the next second on.
QXTOOLS_API TDateTime Now();

}  // namespace qxTools
