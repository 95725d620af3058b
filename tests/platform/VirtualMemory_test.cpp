#include <qxTools/platform/VirtualMemory.h>
#if !defined(_WIN32)
#include <sys/mman.h>
#endif

#include <future>

#include "support/Testing.h"

namespace {

using namespace qxTools;

constexpr std::size_t kSize = 1 << 20;

TEST(VirtualMemory, PagesAreCommittedInsideAReservedSpaceOnly) {
  auto* const space = static_cast<char*>(ReserveMem(kSize));
  EXPECT_TRUE(CommitMem(space + 4090, 10));  // two pages
  space[0] = 'a';
  space[8191] = 'b';
  EXPECT_TRUE(DecommitMem(space + 4095, 1));
  EXPECT_TRUE(CommitMem(space, 8192));
  EXPECT_EQ(space[0], 0);
  EXPECT_EQ(space[8191], 'b');  // what is committed stays
  EXPECT_FALSE(CommitMem(space, kSize + 1));
  EXPECT_FALSE(CommitMem(space + 1, std::numeric_limits<std::size_t>::max()));
  EXPECT_FALSE(ReleaseMem(space + 4096));
  EXPECT_TRUE(ReleaseMem(space));
  EXPECT_FALSE(ReleaseMem(space));
  EXPECT_EQ(ReserveMem(std::numeric_limits<std::size_t>::max()), nullptr);
}

#if !defined(_WIN32)  // there the system's own functions do so
TEST(VirtualMemory, SpaceThatTheCallerReservedIsCommittedToo) {
  static const char kConstant[10000] = "no memory of the caller's";
  auto* const space =
      static_cast<char*>(mmap(nullptr, kSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
  munmap(space + kSize / 2, kSize / 2);
  EXPECT_TRUE(CommitMem(space + 4090, 10));
  space[8191] = 'b';
  EXPECT_TRUE(CommitMem(space + 8192, 1));
  EXPECT_EQ(space[8191], 'b');
  EXPECT_TRUE(DecommitMem(space + 4090, 10) && CommitMem(space + 4090, 10));
  EXPECT_EQ(space[8191], 0);
  EXPECT_FALSE(CommitMem(space, kSize));
  EXPECT_FALSE(ReleaseMem(space));
  EXPECT_FALSE(DecommitMem(const_cast<char*>(kConstant), 1));
  munmap(space, kSize / 2);
  EXPECT_FALSE(CommitMem(space, 1));
}
#endif

TEST(VirtualMemory, ThreadsReserveAndReleaseAtOnce) {
  const auto work = [] {
    for (int i = 0; i < 2000; ++i) {
      auto* const space = static_cast<char*>(ReserveMem(8192));
      if (!CommitMem(space, 8192) || !DecommitMem(space, 1) || !ReleaseMem(space)) return false;
    }
    return true;
  };
  std::future<bool> threads[] = {std::async(std::launch::async, work), std::async(std::launch::async, work),
                                 std::async(std::launch::async, work)};
  for (auto& thread : threads) EXPECT_TRUE(thread.get());
}

}  // namespace
