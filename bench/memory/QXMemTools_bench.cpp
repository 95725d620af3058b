// Banks beside the standard vector: checked access to each element, and growth by one element a time. Blocks
// beside calloc, and their cursor beside that of a stream in memory.
#include <benchmark/benchmark.h>
#include <qxTools/memory/QXMemTools.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

using qxTools::Integer;
using qxTools::QXMemTools::TInt64Bank;
using qxTools::QXMemTools::TIntegerBank;
using qxTools::QXMemTools::TMemoryOperation;

template <class T>
class Vector {
 public:
  void SetCount(Integer count) { values_.resize(static_cast<std::size_t>(count)); }
  T GetValue(Integer i) const { return values_.at(static_cast<std::size_t>(i)); }
  void SetValue(Integer i, T value) { values_.at(static_cast<std::size_t>(i)) = value; }

 private:
  std::vector<T> values_;
};

// Every index once, in an order that the compiler does not know: each access is a call of its own.
std::vector<Integer> Shuffled(Integer count) {
  std::vector<Integer> order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), 0);
  std::shuffle(order.begin(), order.end(), std::mt19937());
  return order;
}

template <class Bank>
void Get(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  const std::vector<Integer> order = Shuffled(count);
  Bank bank;
  bank.SetCount(count);
  for (const Integer i : order) bank.SetValue(i, i);
  for (auto _ : state) {
    std::int64_t sum = 0;
    for (const Integer i : order) sum += bank.GetValue(i);
    if (sum != std::int64_t{count} * (count - 1) / 2) return state.SkipWithError("wrong sum");
  }
  state.SetItemsProcessed(state.iterations() * count);
}

template <class Bank>
void Set(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  const std::vector<Integer> order = Shuffled(count);
  Bank bank;
  bank.SetCount(count);
  for (auto _ : state) {
    for (const Integer i : order) bank.SetValue(i, i ^ 5);
    benchmark::ClobberMemory();
  }
  if (bank.GetValue(count - 1) != ((count - 1) ^ 5)) return state.SkipWithError("wrong value");
  state.SetItemsProcessed(state.iterations() * count);
}

// The same in order, where the compiler can take a vector's loads out of the loop.
template <class Bank>
void Fill(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  Bank bank;
  bank.SetCount(count);
  for (auto _ : state) {
    for (Integer i = 0; i < count; ++i) bank.SetValue(i, i ^ 5);
    benchmark::ClobberMemory();
  }
  if (bank.GetValue(count - 1) != ((count - 1) ^ 5)) return state.SkipWithError("wrong value");
  state.SetItemsProcessed(state.iterations() * count);
}

template <class Bank>
void Grow(benchmark::State& state) {
  const auto count = static_cast<Integer>(state.range(0));
  for (auto _ : state) {
    Bank bank;
    for (Integer i = 1; i <= count; ++i) bank.SetCount(i);
    if (bank.GetValue(count - 1) != 0) return state.SkipWithError("not zero");
    benchmark::DoNotOptimize(bank);
  }
  state.SetItemsProcessed(state.iterations() * count);
}

// --- Blocks ------------------------------------------------------------------

template <class Make>
void CreateBlock(benchmark::State& state, Make make) {
  for (auto _ : state) make(state.range(0));
}

void MakeOurs(std::int64_t size) {
  TMemoryOperation block(static_cast<Integer>(size));
  benchmark::DoNotOptimize(block.GetAddress());
}

void MakeByCalloc(std::int64_t size) {
  void* const block = std::calloc(1, static_cast<std::size_t>(size));
  benchmark::DoNotOptimize(block);
  std::free(block);
}

// Writes a block full in pieces of 16 bytes, and reads it back.
template <class Rewind, class Write, class Read>
void MoveCursor(benchmark::State& state, Rewind rewind, Write write, Read read) {
  std::array<char, 16> piece{"sixteen bytes.."};
  for (auto _ : state) {
    rewind();
    for (std::int64_t i = 0; i < state.range(0); i += 16) write(piece.data());
    rewind();
    piece.fill(0);
    for (std::int64_t i = 0; i < state.range(0); i += 16) read(piece.data());
    if (piece[0] != 's') return state.SkipWithError("wrong bytes");
  }
  state.SetBytesProcessed(state.iterations() * state.range(0) * 2);
}

void OurCursor(benchmark::State& state) {
  TMemoryOperation block(static_cast<Integer>(state.range(0)));
  MoveCursor(
      state, [&] { block.SetPosition(0); }, [&](const char* piece) { block.Write(piece, 16); },
      [&](char* piece) { block.Read(piece, 16); });
}

void StreamCursor(benchmark::State& state) {
  std::FILE* const file = fmemopen(nullptr, static_cast<std::size_t>(state.range(0)), "w+");
  MoveCursor(
      state, [&] { std::rewind(file); }, [&](const char* piece) { std::fwrite(piece, 16, 1, file); },
      [&](char* piece) { benchmark::DoNotOptimize(std::fread(piece, 16, 1, file)); });
  std::fclose(file);
}

[[maybe_unused]] const bool registered = [] {
  const auto add = [](const char* name, auto run) {
    benchmark::RegisterBenchmark(name, run)->Arg(10000)->Arg(100000)->Arg(1000000);
  };
  add("bank.get_int64/qxTools", Get<TInt64Bank>);
  add("bank.get_int64/vector_at", Get<Vector<std::int64_t>>);
  add("bank.set_int64/qxTools", Set<TInt64Bank>);
  add("bank.set_int64/vector_at", Set<Vector<std::int64_t>>);
  add("bank.fill_int64/qxTools", Fill<TInt64Bank>);
  add("bank.fill_int64/vector_at", Fill<Vector<std::int64_t>>);
  add("bank.get_integer/qxTools", Get<TIntegerBank>);
  add("bank.get_integer/vector_at", Get<Vector<Integer>>);
  add("bank.set_integer/qxTools", Set<TIntegerBank>);
  add("bank.set_integer/vector_at", Set<Vector<Integer>>);
  add("bank.grow_by_one/qxTools", Grow<TIntegerBank>);
  add("bank.grow_by_one/vector_resize", Grow<Vector<Integer>>);
  for (const char* who : {"qxTools", "calloc"})
    benchmark::RegisterBenchmark((std::string("block.create/") + who).c_str(),
                                 [ours = who[0] == 'q'](benchmark::State& state) {
                                   CreateBlock(state, ours ? MakeOurs : MakeByCalloc);
                                 })
        ->Arg(100)
        ->Arg(10000)
        ->Arg(1000000);
  add("block.cursor/qxTools", OurCursor);
  add("block.cursor/fmemopen", StreamCursor);
  return true;
}();

}  // namespace
