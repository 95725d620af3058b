#include <qxTools/runtime/StrAlloc.h>

#include <cstdlib>
#include <new>

namespace qxTools {

char* StrAlloc(std::size_t size) {
  char* const buffer = static_cast<char*>(std::calloc(size != 0 ? size : 1, 1));
  if (buffer == nullptr) throw std::bad_alloc();
  return buffer;
}

void StrDispose(char* buffer) { std::free(buffer); }

}  // namespace qxTools
