// The index that look-ups share, beside the tables one would use otherwise. All index the places of names
// that stay in a list: the peers by function objects that know the list, or by views of the names.
#include <absl/container/flat_hash_map.h>
#include <absl/container/flat_hash_set.h>
#include <benchmark/benchmark.h>
#include <qxTools/runtime/HashIndex.h>

#include <algorithm>
#include <random>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace {

using Names = std::vector<std::string>;

std::size_t HashOf(std::string_view name) { return std::hash<std::string_view>()(name); }
qxTools::HashTag TagOf(std::string_view name) { return {static_cast<std::uint32_t>(HashOf(name))}; }

struct HashOfPlace {
  using is_transparent = void;
  const Names* names;
  std::size_t operator()(int place) const { return HashOf((*names)[static_cast<std::size_t>(place)]); }
  std::size_t operator()(std::string_view name) const { return HashOf(name); }
};

struct EqualNames {
  using is_transparent = void;
  const Names* names;
  std::string_view NameOf(int place) const { return (*names)[static_cast<std::size_t>(place)]; }
  static std::string_view NameOf(std::string_view name) { return name; }
  template <class A, class B>
  bool operator()(const A& a, const B& b) const {
    return NameOf(a) == NameOf(b);
  }
};

struct Ours {
  const Names* names;
  qxTools::HashIndex<int> index{};  // places from 1, since 0 marks a free slot

  auto Matches(std::string_view name) const {
    return [this, name](int place) { return (*names)[static_cast<std::size_t>(place - 1)] == name; };
  }
  void Add(int place) {
    const std::string_view name = (*names)[static_cast<std::size_t>(place)];
    index.Insert(place + 1, TagOf(name), Matches(name));
  }
  int Find(std::string_view name) const {
    const int* const found = index.Find(TagOf(name), Matches(name));
    return found != nullptr ? *found - 1 : -1;
  }
};

template <class Set>
struct OfPlaces {
  const Names* names;
  Set set{16, HashOfPlace{names}, EqualNames{names}};

  void Add(int place) { set.insert(place); }
  int Find(std::string_view name) const {
    const auto found = set.find(name);
    return found != set.end() ? *found : -1;
  }
};

template <class Map>
struct OfViews {
  const Names* names;
  Map map{};

  void Add(int place) { map.emplace((*names)[static_cast<std::size_t>(place)], place); }
  int Find(std::string_view name) const {
    const auto found = map.find(name);
    return found != map.end() ? found->second : -1;
  }
};

using StdSet = OfPlaces<std::unordered_set<int, HashOfPlace, EqualNames>>;
using AbslSet = OfPlaces<absl::flat_hash_set<int, HashOfPlace, EqualNames>>;
using StdMap = OfViews<std::unordered_map<std::string_view, int>>;
using AbslMap = OfViews<absl::flat_hash_map<std::string_view, int>>;

Names MakeNames(std::int64_t count, std::string_view prefix) {
  Names names;
  for (std::int64_t i = 0; i < count; ++i) names.push_back(std::string(prefix) + std::to_string(i));
  std::shuffle(names.begin(), names.end(), std::mt19937(1));
  return names;
}

template <class Index>
Index Filled(const Names& names) {
  Index index{&names};
  for (std::size_t i = 0; i < names.size(); ++i) index.Add(static_cast<int>(i));
  return index;
}

template <class Index>
void Fill(benchmark::State& state) {
  const Names names = MakeNames(state.range(0), "a name of some length ");
  for (auto _ : state) benchmark::DoNotOptimize(Filled<Index>(names));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Looks up each of `wanted`, of which all or none are among the names.
template <class Index>
void Search(benchmark::State& state, const Names& wanted, bool there) {
  const Names names = MakeNames(state.range(0), "a name of some length ");
  const Index index = Filled<Index>(names);
  for (const std::string& name : wanted)
    if ((index.Find(name) >= 0) != there) return state.SkipWithError("wrong place");
  for (auto _ : state)
    for (const std::string& name : wanted) benchmark::DoNotOptimize(index.Find(name));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Index>
void Find(benchmark::State& state) {
  Names wanted = MakeNames(state.range(0), "a name of some length ");
  std::shuffle(wanted.begin(), wanted.end(), std::mt19937(2));
  Search<Index>(state, wanted, true);
}

template <class Index>
void FindAbsent(benchmark::State& state) {
  Search<Index>(state, MakeNames(state.range(0), "a name of none length "), false);
}

void Register(const std::string& work, const char* who, void (*row)(benchmark::State&)) {
  benchmark::RegisterBenchmark(("hash_index." + work + "/" + who).c_str(), row)->Arg(1000)->Arg(100000);
}

template <class Index>
bool RegisterAll(const char* who) {
  Register("fill", who, Fill<Index>);
  Register("find", who, Find<Index>);
  Register("find_absent", who, FindAbsent<Index>);
  return true;
}

const bool kRegistered = RegisterAll<Ours>("qxTools") && RegisterAll<StdSet>("std set of places") &&
                         RegisterAll<StdMap>("std map of views") &&
                         RegisterAll<AbslSet>("Abseil set of places") &&
                         RegisterAll<AbslMap>("Abseil map of views");

}  // namespace
