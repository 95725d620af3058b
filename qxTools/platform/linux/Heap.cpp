#include <malloc.h>
#include <qxTools/platform/SystemHeap.h>

#include <cstdlib>

namespace qxTools {

void* SystemResize(void* block, std::size_t size) { return std::realloc(block, size); }

void* SystemZeroed(std::size_t size) { return std::calloc(1, size); }

void SystemFree(void* block) { std::free(block); }

std::size_t SystemSize(void* block) { return malloc_usable_size(block); }

}  // namespace qxTools
