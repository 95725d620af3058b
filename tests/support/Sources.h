#pragma once

#include <qxTools/platform/Clock.h>
#include <qxTools/platform/Random.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace qxTools::test {

/// A clock that stands still, plugged in while it lives.
class FixedClock : public ClockSource {
 public:
  explicit FixedClock(TDateTime now) : now_(now) { SetClockSource(this); }
  ~FixedClock() override { SetClockSource(nullptr); }
  TDateTime Now() override { return now_; }

 private:
  TDateTime now_;
};

/// Draws the given numbers in turn, over and over, plugged in while it lives.
class FixedDraws : public RandomSource {
 public:
  explicit FixedDraws(std::vector<std::uint32_t> draws) : draws_(std::move(draws)) { SetRandomSource(this); }
  ~FixedDraws() override { SetRandomSource(nullptr); }
  void Draw(std::uint32_t* numbers, std::size_t count) override {
    std::generate_n(numbers, count, [&] { return draws_[next_++ % draws_.size()]; });
  }

 private:
  std::vector<std::uint32_t> draws_;
  std::size_t next_ = 0;
};

}  // namespace qxTools::test
