/// @file
/// Zero-filled blocks of the heap that free themselves. For the stores' own use.
#pragma once

#include <qxTools/memory/QXMemTools.h>

#include <limits>
#include <memory>
#include <new>

namespace qxTools::stores {

struct MemFreeBlock {
  void operator()(void* block) const { QXMemTools::MemFree(block); }
};

/// A block of MemCreate, freed unless it is released.
using ZeroedBlock = std::unique_ptr<void, MemFreeBlock>;

/// Makes a block of `size` zero bytes. @throws std::bad_alloc
inline ZeroedBlock MakeZeroedBlock(std::size_t size) {
  constexpr std::size_t limit = std::numeric_limits<QXMemTools::TMemorySize>::max();
  void* const block =
      size <= limit ? QXMemTools::MemCreate(static_cast<QXMemTools::TMemorySize>(size)) : nullptr;
  if (block == nullptr) throw std::bad_alloc();
  return ZeroedBlock(block);
}

}  // namespace qxTools::stores
