#include <qxTools/platform/VirtualMemory.h>
#include <windows.h>

namespace qxTools {

namespace {

/// Whether the range is inside one space that was reserved as such.
bool IsReserved(void* address, std::size_t size) {
  MEMORY_BASIC_INFORMATION first;
  MEMORY_BASIC_INFORMATION last;
  char* const start = static_cast<char*>(address);
  if (size == 0 || ::VirtualQuery(start, &first, sizeof first) == 0) return false;
  if (::VirtualQuery(start + size - 1, &last, sizeof last) == 0) return false;
  return first.Type == MEM_PRIVATE && first.AllocationBase == last.AllocationBase;
}

}  // namespace

void* ReserveMem(std::size_t size) {
  return size == 0 ? nullptr : ::VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_READWRITE);
}

bool CommitMem(void* address, std::size_t size) {
  return IsReserved(address, size) && ::VirtualAlloc(address, size, MEM_COMMIT, PAGE_READWRITE) != nullptr;
}

bool DecommitMem(void* address, std::size_t size) {
  return IsReserved(address, size) && ::VirtualFree(address, size, MEM_DECOMMIT) != 0;
}

bool ReleaseMem(void* address) { return address != nullptr && ::VirtualFree(address, 0, MEM_RELEASE) != 0; }

}  // namespace qxTools
