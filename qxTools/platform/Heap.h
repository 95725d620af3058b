/// @file
/// Heap blocks that are known by their address alone: their size is found by it.
///
/// Blocks are aligned for any type and filled with zeros. All blocks of size 0 share one address.
#pragma once

#include <qxTools/Export.h>

#include <cstddef>

namespace qxTools {

/// Makes a block of `size` zero bytes.
/// @return the block, or null if memory runs out.
QXTOOLS_API void* HeapCreate(std::size_t size);

/// Resizes a block of which `oldSize` bytes are in use to `newSize` (above 0) bytes in use: the first
/// min(oldSize, newSize) bytes are unchanged, growth is zeros. The block may move; for null a new one is
/// made. Room is kept in reserve, so that growing by one byte at a time is linear in the final size.
/// @return the block, or null if memory runs out; the old block is freed then.
QXTOOLS_API void* HeapResize(void* block, std::size_t oldSize, std::size_t newSize);

/// Frees a block; null does nothing.
QXTOOLS_API void HeapFree(void* block);

/// Returns the number of bytes that the block has room for, at least as many as were asked for; 0 for null.
QXTOOLS_API std::size_t HeapSize(const void* block);

}  // namespace qxTools
