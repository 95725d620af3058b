/// @file
/// The package frame: starting the units in their order, stopping them in the reverse order.
///
/// The shared library starts itself when it is loaded and stops itself when it is unloaded. Explicit calls
/// nest with that: a unit that was started twice is torn down by the last stop. All of it belongs on the
/// thread that loads the library. Globals can be read before any start, also in the static library, which
/// starts only when it is told to.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

/// One unit's routines. Start-up lowers the unit's counter; shut-down raises it and releases the unit's
/// globals when it comes back to zero.
struct TPackageUnit {
  /// The two routines; both are there in every unit.
  void (*Startup)();
  void (*Shutdown)();
};

/// The modules of the runtime that have something to start, then the library's units, in starting order.
struct TPackageInfoTable {
  /// The units and how many there are.
  Integer Count;
  const TPackageUnit* Units;
};

/// Starts every unit, first to last.
QXTOOLS_API void Initialize();

/// Stops every unit, last to first. One stop too many only moves the counters.
QXTOOLS_API void Finalize();

QXTOOLS_API const TPackageInfoTable* GetPackageInfoTable();

/// Called with a unit's name and its counter after each start and stop; null, as at first, for nothing.
using TPackageTrace = void (*)(const char* unit, Integer counter);
QXTOOLS_API void SetPackageTrace(TPackageTrace trace);

}  // namespace qxTools
