// Saving and loading a file store beside the system's own calls. Sizes are bytes of data.
//
// The peer saves as safely: a temporary file, flushed and renamed over the old one, then its folder flushed.
// Both load from the system's cache, into memory of their own.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <qxTools/data/qxStore.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <string>

#include "support/Files.h"

namespace {

using qxTools::qxStore::TQXFileStore;

constexpr std::size_t kHeaderSize = 72;

std::string DataOf(std::size_t size) {
  std::string data(size, '\0');
  for (std::size_t i = 0; i < size; ++i) data[i] = static_cast<char>(i * 31 >> 4);
  return data;
}

void Fill(TQXFileStore& store, const std::string& data) {
  store.GetStream()->WriteBuffer(data.data(), data.size());
}

bool HoldsData(const std::string& fileName, const std::string& data) {
  TQXFileStore store;
  store.LoadFromFile(fileName);
  return store.GetStream()->GetBytes() == data;
}

// --- The system's own calls ----------------------------------------------------------------------------

bool PlainSave(const std::string& fileName, const std::string& data) {
  char header[kHeaderSize] = {3, 'Q', 'X', 'F'};
  const std::size_t size = data.size();
  std::memcpy(header + 8, &size, sizeof size);
  return SaveSafely(fileName, {{header, sizeof header}, data});
}

std::size_t PlainLoad(const std::string& fileName, std::unique_ptr<char[]>& bytes) {
  const int fd = open(fileName.c_str(), O_RDONLY);
  struct stat info {};
  if (fstat(fd, &info) != 0) return 0;
  const auto size = static_cast<std::size_t>(info.st_size) - kHeaderSize;
  bytes.reset(new char[size]);
  char header[kHeaderSize];
  std::size_t done = 0;
  if (read(fd, header, sizeof header) != sizeof header) done = size;
  while (done < size) {
    const ssize_t got = read(fd, bytes.get() + done, size - done);
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  close(fd);
  return done;
}

// --- Rows ------------------------------------------------------------------------------------------------

void SaveStore(benchmark::State& state) {
  const Folder folder;
  const std::string data = DataOf(static_cast<std::size_t>(state.range(0)));
  TQXFileStore store;
  Fill(store, data);
  store.SaveToFile(folder.File("store"));
  if (!HoldsData(folder.File("store"), data)) return state.SkipWithError("wrong file");
  for (auto _ : state) store.SaveToFile(folder.File("store"));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void SavePlainly(benchmark::State& state) {
  const Folder folder;
  const std::string data = DataOf(static_cast<std::size_t>(state.range(0)));
  if (!PlainSave(folder.File("store"), data) || !HoldsData(folder.File("store"), data))
    return state.SkipWithError("wrong file");
  for (auto _ : state) benchmark::DoNotOptimize(PlainSave(folder.File("store"), data));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void LoadStore(benchmark::State& state) {
  const Folder folder;
  const std::string data = DataOf(static_cast<std::size_t>(state.range(0)));
  if (!PlainSave(folder.File("store"), data) || !HoldsData(folder.File("store"), data))
    return state.SkipWithError("wrong data");
  for (auto _ : state) {
    TQXFileStore store;
    store.LoadFromFile(folder.File("store"));
    benchmark::DoNotOptimize(store.GetStream()->GetBytes().data());
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void LoadPlainly(benchmark::State& state) {
  const Folder folder;
  const std::string data = DataOf(static_cast<std::size_t>(state.range(0)));
  if (!PlainSave(folder.File("store"), data)) return state.SkipWithError("wrong file");
  for (auto _ : state) {
    std::unique_ptr<char[]> bytes;
    if (PlainLoad(folder.File("store"), bytes) != data.size()) return state.SkipWithError("wrong size");
    benchmark::DoNotOptimize(bytes.get());
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void Register(const char* name, void (*run)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, run)->Arg(1 << 20)->Arg(8 << 20)->Arg(64 << 20)->UseRealTime();
}

const bool registered = [] {
  Register("store.save/qxTools", SaveStore);
  Register("store.save/write", SavePlainly);
  Register("store.load/qxTools", LoadStore);
  Register("store.load/read", LoadPlainly);
  return true;
}();

}  // namespace
