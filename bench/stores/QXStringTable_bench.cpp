// The string table beside plain standard C++: a vector of lines read and written by streams, and fields cut
// out by std::string::find. A size is the number of records, each of ten fields and about 200 bytes.
#include <benchmark/benchmark.h>
#include <qxTools/stores/QXStringTable.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

using qxTools::Integer;
using qxTools::QXStringTable::TQXStringTable;

constexpr int kFields = 10;

std::string NameOf(int field) { return "Field" + std::to_string(field); }

std::string TextOf(Integer record, int field) {
  return "text " + std::to_string(record) + " of " + std::to_string(field);
}

std::string TableOf(Integer records) {
  std::string text;
  for (Integer i = 0; i <= records; ++i) {
    for (int field = 0; field < kFields; ++field)
      text += "[#" + (i == 0 ? NameOf(field) : TextOf(i, field)) + "#]";
    text += "\r\n";
  }
  return text;
}

/// A file of this run's own, in memory where the system has such a folder.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& text) {
    const std::string folder = std::filesystem::exists("/dev/shm") ? "/dev/shm" : ".";
    name_ = folder + "/qxtools-bench-" + std::to_string(getpid()) + ".tbl";
    std::ofstream(name_, std::ios::binary) << text;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { std::remove(name_.c_str()); }
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
};

class Ours {
 public:
  explicit Ours(const std::string& name) : table_(name) {}
  void Save(const std::string&) const { table_.UpdateTable(); }
  Integer Records() const { return table_.GetReccount(); }
  void Append(const std::vector<std::string>& values) { table_.AddRecord(values); }
  // The bytes of all fields of all records.
  std::size_t ReadFields(const std::vector<std::string>& names) {
    std::size_t bytes = 0;
    table_.Top();
    for (Integer i = table_.GetReccount(); i > 0; --i, table_.Next())
      for (const std::string& name : names) bytes += table_.GetField(name).size();
    return bytes;
  }

 private:
  TQXStringTable table_;
};

class Streams {
 public:
  explicit Streams(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
      if (line.ends_with('\r')) line.pop_back();
      lines_.push_back(line);
    }
  }
  void Save(const std::string& name) const {
    std::ofstream file(name, std::ios::binary);
    for (const std::string& line : lines_) file << line << "\r\n";
  }
  Integer Records() const { return static_cast<Integer>(lines_.size()) - 1; }
  void Append(const std::vector<std::string>& values) {
    std::size_t size = 0;
    for (const std::string& value : values) size += value.size() + 4;
    std::string line;
    line.reserve(size);
    for (const std::string& value : values) line.append("[#").append(value).append("#]");
    lines_.push_back(std::move(line));
  }
  std::size_t ReadFields(const std::vector<std::string>&) const {
    std::size_t bytes = 0;
    for (std::size_t i = 1; i < lines_.size(); ++i) {
      const std::string& line = lines_[i];
      for (std::size_t at = line.find("[#"); at != std::string::npos; at = line.find("[#", at)) {
        const std::size_t end = line.find("#]", at);
        const std::string text = line.substr(at + 2, end - at - 2);
        bytes += text.size();
        at = end;
      }
    }
    return bytes;
  }

 private:
  std::vector<std::string> lines_;
};

void SetProcessed(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

template <class Table>
void Load(benchmark::State& state) {
  const auto records = static_cast<Integer>(state.range(0));
  const std::string text = TableOf(records);
  const TemporaryFile disk(text);
  for (auto _ : state) {
    auto table = std::make_unique<Table>(disk.Name());
    if (table->Records() != records) return state.SkipWithError("wrong count");
    state.PauseTiming();
    table.reset();
    state.ResumeTiming();
  }
  SetProcessed(state, text);
}

template <class Table>
void Save(benchmark::State& state) {
  const std::string text = TableOf(static_cast<Integer>(state.range(0)));
  const TemporaryFile disk(text);
  const Table table(disk.Name());
  for (auto _ : state) table.Save(disk.Name());
  if (std::filesystem::file_size(disk.Name()) != text.size()) return state.SkipWithError("wrong file");
  SetProcessed(state, text);
}

// Records appended to a table that has its header alone.
template <class Table>
void Append(benchmark::State& state) {
  const auto records = static_cast<Integer>(state.range(0));
  const TemporaryFile disk(TableOf(0));
  std::vector<std::string> values;
  for (int field = 0; field < kFields; ++field) values.push_back(TextOf(records, field));
  for (auto _ : state) {
    auto table = std::make_unique<Table>(disk.Name());
    for (Integer i = 0; i < records; ++i) table->Append(values);
    if (table->Records() != records) return state.SkipWithError("wrong count");
    state.PauseTiming();
    table.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * records);
}

template <class Table>
void ReadFields(benchmark::State& state) {
  const auto records = static_cast<Integer>(state.range(0));
  const std::string text = TableOf(records);
  const TemporaryFile disk(text);
  Table table(disk.Name());
  std::vector<std::string> names;
  std::size_t bytes = 0;
  for (int field = 0; field < kFields; ++field) {
    names.push_back(NameOf(field));
    for (Integer i = 1; i <= records; ++i) bytes += TextOf(i, field).size();
  }
  for (auto _ : state)
    if (table.ReadFields(names) != bytes) return state.SkipWithError("wrong texts");
  SetProcessed(state, text);
}

// One record of that many fields, read field by field.
void ReadWide(benchmark::State& state) {
  TQXStringTable table("");
  std::vector<std::string> names;
  std::string line;
  for (int field = 0; field < state.range(0); ++field) {
    names.push_back(NameOf(field));
    line += "[#" + names.back() + "#]";
  }
  table.SetText(line + "\r\n" + line + "\r\n");
  table.Top();
  for (auto _ : state)
    for (const std::string& name : names)
      if (table.GetField(name) != name) return state.SkipWithError("wrong text");
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Table>
void Register(const std::string& who) {
  const auto add = [&](const std::string& work, auto run) {
    const auto row = benchmark::RegisterBenchmark((work + "/" + who).c_str(), run);
    row->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
  };
  add("table.load", Load<Table>);
  add("table.save", Save<Table>);
  add("table.append", Append<Table>);
  add("table.read_fields", ReadFields<Table>);
}

[[maybe_unused]] const bool registered = [] {
  Register<Ours>("qxTools");
  Register<Streams>("iostream");
  benchmark::RegisterBenchmark("table.wide_record/qxTools", ReadWide)->Arg(100)->Arg(1000)->Arg(10000);
  return true;
}();

}  // namespace
