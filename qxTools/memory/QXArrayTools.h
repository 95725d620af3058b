/// @file
/// The older and smaller sibling of QXMemTools: blocks, the block with a cursor, and the array.
///
/// On purpose it differs: its bank does not override Assign, so assigning copies bytes and size, while count
/// and element size of the target stay. It hands out no element addresses and has no typed banks.
#pragma once

#include <qxTools/memory/MemoryCore.h>

namespace qxTools::QXArrayTools {

using MemoryCore::IMemoryBank;
using MemoryCore::IMemoryOperation;
using MemoryCore::MemCreate;
using MemoryCore::MemFree;
using MemoryCore::MemSize;
using MemoryCore::THandle;
using MemoryCore::TMemoryBank;
using MemoryCore::TMemoryOperation;
using MemoryCore::TMemorySize;

}  // namespace qxTools::QXArrayTools
