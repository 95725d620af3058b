#include <qxTools/data/BlockRecord.h>
#include <qxTools/memory/QXMemTools.h>

#include <new>

namespace qxTools {

void* BlockRecord::operator new(std::size_t size) {
  void* const block = QXMemTools::MemCreate(static_cast<QXMemTools::TMemorySize>(size));
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void BlockRecord::operator delete(void* block) { QXMemTools::MemFree(block); }

}  // namespace qxTools
