// What a system brings for Heap.h: an allocator that knows the size of its blocks.
#pragma once

#include <cstddef>

namespace qxTools {

constexpr std::size_t kHeapAlignment = alignof(std::max_align_t);

/// Makes a block (`block` is null) or resizes one; new bytes have any value. Null, with the block as it was,
/// if memory runs out. `size` is above 0.
void* SystemResize(void* block, std::size_t size);

/// Makes a block of `size` (above 0) zero bytes, or null if memory runs out.
void* SystemZeroed(std::size_t size);

/// Gives a block back; null does nothing.
void SystemFree(void* block);

/// The bytes that a block has room for; 0 for null.
std::size_t SystemSize(void* block);

}  // namespace qxTools
