/// @file
/// QXTOOLS_API marks the names that the shared library exports; all others stay hidden. QXTOOLS_GLOBAL marks
/// the units' global variables: they are made before every other object of a program and go after it, so that
/// they can be read before any start and are still there when the package frame releases what they hold.
///
/// @def QXTOOLS_API
/// Stands in front of what the shared library exports.
/// @def QXTOOLS_GLOBAL
/// Stands in front of the units' global variables.
#pragma once

#if defined(QXTOOLS_STATIC)
#define QXTOOLS_API
#elif defined(_WIN32)
#if defined(QXTOOLS_BUILDING)
#define QXTOOLS_API __declspec(dllexport)
#else
#define QXTOOLS_API __declspec(dllimport)
#endif
#else
#define QXTOOLS_API __attribute__((visibility("default")))
#endif

#if defined(__GNUC__)
#define QXTOOLS_GLOBAL [[gnu::init_priority(200)]]
#else
#define QXTOOLS_GLOBAL
#endif
