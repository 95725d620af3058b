/// @file
/// Address space that is reserved first and filled with memory page by page.
///
/// Only space of ReserveMem is touched; anything else is refused. For one thread at a time.
#pragma once

#include <qxTools/Export.h>

#include <cstddef>

namespace qxTools {

/// Reserves address space for `size` bytes, rounded up to whole pages and without memory behind it.
/// @return its start, or null when there is no such space or `size` is 0.
QXTOOLS_API void* ReserveMem(std::size_t size);

/// Gives every page that the range touches memory, readable and writable; new pages are zeros.
/// @return false, with nothing changed, when the range is not inside one reserved space.
QXTOOLS_API bool CommitMem(void* address, std::size_t size);

/// Takes the memory of every page that the range touches back; the space stays reserved.
/// @return false, with nothing changed, when the range is not inside one reserved space.
QXTOOLS_API bool DecommitMem(void* address, std::size_t size);

/// Gives a whole reserved space back.
/// @return false, with nothing changed, when `address` is not the start of one.
QXTOOLS_API bool ReleaseMem(void* address);

}  // namespace qxTools
