// The checker over statements with all rules that are on, beside counting the lines that hold a word, which
// is the least that a search over files does. One thread.
#include <benchmark/benchmark.h>
#include <qxTools/base/Lines.h>

#include <string>

#include "check/CheckFile.h"

namespace {

using namespace qxtool::check;

/// Statements of about `size` bytes.
std::string Statements(std::size_t size) {
  constexpr char kStatement[] =
      "select top 10 c.CustNo, c.Company, count(*) as Orders, sum(o.Freight) as Freight\n"
      "  from dbo.Customer c left join dbo.OrderHead o on o.CustNo = c.CustNo and o.OrderDate >= "
      "@MM_From\n"
      " where c.Country = N'\xA5\x78\xC6\x57' and c.City in (N'Taipei', 'Tainan') -- as the form has "
      "it\n"  // 台灣
      " group by c.CustNo, c.Company having count(*) > 5 order by Freight desc\n";
  std::string text;
  while (text.size() < size) text += kStatement;
  return text;
}

void CheckStatements(benchmark::State& state) {
  const std::string text = Statements(static_cast<std::size_t>(state.range(0)));
  FileOptions options;
  if (!CheckBytes("a.sql", text, options, {}).findings.empty()) return state.SkipWithError("something found");
  for (auto _ : state) benchmark::DoNotOptimize(CheckBytes("a.sql", text, options, {}));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void CountLines(benchmark::State& state) {
  const std::string text = Statements(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    std::size_t count = 0;
    qxTools::ForEachLine(std::string_view(text), [&](std::string_view line) {
      count += line.find("select") != std::string_view::npos ? 1 : 0;
    });
    benchmark::DoNotOptimize(count);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
const bool registered = [] {
  const auto add = [](const char* name, void (*run)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, run)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMillisecond);
  };
  add("check.statements/qxTools", CheckStatements);
  add("check.statements/line search", CountLines);
  return true;
}();

}  // namespace
