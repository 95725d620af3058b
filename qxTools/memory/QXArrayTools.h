/// @file
/// The older and smaller form of QXMemTools: blocks, the block with a cursor, and the array.
///
/// On purpose: its bank does not override Assign, so assigning copies the bytes and the size, while the
/// target keeps its count and element size. It has no element addresses and no typed banks.
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
