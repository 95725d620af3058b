#include "Memory.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>

// The C library's functions under the names that stay when a program brings its own.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* block);
}

namespace {

std::atomic<bool> counting = false;
std::atomic<std::int64_t> blocks = 0;
std::atomic<std::int64_t> now = 0;
std::atomic<std::int64_t> peak = 0;

void* Took(void* block) {
  if (counting && block != nullptr) {
    ++blocks;
    const std::int64_t size = now += static_cast<std::int64_t>(malloc_usable_size(block));
    if (size > peak) peak = size;
  }
  return block;
}

void Gives(void* block) {
  if (counting) now -= static_cast<std::int64_t>(malloc_usable_size(block));
}

}  // namespace

extern "C" {

void* malloc(size_t size) { return Took(__libc_malloc(size)); }
void* calloc(size_t count, size_t size) { return Took(__libc_calloc(count, size)); }
void* memalign(size_t alignment, size_t size) { return Took(__libc_memalign(alignment, size)); }
void* aligned_alloc(size_t alignment, size_t size) { return memalign(alignment, size); }

int posix_memalign(void** block, size_t alignment, size_t size) {
  *block = memalign(alignment, size);
  return *block != nullptr ? 0 : ENOMEM;
}

void free(void* block) {
  Gives(block);
  __libc_free(block);
}

void* realloc(void* block, size_t size) {
  Gives(block);
  void* const moved = __libc_realloc(block, size);
  Took(moved != nullptr || size == 0 ? moved : block);
  return moved;
}

}  // extern "C"

void PeakMemory::Start() {
  blocks = now = peak = 0;
  counting = true;
}

void PeakMemory::Stop(Result& result) {
  counting = false;
  result.num_allocs = blocks;
  result.max_bytes_used = peak;
}
