/// @file
/// Heap blocks that are known by their address alone: size and release ask for nothing else.
///
/// Blocks are aligned for any type and filled with zeros. All blocks of size 0 share one address.
#pragma once

#include <qxTools/Export.h>

#include <cstddef>

namespace qxTools {

/// A block of `size` zero bytes, or null when memory is short.
QXTOOLS_API void* HeapCreate(std::size_t size);

/// Resizes a block of which `oldSize` bytes are in use to `newSize` (above 0) bytes in use: the first
/// min(oldSize, newSize) stay, growth is zeros. The block may move; a null one is made anew. Room is kept
/// in reserve, so that growing by one byte a time is linear in the final size.
/// @return the block, or null when memory is short; the old one is gone then.
QXTOOLS_API void* HeapResize(void* block, std::size_t oldSize, std::size_t newSize);

/// Gives a block back; null does nothing.
QXTOOLS_API void HeapFree(void* block);

/// The bytes that the block has room for, at least as many as were asked for; 0 for null.
QXTOOLS_API std::size_t HeapSize(const void* block);

}  // namespace qxTools
