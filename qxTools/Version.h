/// @file
/// The library's version. Later 1.x versions run what was built against an earlier one.
#pragma once

#include <qxTools/Export.h>

#define QXTOOLS_VERSION_MAJOR 1  ///< Goes up with what older programs cannot take.
#define QXTOOLS_VERSION_MINOR 0  ///< Goes up with what is new.
#define QXTOOLS_VERSION_PATCH 0  ///< Goes up with what is mended.
/// All three.
#define QXTOOLS_VERSION "1.0.0"

namespace qxTools {

/// The version of the library at hand, as in "1.0.0"; QXTOOLS_VERSION is that of its headers.
QXTOOLS_API const char* LibraryVersion();

}  // namespace qxTools
