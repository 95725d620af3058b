/// @file
/// The library's version. Later 1.x versions run what was built against an earlier one.
#pragma once

#include <qxTools/Export.h>

#define QXTOOLS_VERSION_MAJOR 1  ///< Grows when older programs must be built anew.
#define QXTOOLS_VERSION_MINOR 0  ///< Grows when something is added.
#define QXTOOLS_VERSION_PATCH 0  ///< Grows when something is corrected.
/// The three numbers of these headers, as text.
#define QXTOOLS_VERSION "1.0.0"

namespace qxTools {

/// Returns the version of the library that is running, for example "1.0.0". QXTOOLS_VERSION is the version of
/// the headers that the program was built with.
QXTOOLS_API const char* LibraryVersion();

}  // namespace qxTools
