#include <qxTools/platform/VirtualMemory.h>

#include <limits>

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
  EXPECT_FALSE(CommitMem(space + kSize, 1));
  EXPECT_FALSE(CommitMem(space - 1, 1));
  EXPECT_FALSE(ReleaseMem(space + 4096));
  EXPECT_TRUE(ReleaseMem(space));
  EXPECT_FALSE(ReleaseMem(space));
  EXPECT_EQ(ReserveMem(std::numeric_limits<std::size_t>::max()), nullptr);
}

}  // namespace
