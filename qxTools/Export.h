/// @file
/// The marks of exported names, of interfaces' methods and of global variables.
///
/// @def QXTOOLS_API
/// Marks a name that the shared library exports. All other names are hidden.
/// @def QXTOOLS_CALL
/// Precedes the name of a method that other modules call through an interface: the calling convention of the
/// system's own interfaces. A class that implements such a method repeats it.
/// @def QXTOOLS_ON_WINDOWS
/// Encloses declarations that only Windows has: names that windows.h makes of a function's name.
/// @def QXTOOLS_GLOBAL
/// Marks a global variable of a unit. It is constructed before every other object of a program and destroyed
/// after it, so it can be read before the library is started, and still exists when Finalize releases it.
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

#if defined(_WIN32)
#define QXTOOLS_CALL __stdcall
#define QXTOOLS_ON_WINDOWS(...) __VA_ARGS__
#else
#define QXTOOLS_CALL
#define QXTOOLS_ON_WINDOWS(...)
#endif

#if defined(__GNUC__)
#define QXTOOLS_GLOBAL [[gnu::init_priority(200)]]
#else
#define QXTOOLS_GLOBAL
#endif
