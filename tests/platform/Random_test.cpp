#include <qxTools/platform/Random.h>

#include "support/Testing.h"

namespace {

TEST(Random, EverySourceStaysBelowTheRangeAndReachesAllOfIt) {
  qxTools::SystemRandomSource system;
  for (qxTools::RandomSource* const source :
       std::initializer_list<qxTools::RandomSource*>{nullptr, &system}) {
    qxTools::SetRandomSource(source);
    std::array<int, 30> seen{};
    for (int i = 0; i < 10000; ++i) ++seen.at(qxTools::Random(30));
    for (const int count : seen) EXPECT_GT(count, 200);
    EXPECT_EQ(qxTools::Random(0), 0U);
    EXPECT_EQ(qxTools::SetRandomSource(nullptr), source);
  }
}

}  // namespace
