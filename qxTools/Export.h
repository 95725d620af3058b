/// @file
/// QXTOOLS_API marks the names that the shared library exports; all others stay hidden.
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
