// The string table beside a vector of lines: read at once and split by Abseil, joined by it and saved as
// safely; fields cut out by std::string::find or split by Abseil. A size is the number of records, each of
// ten fields and about 200 bytes.
#include <absl/strings/str_join.h>
#include <absl/strings/str_split.h>
#include <benchmark/benchmark.h>
#include <qxTools/stores/QXStringTable.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/Files.h"

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

class Ours {
 public:
  explicit Ours(const std::string& name) : table_(name) {}
  std::string Text() const { return table_.GetText(); }
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

class Lines {
 public:
  explicit Lines(const std::string& name) : lines_(absl::StrSplit(ReadAll(name), "\r\n")) {
    lines_.pop_back();
  }
  std::string Text() const { return absl::StrJoin(lines_, "\r\n") += "\r\n"; }
  void Save(const std::string& name) const { SaveSafely(name, {Text()}); }
  Integer Records() const { return static_cast<Integer>(lines_.size()) - 1; }
  void Append(const std::vector<std::string>& values) {
    std::size_t size = 0;
    for (const std::string& value : values) size += value.size() + 4;
    std::string line;
    line.reserve(size);
    for (const std::string& value : values) line.append("[#").append(value).append("#]");
    lines_.push_back(std::move(line));
  }

 protected:
  std::vector<std::string> lines_;
};

/// Each field is copied, as GetField does.
class Cut : public Lines {
 public:
  using Lines::Lines;
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
};

/// The names are looked up once; each field is copied, as GetField does.
class Split : public Lines {
 public:
  using Lines::Lines;
  std::size_t ReadFields(const std::vector<std::string>& names) const {
    const std::vector<absl::string_view> header = FieldsOf(lines_[0]);
    std::vector<std::size_t> numbers;
    for (const std::string& name : names)
      numbers.push_back(static_cast<std::size_t>(std::ranges::find(header, name) - header.begin()));
    std::size_t bytes = 0;
    for (std::size_t i = 1; i < lines_.size(); ++i) {
      const std::vector<absl::string_view> fields = FieldsOf(lines_[i]);
      for (const std::size_t number : numbers) bytes += std::string(fields[number]).size();
    }
    return bytes;
  }

 private:
  static std::vector<absl::string_view> FieldsOf(const std::string& line) {
    return absl::StrSplit(absl::string_view(line.data() + 2, line.size() - 4), "#][#");
  }
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

// The text of all lines, without a file.
template <class Table>
void Write(benchmark::State& state) {
  const std::string text = TableOf(static_cast<Integer>(state.range(0)));
  const TemporaryFile disk(text);
  const Table table(disk.Name());
  if (table.Text() != text) return state.SkipWithError("wrong text");
  for (auto _ : state) benchmark::DoNotOptimize(table.Text());
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

void Register(const std::string& row, void (*run)(benchmark::State&)) {
  auto* const registered = benchmark::RegisterBenchmark(row.c_str(), run);
  registered->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
}

template <class Table>
void RegisterTable(const std::string& who) {
  Register("table.load/" + who, Load<Table>);
  Register("table.write/" + who, Write<Table>);
  Register("table.save/" + who, Save<Table>);
  Register("table.append/" + who, Append<Table>);
}

[[maybe_unused]] const bool registered = [] {
  RegisterTable<Ours>("qxTools");
  RegisterTable<Lines>("lines");
  Register("table.read_fields/qxTools", ReadFields<Ours>);
  Register("table.read_fields/find", ReadFields<Cut>);
  Register("table.read_fields/StrSplit", ReadFields<Split>);
  benchmark::RegisterBenchmark("table.wide_record/qxTools", ReadWide)->Arg(100)->Arg(1000)->Arg(10000);
  return true;
}();

}  // namespace
