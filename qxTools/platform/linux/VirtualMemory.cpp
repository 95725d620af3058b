#include <qxTools/platform/VirtualMemory.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace qxTools {

namespace {

using Address = std::uintptr_t;

// Start and size in bytes of each reserved space.
struct Spaces {
  std::mutex mutex;
  std::map<Address, std::size_t> sizes;

  // Whether a space has all of a range; none if the range begins in no space.
  std::optional<bool> HasAll(Address from, std::size_t size) {
    const std::lock_guard lock(mutex);
    auto space = sizes.upper_bound(from);
    if (space == sizes.begin()) return std::nullopt;
    --space;
    const Address offset = from - space->first;
    if (offset >= space->second) return std::nullopt;
    return size <= space->second - offset;
  }
};

Spaces& AllSpaces() {
  static Spaces spaces;
  return spaces;
}

Address PageSize() { return static_cast<Address>(sysconf(_SC_PAGESIZE)); }

// A part of the process's address space, from a line of its list: what is private and without a file, and
// either without access or readable and writable, can be committed.
struct Mapping {
  Address start = 0;
  Address end = 0;
  bool isMemory = false;
};

Mapping MappingOf(const std::string& line) {
  Mapping mapping;
  char access[5] = "";
  unsigned long inode = 1;
  std::sscanf(line.c_str(), "%" SCNxPTR "-%" SCNxPTR " %4s %*s %*s %lu", &mapping.start, &mapping.end, access,
              &inode);
  mapping.isMemory = inode == 0 && (std::string(access) == "---p" || std::string(access) == "rw-p");
  return mapping;
}

// Whether memory may be in all of this range, which is not in a space of ReserveMem.
bool IsReserved(Address from, Address end) {
  std::ifstream list("/proc/self/maps");
  for (std::string line; from < end && std::getline(list, line);) {
    const Mapping mapping = MappingOf(line);
    if (mapping.end <= from) continue;
    if (mapping.start > from || !mapping.isMemory) return false;
    from = mapping.end;
  }
  return from >= end;
}

struct Pages {
  void* start = nullptr;
  std::size_t size = 0;
};

// The whole pages that a range of reserved space touches; none for any other range.
Pages PagesOf(void* address, std::size_t size) {
  const auto from = reinterpret_cast<Address>(address);
  if (size == 0 || from + size < from) return {};
  const Address first = from / PageSize() * PageSize();
  const Address last = (from + size - 1) / PageSize() * PageSize();
  const std::size_t whole = last - first + PageSize();
  const std::optional<bool> isOwn = AllSpaces().HasAll(from, size);
  const bool isReserved = isOwn ? *isOwn : IsReserved(first, first + whole);
  return isReserved ? Pages{reinterpret_cast<void*>(first), whole} : Pages();
}

}  // namespace

void* ReserveMem(std::size_t size) {
  const std::size_t whole = (size + PageSize() - 1) / PageSize() * PageSize();
  if (whole < size || whole == 0) return nullptr;
  Spaces& spaces = AllSpaces();
  const std::lock_guard lock(spaces.mutex);
  void* const start = mmap(nullptr, whole, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (start == MAP_FAILED) return nullptr;
  spaces.sizes[reinterpret_cast<Address>(start)] = whole;
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
  Spaces& spaces = AllSpaces();
  const std::lock_guard lock(spaces.mutex);
  const auto space = spaces.sizes.find(reinterpret_cast<Address>(address));
  if (space == spaces.sizes.end() || munmap(address, space->second) != 0) return false;
  spaces.sizes.erase(space);
  return true;
}

}  // namespace qxTools
