#include <qxTools/platform/VirtualMemory.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <map>

namespace qxTools {

namespace {

using Address = std::uintptr_t;

// Start and size in bytes of each reserved space.
std::map<Address, std::size_t>& Spaces() {
  static std::map<Address, std::size_t> spaces;
  return spaces;
}

Address PageSize() { return static_cast<Address>(sysconf(_SC_PAGESIZE)); }

struct Pages {
  void* start = nullptr;
  std::size_t size = 0;
};

// The whole pages that a range inside one reserved space touches; none for any other range.
Pages PagesOf(void* address, std::size_t size) {
  const auto from = reinterpret_cast<Address>(address);
  auto space = Spaces().upper_bound(from);
  if (size == 0 || space == Spaces().begin()) return {};
  --space;
  const Address offset = from - space->first;
  if (offset >= space->second || size > space->second - offset) return {};
  const Address first = offset / PageSize() * PageSize();
  const Address last = (offset + size - 1) / PageSize() * PageSize();
  return {reinterpret_cast<void*>(space->first + first), last - first + PageSize()};
}

}  // namespace

void* ReserveMem(std::size_t size) {
  const std::size_t whole = (size + PageSize() - 1) / PageSize() * PageSize();
  if (whole < size || whole == 0) return nullptr;
  void* const start = mmap(nullptr, whole, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (start == MAP_FAILED) return nullptr;
  Spaces()[reinterpret_cast<Address>(start)] = whole;
  return start;
}

bool CommitMem(void* address, std::size_t size) {
  const Pages pages = PagesOf(address, size);
  return pages.size != 0 && mprotect(pages.start, pages.size, PROT_READ | PROT_WRITE) == 0;
}

bool DecommitMem(void* address, std::size_t size) {
  const Pages pages = PagesOf(address, size);
  return pages.size != 0 && madvise(pages.start, pages.size, MADV_DONTNEED) == 0 &&
         mprotect(pages.start, pages.size, PROT_NONE) == 0;
}

bool ReleaseMem(void* address) {
  const auto space = Spaces().find(reinterpret_cast<Address>(address));
  if (space == Spaces().end() || munmap(address, space->second) != 0) return false;
  Spaces().erase(space);
  return true;
}

}  // namespace qxTools
