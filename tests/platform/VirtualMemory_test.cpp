#include <gtest/gtest.h>
#include <qxTools/platform/VirtualMemory.h>

#include <limits>

namespace {

using namespace qxTools;

constexpr std::size_t kSize = 1 << 20;

TEST(VirtualMemory, PagesAreCommittedInsideAReservedSpaceOnly) {
  auto* const space = static_cast<char*>(ReserveMem(kSize));
  ASSERT_NE(space, nullptr);
  EXPECT_TRUE(CommitMem(space + 4090, 10));  // two pages
  space[0] = 'a';
  space[8191] = 'b';
  EXPECT_TRUE(CommitMem(space + 100, 1));
  EXPECT_EQ(space[0], 'a');  // what is committed stays
  EXPECT_FALSE(CommitMem(space, 0));
  EXPECT_FALSE(CommitMem(space, kSize + 1));
  EXPECT_FALSE(CommitMem(space + 1, std::numeric_limits<std::size_t>::max()));
  EXPECT_FALSE(CommitMem(space + kSize, 1));
  EXPECT_FALSE(CommitMem(space - 1, 1));
  int outside = 0;
  EXPECT_FALSE(CommitMem(&outside, 1));
  EXPECT_TRUE(ReleaseMem(space));
}

TEST(VirtualMemory, DecommittedPagesComeBackAsZeros) {
  auto* const space = static_cast<char*>(ReserveMem(kSize));
  ASSERT_TRUE(CommitMem(space, kSize));
  space[5000] = 'x';
  EXPECT_TRUE(DecommitMem(space + 4999, 2));
  EXPECT_TRUE(CommitMem(space + 5000, 1));
  EXPECT_EQ(space[5000], 0);
  EXPECT_TRUE(ReleaseMem(space));
}

TEST(VirtualMemory, OnlyAWholeSpaceIsReleasedAndOnce) {
  EXPECT_EQ(ReserveMem(0), nullptr);
  EXPECT_EQ(ReserveMem(std::numeric_limits<std::size_t>::max()), nullptr);
  auto* const space = static_cast<char*>(ReserveMem(1));
  EXPECT_FALSE(ReleaseMem(space + 1));
  EXPECT_TRUE(ReleaseMem(space));
  EXPECT_FALSE(ReleaseMem(space));
  EXPECT_FALSE(DecommitMem(space, 1));
}

}  // namespace
