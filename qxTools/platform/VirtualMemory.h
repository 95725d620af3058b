/// @file
/// Address space that is reserved first and filled with memory page by page.
///
/// Any number of threads may call these functions.
#pragma once

#include <qxTools/Export.h>

#include <cstddef>

namespace qxTools {

/// Reserves address space for `size` bytes, rounded up to whole pages, without memory in it.
/// @return its start, or null if there is no such space or `size` is 0.
QXTOOLS_API void* ReserveMem(std::size_t size);

/// Gives memory, readable and writable, to every page that the range touches; new pages are zeros. The range
/// must be inside address space that ReserveMem reserved, or that the caller reserved by the system's own
/// means.
/// @return false, with nothing changed, if it is not.
QXTOOLS_API bool CommitMem(void* address, std::size_t size);

/// Takes the memory of every page that the range touches back; the space stays reserved. The range must be as
/// for CommitMem.
/// @return false, with nothing changed, if it is not.
QXTOOLS_API bool DecommitMem(void* address, std::size_t size);

/// Gives a whole space of ReserveMem back.
/// @return false, with nothing changed, if `address` is not the start of one.
QXTOOLS_API bool ReleaseMem(void* address);

}  // namespace qxTools
