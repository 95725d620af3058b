#include <malloc.h>
#include <qxTools/platform/SystemHeap.h>

#include <cstdint>
#include <cstring>

namespace qxTools {

namespace {

// The C library's own blocks are aligned to 8 on 32 bits, and it does not give the size of aligned ones: that
// is in front of each block, in bytes that keep the alignment.
constexpr std::size_t kFront = kHeapAlignment;
static_assert(kFront >= sizeof(std::size_t));

char* StartOf(void* block) { return block == nullptr ? nullptr : static_cast<char*>(block) - kFront; }

}  // namespace

void* SystemResize(void* block, std::size_t size) {
  if (size > SIZE_MAX - kFront) return nullptr;
  void* const start = _aligned_realloc(StartOf(block), size + kFront, kHeapAlignment);
  if (start == nullptr) return nullptr;
  std::memcpy(start, &size, sizeof size);
  return static_cast<char*>(start) + kFront;
}

void* SystemZeroed(std::size_t size) {
  void* const block = SystemResize(nullptr, size);
  return block != nullptr ? std::memset(block, 0, size) : nullptr;
}

void SystemFree(void* block) { _aligned_free(StartOf(block)); }

std::size_t SystemSize(void* block) {
  std::size_t size = 0;
  if (block != nullptr) std::memcpy(&size, StartOf(block), sizeof size);
  return size;
}

}  // namespace qxTools
