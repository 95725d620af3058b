/// @file
/// The mark of names that the desktop library exports.
///
/// @def QXTOOLS_DESKTOP_API
/// Marks a name that the shared desktop library exports. All other names are hidden.
#pragma once

#include <qxTools/Export.h>

#if defined(_WIN32) && !defined(QXTOOLS_STATIC) && !defined(QXTOOLS_DESKTOP_BUILDING)
#define QXTOOLS_DESKTOP_API __declspec(dllimport)
#elif defined(_WIN32) && !defined(QXTOOLS_STATIC)
#define QXTOOLS_DESKTOP_API __declspec(dllexport)
#else
#define QXTOOLS_DESKTOP_API QXTOOLS_API
#endif
