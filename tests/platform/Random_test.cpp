#include <gtest/gtest.h>
#include <qxTools/platform/Random.h>

#include <array>

namespace {

class Counting : public qxTools::RandomSource {
 public:
  void Draw(std::uint32_t* numbers, std::size_t count) override {
    for (std::size_t i = 0; i < count; ++i) numbers[i] = next_ += 0x10000000;
  }

 private:
  std::uint32_t next_ = 0;
};

TEST(Random, APluggedInSourceIsDrawnFromInOrderAndCanBeTakenOut) {
  Counting source;
  ASSERT_EQ(qxTools::SetRandomSource(&source), nullptr);
  EXPECT_EQ(qxTools::Random(16), 1U);
  std::array<std::uint32_t, 2> numbers{};
  qxTools::DrawRandom(numbers.data(), numbers.size());
  EXPECT_EQ(numbers, (std::array<std::uint32_t, 2>{0x20000000, 0x30000000}));
  EXPECT_EQ(qxTools::SetRandomSource(nullptr), &source);
}

TEST(Random, TheBuiltInSourceStaysBelowTheRangeAndReachesAllOfIt) {
  std::array<int, 30> seen{};
  for (int i = 0; i < 10000; ++i) ++seen.at(qxTools::Random(30));
  for (const int count : seen) EXPECT_GT(count, 200);
  EXPECT_EQ(qxTools::Random(0), 0U);
}

}  // namespace
