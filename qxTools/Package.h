/// @file
/// The package frame: starts the units in their order and stops them in the reverse order.
///
/// The shared library starts itself when it is loaded and stops itself when it is unloaded. Calls of
/// Initialize and Finalize nest with that: a unit that was started twice is released by the second stop. The
/// static library starts only when Initialize is called. Global variables can be read before any start. All
/// calls must be on the thread that loads the library.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

/// The routines of one unit. Startup decrements the unit's counter. Shutdown increments it and releases the
/// unit's global variables when it is 0 again.
struct TPackageUnit {
  void (*Startup)();   ///< Starts the unit; never null.
  void (*Shutdown)();  ///< Stops the unit; never null.
};

/// All units in the order in which they are started: first the runtime's modules that have something to
/// start, then the library's units.
struct TPackageInfoTable {
  Integer Count;              ///< The number of units.
  const TPackageUnit* Units;  ///< The first unit.
};

/// Starts every unit, from first to last.
QXTOOLS_API void Initialize();

/// Stops every unit, from last to first. More calls than starts only change the counters.
QXTOOLS_API void Finalize();

/// Returns the table of all units. It is valid as long as the library is loaded.
QXTOOLS_API const TPackageInfoTable* GetPackageInfoTable();

/// A function that is called after each start and stop of a unit, with the unit's name and its counter.
using TPackageTrace = void (*)(const char* unit, Integer counter);
/// Sets the function that is called after each start and stop of a unit. Null, as at first, calls none.
QXTOOLS_API void SetPackageTrace(TPackageTrace trace);

}  // namespace qxTools
