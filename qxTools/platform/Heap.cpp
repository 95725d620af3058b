#include <qxTools/platform/Heap.h>
#include <qxTools/platform/SystemHeap.h>

#include <algorithm>
#include <cstring>

namespace qxTools {

namespace {

// The allocator's smallest block has room for some bytes, so a block of size 0 is not one of its own.
alignas(std::max_align_t) char emptyBlock[1];

// Growth takes half as much again where memory allows, so that few steps copy.
void* Reallocate(void* block, std::size_t room, std::size_t size) {
  if (size > room)
    if (void* const roomy = SystemResize(block, std::max(size, room + room / 2))) return roomy;
  void* const moved = SystemResize(block, size);
  if (moved == nullptr) SystemFree(block);
  return moved;
}

}  // namespace

void* HeapCreate(std::size_t size) { return size == 0 ? emptyBlock : SystemZeroed(size); }

void* HeapResize(void* block, std::size_t oldSize, std::size_t newSize) {
  const std::size_t room = HeapSize(block);
  const std::size_t kept = std::min(oldSize, room);
  if (room == 0) block = nullptr;
  if (newSize > room || newSize < room / 4) block = Reallocate(block, room, newSize);
  if (block != nullptr && newSize > kept) std::memset(static_cast<char*>(block) + kept, 0, newSize - kept);
  return block;
}

void HeapFree(void* block) {
  if (block != emptyBlock) SystemFree(block);
}

std::size_t HeapSize(const void* block) {
  return block == emptyBlock ? 0 : SystemSize(const_cast<void*>(block));
}

}  // namespace qxTools
