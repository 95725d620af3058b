// Making keys, beside the random identifiers of libuuid and of Boost (whose source is the system's).
#include <benchmark/benchmark.h>
#include <qxTools/encoding/QXUniKey.h>
#include <uuid/uuid.h>

#include <boost/uuid/random_generator.hpp>

namespace {

// Runs `make` once a round; two results in a row must differ.
template <class Make>
auto Making(Make make) {
  return [make](benchmark::State& state) mutable {
    if (make() == make()) return state.SkipWithError("not unique");
    for (auto _ : state) benchmark::DoNotOptimize(make());
    state.SetItemsProcessed(state.iterations());
  };
}

struct Uuid {
  uuid_t bytes;
  friend bool operator==(const Uuid& a, const Uuid& b) { return uuid_compare(a.bytes, b.bytes) == 0; }
};

[[maybe_unused]] const bool registered = [] {
  benchmark::RegisterBenchmark("key.make/qxTools/1", Making([] { return qxTools::QXUniKey::UniKey(); }));
  benchmark::RegisterBenchmark("key.make/libuuid/1", Making([] {
                                 Uuid uuid;
                                 uuid_generate_random(uuid.bytes);
                                 return uuid;
                               }));
  benchmark::RegisterBenchmark("key.make/boost_random_generator/1", [](benchmark::State& state) {
    boost::uuids::random_generator generator;
    Making([&] { return generator(); })(state);
  });
  return true;
}();

}  // namespace
