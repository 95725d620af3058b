#include <qxTools/data/RecordIndex.h>
#include <qxTools/memory/QXMemTools.h>

#include <atomic>
#include <new>

namespace qxTools {

namespace {

// Lists on several threads share it: a change elsewhere costs them a look-up in the long way, no more.
std::atomic<std::uint64_t> changes{0};

}  // namespace

void NoteNameChange() { changes.fetch_add(1, std::memory_order_relaxed); }

std::uint64_t NameChanges() { return changes.load(std::memory_order_relaxed); }

void* BlockRecord::operator new(std::size_t size) {
  void* const block = QXMemTools::MemCreate(static_cast<QXMemTools::TMemorySize>(size));
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void BlockRecord::operator delete(void* block) { QXMemTools::MemFree(block); }

}  // namespace qxTools
