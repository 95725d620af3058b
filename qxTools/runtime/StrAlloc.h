/// @file
/// Zero-terminated string buffers that change hands between the library and its callers.
#pragma once

#include <qxTools/Export.h>

#include <cstddef>

namespace qxTools {

/// A buffer of `size` bytes, all NUL, which the caller gives back with StrDispose.
/// @throws std::bad_alloc when there is no memory for it.
QXTOOLS_API char* StrAlloc(std::size_t size);

/// Gives a buffer of StrAlloc back; null is allowed.
QXTOOLS_API void StrDispose(char* buffer);

}  // namespace qxTools
