/// @file
/// Records in blocks of the heap, whose failures raise. For the stores' own use.
#pragma once

#include <qxTools/memory/QXMemTools.h>

#include <limits>
#include <memory>
#include <new>

namespace qxTools::stores {

/// A zero-filled block of MemCreate. @throws std::bad_alloc
inline void* MakeRecord(std::size_t size) {
  constexpr std::size_t limit = std::numeric_limits<QXMemTools::TMemorySize>::max();
  void* const record =
      size <= limit ? QXMemTools::MemCreate(static_cast<QXMemTools::TMemorySize>(size)) : nullptr;
  if (record == nullptr) throw std::bad_alloc();
  return record;
}

struct RecordFree {
  void operator()(void* record) const { QXMemTools::MemFree(record); }
};

/// Gives the block back unless it is released.
using Record = std::unique_ptr<void, RecordFree>;

}  // namespace qxTools::stores
