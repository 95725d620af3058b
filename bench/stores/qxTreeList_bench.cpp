// The tree store beside a hash map that holds nodes by 16-byte keys. Making a key is taken out of the time
// for appending: a map is given its keys.
#include <benchmark/benchmark.h>
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/stores/qxTreeList.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <list>
#include <map>
#include <memory>
#include <random>
#include <unordered_map>
#include <utility>
#include <vector>

#include "stores/PlainMap.h"

namespace {

using namespace qxTools::qxTreeList;

// For siblings: a list in order, and a map from the keys to its places.
using Records = std::list<Record>;
using Places = std::unordered_map<Key, Records::iterator, KeyHash>;

// Processor time, so that other programs do not count.
double Now() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// --- Appending ---------------------------------------------------------------

double KeysAlone(std::size_t count) {
  const double start = Now();
  for (std::size_t i = 0; i < count; ++i) benchmark::DoNotOptimize(qxTools::QXUniKey::UniKey());
  return Now() - start;
}

template <class AddOne>
void AppendNodes(benchmark::State& state, AddOne addOne) {
  const auto count = static_cast<std::size_t>(state.range(0));
  for (auto _ : state) {
    const double keys = KeysAlone(count);
    auto tree = std::make_unique<TQXTreeNodes>();
    tree->OpenRootNode();
    const TNodeKey parent = tree->Add()->Key;
    const double start = Now();
    for (std::size_t i = 0; i < count; ++i) benchmark::DoNotOptimize(addOne(*tree, parent));
    state.SetIterationTime(std::max(Now() - start - keys, 1e-9));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void AppendToMap(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  std::vector<Key> keys(count);
  std::generate(keys.begin(), keys.end(), FreshKey);
  for (auto _ : state) {
    auto map = std::make_unique<Map>();
    const double start = Now();
    for (const Key& key : keys) map->emplace(key, Record{Key{}, key, nullptr, 1});
    state.SetIterationTime(Now() - start);
    if (map->size() != count) return state.SkipWithError("keys are missing");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// --- Finding and deleting ----------------------------------------------------

// A filled tree, the same keys in a map, and in a list with a map; keys to look for in an order of their own,
// and as many unknown.
struct Filled {
  explicit Filled(std::size_t count) {
    tree.OpenRootNode();
    for (std::size_t i = 0; i < count; ++i) {
      Key key;
      std::memcpy(key.data(), tree.Add()->Key.View().data(), key.size());
      known.push_back(key);
      unknown.push_back(FreshKey());
      map.emplace(key, Record{Key{}, key, nullptr, 1});
      places.emplace(key, records.insert(records.end(), {Key{}, key, nullptr, 1}));
    }
    std::shuffle(known.begin(), known.end(), std::mt19937());
  }

  TQXTreeNodes tree;
  Map map;
  Records records;
  Places places;
  std::vector<Key> known;
  std::vector<Key> unknown;
};

Filled& FilledWith(std::size_t count) {
  static std::map<std::size_t, std::unique_ptr<Filled>> filled;
  if (filled[count] == nullptr) filled[count] = std::make_unique<Filled>(count);
  return *filled[count];
}

TNodeKey NodeKey(const Key& key) { return std::string_view(key.data(), key.size()); }

// Looks every key up once a round; `found` of them must be there.
template <class LookUp>
void LookUpAll(benchmark::State& state, bool known, LookUp lookUp) {
  Filled& filled = FilledWith(static_cast<std::size_t>(state.range(0)));
  const std::vector<Key>& keys = known ? filled.known : filled.unknown;
  for (auto _ : state) {
    std::size_t found = 0;
    for (const Key& key : keys) found += lookUp(filled, key) ? 1 : 0;
    if (found != (known ? keys.size() : 0)) return state.SkipWithError("wrong number found");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

bool FindInMap(const Filled& filled, const Key& key) {
  const auto place = filled.map.find(key);
  if (place == filled.map.end()) return false;
  benchmark::DoNotOptimize(&place->second);
  return true;
}

bool FindNode(const Filled& filled, const Key& key) {
  pQXTreeNode node = nullptr;
  return filled.tree.FindNode(NodeKey(key), node);
}

bool FindNodeLink(const Filled& filled, const Key& key) {
  pQXTreeNodeLink link = nullptr;
  return filled.tree.FindNodeLink(NodeKey(key), link);
}

// True for the last sibling too, which alone has no next one.
bool FindNextNode(const Filled& filled, const Key& key) {
  pQXTreeNode node = filled.tree.GetRootNode();
  return filled.tree.FindNextNode(NodeKey(key), node) || node == nullptr;
}

bool NextInList(const Filled& filled, const Key& key) {
  const auto place = filled.places.find(key);
  if (place == filled.places.end()) return false;
  const auto next = std::next(place->second);
  if (next != filled.records.end()) benchmark::DoNotOptimize(&*next);
  return true;
}

void DeleteFromList(Filled& filled, const Key& key) {
  const auto place = filled.places.find(key);
  filled.records.erase(place->second);
  filled.places.erase(place);
}

template <class DeleteOne>
void DeleteAll(benchmark::State& state, DeleteOne deleteOne) {
  for (auto _ : state) {
    state.PauseTiming();
    auto filled = std::make_unique<Filled>(static_cast<std::size_t>(state.range(0)));
    state.ResumeTiming();
    for (const Key& key : filled->known) deleteOne(*filled, key);
    state.PauseTiming();
    filled.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// --- Large subtrees ----------------------------------------------------------

// Enumerates and deletes a node with a million children, or a chain of a million levels.
void EnumerateAndDelete(benchmark::State& state, bool chain) {
  for (auto _ : state) {
    state.PauseTiming();
    TQXTreeNodes tree;
    const TNodeKey top = tree.Add("")->Key;
    TNodeKey parent = top;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      const pQXTreeNode node = tree.Add(parent);
      if (chain) parent = node->Key;
    }
    std::int64_t seen = 0;
    state.ResumeTiming();
    tree.EnumTreeNode(
        top, [&](pQXTreeNode) { ++seen; }, true);
    tree.Delete(top);
    if (seen != state.range(0)) return state.SkipWithError("nodes are missing");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// The same by hand: a map that holds the nodes, which point at one another.
class LinkedNodes {
 public:
  struct Node {
    Key key{};
    Node* firstChild = nullptr;
    Node* next = nullptr;
  };

  Node* Add(Node* parent) {
    const Key key = FreshKey();
    Node* const node = &nodes_.emplace(key, Node{key}).first->second;
    if (parent != nullptr) node->next = std::exchange(parent->firstChild, node);
    return node;
  }
  // Parents before children.
  template <class Visit>
  static void ForEach(Node* top, Visit visit) {
    for (std::vector<Node*> open{top}; !open.empty();) {
      Node* const node = open.back();
      open.pop_back();
      for (Node* child = node->firstChild; child != nullptr; child = child->next) open.push_back(child);
      visit(node);
    }
  }
  void Delete(Node* top) {
    ForEach(top, [&](Node* node) { nodes_.erase(Key(node->key)); });
  }

 private:
  std::unordered_map<Key, Node, KeyHash> nodes_;
};

void EnumerateAndDeleteLinked(benchmark::State& state, bool chain) {
  for (auto _ : state) {
    state.PauseTiming();
    LinkedNodes nodes;
    LinkedNodes::Node* const top = nodes.Add(nullptr);
    LinkedNodes::Node* parent = top;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      LinkedNodes::Node* const node = nodes.Add(parent);
      if (chain) parent = node;
    }
    std::int64_t seen = 0;
    state.ResumeTiming();
    LinkedNodes::ForEach(top, [&](LinkedNodes::Node*) { ++seen; });
    nodes.Delete(top);
    if (seen != state.range(0) + 1) return state.SkipWithError("nodes are missing");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Run>
void Row(const char* name, Run run, bool manualTime) {
  auto* const row = benchmark::RegisterBenchmark(name, run)->Arg(10000)->Arg(100000)->Arg(1000000);
  if (manualTime) row->UseManualTime();
}

template <class LookUp>
void LookUpRow(const char* name, bool known, LookUp lookUp) {
  Row(
      name, [=](benchmark::State& state) { LookUpAll(state, known, lookUp); }, false);
}

[[maybe_unused]] const bool registered = [] {
  const auto addOpened = [](TQXTreeNodes& tree, const TNodeKey&) { return tree.Add(); };
  const auto addKey = [](TQXTreeNodes& tree, const TNodeKey& parent) { return tree.Add(parent); };
  Row(
      "tree.add/qxTools", [=](benchmark::State& state) { AppendNodes(state, addOpened); }, true);
  Row("tree.add/unordered_map", AppendToMap, true);
  Row(
      "tree.add_key/qxTools", [=](benchmark::State& state) { AppendNodes(state, addKey); }, true);
  Row("tree.add_key/unordered_map", AppendToMap, true);
  LookUpRow("tree.find_node/qxTools", true, FindNode);
  LookUpRow("tree.find_node/unordered_map", true, FindInMap);
  LookUpRow("tree.find_link/qxTools", true, FindNodeLink);
  LookUpRow("tree.find_link/unordered_map", true, FindInMap);
  LookUpRow("tree.find_next/qxTools", true, FindNextNode);
  LookUpRow("tree.find_next/map_and_list", true, NextInList);
  LookUpRow("tree.find_miss/qxTools", false, FindNode);
  LookUpRow("tree.find_miss/unordered_map", false, FindInMap);
  const auto deleteNode = [](Filled& filled, const Key& key) { filled.tree.Delete(NodeKey(key)); };
  Row(
      "tree.delete/qxTools", [=](benchmark::State& state) { DeleteAll(state, deleteNode); }, false);
  Row(
      "tree.delete/map_and_list", [](benchmark::State& state) { DeleteAll(state, DeleteFromList); }, false);
  for (const bool chain : {false, true}) {
    const std::string work = chain ? "tree.chain/" : "tree.wide/";
    Row((work + "qxTools").c_str(), [=](benchmark::State& state) { EnumerateAndDelete(state, chain); },
        false);
    Row((work + "linked_nodes").c_str(),
        [=](benchmark::State& state) { EnumerateAndDeleteLinked(state, chain); }, false);
  }
  return true;
}();

}  // namespace
