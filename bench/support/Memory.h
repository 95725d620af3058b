// How much memory a row takes at most, counted at the C library's own allocation functions: ours and the
// peers' alike, whatever they are written with.
#pragma once

#include <benchmark/benchmark.h>

class PeakMemory : public benchmark::MemoryManager {
 public:
  void Start() override;
  void Stop(Result& result) override;
  void Stop(Result* result) override { Stop(*result); }
};
