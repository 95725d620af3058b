// Making keys, beside the random identifiers of libuuid and of Boost, from the system's source and from a
// seeded one; and the text of a key.
#include <benchmark/benchmark.h>
#include <qxTools/encoding/QXUniKey.h>
#include <uuid/uuid.h>

#include <boost/uuid/random_generator.hpp>
#include <random>

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
  benchmark::RegisterBenchmark("key.make/boost_seeded_mt19937/1", [](benchmark::State& state) {
    std::mt19937 numbers(1);
    boost::uuids::basic_random_generator<std::mt19937> generator(numbers);
    Making([&] { return generator(); })(state);
  });
  benchmark::RegisterBenchmark("key.text/qxTools/1", [](benchmark::State& state) {
    const std::string key = qxTools::QXUniKey::UniKey();
    if (qxTools::QXUniKey::UniKey32To16(qxTools::QXUniKey::UniKey16To32(key)) != key)
      return state.SkipWithError("not the text of the key");
    for (auto _ : state) benchmark::DoNotOptimize(qxTools::QXUniKey::UniKey16To32(key));
  });
  benchmark::RegisterBenchmark("key.text/uuid_unparse/1", [](benchmark::State& state) {
    Uuid uuid;
    uuid_generate_random(uuid.bytes);
    for (auto _ : state) {
      std::string text(36, ' ');
      uuid_unparse_upper(uuid.bytes, text.data());
      benchmark::DoNotOptimize(text);
    }
  });
  return true;
}();

}  // namespace
