/// @file
/// Buffers for zero-terminated strings that the library allocates and its callers free, or the reverse.
#pragma once

#include <qxTools/Export.h>

#include <cstddef>

namespace qxTools {

/// Allocates a buffer of `size` bytes, all zero. Free it with StrDispose.
/// @throws std::bad_alloc if memory runs out.
QXTOOLS_API char* StrAlloc(std::size_t size);

/// Frees a buffer that StrAlloc allocated. Null is ignored.
QXTOOLS_API void StrDispose(char* buffer);

}  // namespace qxTools
