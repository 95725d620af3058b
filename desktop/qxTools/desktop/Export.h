/// @file
/// What the desktop library exports.
///
/// @def QXTOOLS_DESKTOP_API
/// Stands in front of the names that the desktop library exports.
#pragma once

#include <qxTools/Export.h>

#if defined(_WIN32) && !defined(QXTOOLS_STATIC) && !defined(QXTOOLS_DESKTOP_BUILDING)
#define QXTOOLS_DESKTOP_API __declspec(dllimport)
#elif defined(_WIN32) && !defined(QXTOOLS_STATIC)
#define QXTOOLS_DESKTOP_API __declspec(dllexport)
#else
#define QXTOOLS_DESKTOP_API QXTOOLS_API
#endif
