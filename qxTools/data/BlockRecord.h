/// @file
/// Where the records of packets and value lists are stored.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

/// The base of records that are stored in zero-filled blocks of QXMemTools when they are made with `new`.
struct QXTOOLS_API BlockRecord {
  /// Takes a block of `size` bytes. @throws std::bad_alloc if memory runs out.
  static void* operator new(std::size_t size);
  /// Frees the block.
  static void operator delete(void* block);
};

}  // namespace qxTools
