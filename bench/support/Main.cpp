// Runs a program's benchmarks. Under callgrind each row runs once and leaves its count of instructions
// behind, which is the same on every machine and however busy it is.
#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

#include "Memory.h"

namespace {

/// After each row, callgrind writes what was counted since the last one, under the row's name.
class CountingReporter : public benchmark::ConsoleReporter {
 public:
  bool ReportContext(const Context& context) override {
    CALLGRIND_ZERO_STATS;
    return ConsoleReporter::ReportContext(context);
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    const std::string name = runs.front().run_name.str();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    ConsoleReporter::ReportRuns(runs);
    CALLGRIND_ZERO_STATS;
  }
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  if (RUNNING_ON_VALGRIND != 0) {
    CountingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
  } else {
    PeakMemory peak;
    benchmark::RegisterMemoryManager(&peak);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::RegisterMemoryManager(nullptr);
  }
  benchmark::Shutdown();
}
