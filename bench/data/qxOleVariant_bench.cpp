// The data packet and the value list. Sizes are numbers of fields; look-ups go through all names in turn, in
// small letters.
//
// packet.save and packet.load stand beside a plain vector of names and values that is flattened and rebuilt
// the same way; the look-ups beside an std::unordered_map, which is asked with its own kind of key.
#include <benchmark/benchmark.h>
#include <qxTools/data/QXValueTools.h>
#include <qxTools/data/qxOleVariant.h>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/Pairs.h"

using namespace qxTools;
using qxOleVariant::TQXOleVariant;
using QXValueTools::TQXValueList;

namespace {

using Map = std::unordered_map<std::string, Variant>;

/// `stem`, a dash and five digits.
template <class Text>
Text NameAt(Text stem, Integer i) {
  const std::string digits = std::to_string(100000 + i).substr(1);
  return std::move(stem) + Text(digits.begin(), digits.end());
}

template <class Text>
std::vector<Text> NamesOf(const Text& stem, Integer count) {
  std::vector<Text> names;
  for (Integer i = 0; i < count; ++i) names.push_back(NameAt(stem, i));
  return names;
}

Variant ValueAt(Integer i) { return i % 2 == 0 ? Variant(i) : Variant("text of field " + std::to_string(i)); }

// --- Saving and loading ------------------------------------------------------------------------------

void Fill(TQXOleVariant& packet, Integer count) {
  for (Integer i = 0; i < count; ++i) packet.SetValue(NameAt(std::u16string(u"Field-"), i), ValueAt(i));
}

Pairs PairsOf(Integer count) {
  Pairs pairs;
  for (Integer i = 0; i < count; ++i) pairs.emplace_back(NameAt(std::u16string(u"FIELD-"), i), ValueAt(i));
  return pairs;
}

Integer FieldsOf(benchmark::State& state) { return static_cast<Integer>(state.range(0)); }

void SavePacket(benchmark::State& state) {
  TQXOleVariant packet;
  Fill(packet, FieldsOf(state));
  Variant array;
  packet.SaveToOle(array);
  if (array != ArrayOf(PairsOf(FieldsOf(state)))) return state.SkipWithError("wrong array");
  for (auto _ : state) packet.SaveToOle(array);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void SaveVector(benchmark::State& state) {
  const Pairs pairs = PairsOf(FieldsOf(state));
  Variant array;
  for (auto _ : state) array = ArrayOf(pairs);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void LoadPacket(benchmark::State& state) {
  const Variant array = ArrayOf(PairsOf(FieldsOf(state)));
  TQXOleVariant packet;
  packet.LoadFromOle(array);
  Variant again;
  packet.SaveToOle(again);
  if (again != array) return state.SkipWithError("wrong fields");
  for (auto _ : state) packet.LoadFromOle(array);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void LoadVector(benchmark::State& state) {
  const Variant array = ArrayOf(PairsOf(FieldsOf(state)));
  Pairs pairs;
  for (auto _ : state) pairs = PairsIn(array);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// --- Looking up --------------------------------------------------------------------------------------

/// One look-up an iteration. @param read takes a name and gives its value.
template <class Text, class Read>
void LookUp(benchmark::State& state, const std::vector<Text>& names, Read read) {
  for (std::size_t i = 0; i < names.size(); ++i)
    if (read(names[i]) != ValueAt(static_cast<Integer>(i))) return state.SkipWithError("wrong value");
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(read(names[i]));
    if (++i == names.size()) i = 0;
  }
}

void ReadPacket(benchmark::State& state) {
  TQXOleVariant packet;
  Fill(packet, FieldsOf(state));
  LookUp(state, NamesOf(std::u16string(u"field-"), FieldsOf(state)),
         [&](const std::u16string& name) { return packet.GetValue(name); });
}

void ReadValueList(benchmark::State& state) {
  TQXValueList list;
  for (Integer i = 0; i < FieldsOf(state); ++i) list.SetValue(NameAt(std::string("Field-"), i), ValueAt(i));
  LookUp(state, NamesOf(std::string("field-"), FieldsOf(state)),
         [&](const std::string& name) { return list.GetValue(name); });
}

void ReadMap(benchmark::State& state) {
  Map map;
  for (Integer i = 0; i < FieldsOf(state); ++i) map[NameAt(std::string("FIELD-"), i)] = ValueAt(i);
  LookUp(state, NamesOf(std::string("FIELD-"), FieldsOf(state)),
         [&](const std::string& name) { return map.find(name)->second; });
}

void Register(const char* name, void (*run)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, run)->Arg(100)->Arg(1000)->Arg(10000);
}

const bool registered = [] {
  Register("packet.save/qxTools", SavePacket);
  Register("packet.save/vector", SaveVector);
  Register("packet.load/qxTools", LoadPacket);
  Register("packet.load/vector", LoadVector);
  Register("packet.get_value/qxTools", ReadPacket);
  Register("packet.get_value/unordered_map", ReadMap);
  Register("values.get_value/qxTools", ReadValueList);
  Register("values.get_value/unordered_map", ReadMap);
  return true;
}();

}  // namespace
