// Linked into every benchmark: freed memory stays with the process, so that the rows of large sizes measure the
// work, ours and the peer's alike, and not the system handing out fresh pages.
#include <malloc.h>

namespace {

const bool kept = [] {
  constexpr int kNever = 1 << 30;
  return mallopt(M_MMAP_THRESHOLD, kNever) != 0 && mallopt(M_TRIM_THRESHOLD, kNever) != 0;
}();

}  // namespace
