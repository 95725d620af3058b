// SQL text beside what one would otherwise write it with: Abseil's replace for literals and for the call, a
// loop with a hash table for filling values in, compiled PCRE2 and RE2 patterns for finding names.
#include <absl/container/flat_hash_map.h>
#include <absl/container/flat_hash_set.h>
#include <absl/strings/str_join.h>
#include <absl/strings/str_replace.h>
#include <absl/strings/str_split.h>
#include <benchmark/benchmark.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlSafeCall.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <re2/re2.h>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <memory>
#include <string>
#include <vector>

#include "sql/Statement.h"

namespace {

using namespace qxTools;
using qxSqlStoreProc::TQXSqlStoreProc;
using QXSqlTools::TQXSQL;

using Bytes = std::size_t;

// --- Input -------------------------------------------------------------------------------------------

std::vector<std::string> Values(std::size_t count) {
  std::vector<std::string> values;
  for (std::size_t i = 0; i < count; ++i) values.push_back("it's value " + std::to_string(i));
  return values;
}

// --- Finding names -----------------------------------------------------------------------------------

/// The different names that a compiled PCRE2 pattern finds: group 1 of its matches.
std::size_t CountByPcre2(const pcre2_code* code, const std::string& text) {
  absl::flat_hash_set<std::string_view> names;
  const std::unique_ptr<pcre2_match_data, decltype(&pcre2_match_data_free)> data(
      pcre2_match_data_create_from_pattern(code, nullptr), &pcre2_match_data_free);
  const auto* const subject = reinterpret_cast<PCRE2_SPTR>(text.data());
  const PCRE2_SIZE* const range = pcre2_get_ovector_pointer(data.get());
  for (PCRE2_SIZE start = 0; pcre2_jit_match(code, subject, text.size(), start, 0, data.get(), nullptr) > 0;
       start = range[1])
    if (range[2] != PCRE2_UNSET) names.emplace(text.data() + range[2], range[3] - range[2]);
  return names.size();
}

const pcre2_code* Pcre2(const char* pattern) {
  int error = 0;
  PCRE2_SIZE offset = 0;
  pcre2_code* const code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern), PCRE2_ZERO_TERMINATED,
                                         PCRE2_CASELESS, &error, &offset, nullptr);
  pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
  return code;  // for the program's life
}

std::size_t CountByRe2(const RE2& pattern, const std::string& text) {
  absl::flat_hash_set<std::string_view> names;
  re2::StringPiece rest(text);
  for (re2::StringPiece name; RE2::FindAndConsume(&rest, pattern, &name);)
    if (!name.empty()) names.emplace(name.data(), name.size());
  return names.size();
}

constexpr char kEveryName[] = "(@[a-z][a-z0-9_]*)";
constexpr char kNamesOutsideLiterals[] = "'[^']*'|(@MM_[a-z0-9_]*)";

template <class Count>
void MeasureCount(benchmark::State& state, Bytes size, std::size_t want, Count count) {
  if (count() != want) return state.SkipWithError("wrong count of names");
  for (auto _ : state) benchmark::DoNotOptimize(count());
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

/// Finding the parameters of a call anew, as every change of its text does.
void ScanCall(benchmark::State& state, Bytes size, std::size_t names) {
  TQXSqlStoreProc set;
  set.GetStatement().SetText(Statement(size, names));
  MeasureCount(state, size, names, [&] {
    set.SearchAllParams();
    return static_cast<std::size_t>(set.GetParamCount());
  });
}

void ScanCommand(benchmark::State& state, Bytes size, std::size_t names) {
  TQXSQL command;
  command.GetInLines().SetText(Statement(size, names));
  MeasureCount(state, size, names, [&] {
    command.FindParams();
    return static_cast<std::size_t>(command.GetParams().GetCount());
  });
}

void ScanByPcre2(benchmark::State& state, const char* pattern, Bytes size, std::size_t names) {
  const std::string text = Statement(size, names);
  const pcre2_code* const code = Pcre2(pattern);
  MeasureCount(state, size, names, [&] { return CountByPcre2(code, text); });
}

void ScanByRe2(benchmark::State& state, const char* pattern, Bytes size, std::size_t names) {
  const std::string text = Statement(size, names);
  const RE2 compiled("(?i)" + std::string(pattern));
  MeasureCount(state, size, names, [&] { return CountByRe2(compiled, text); });
}

// --- Filling values in -------------------------------------------------------------------------------

constexpr std::size_t kParameters = 1000;

template <class Build>
void MeasureText(benchmark::State& state, Bytes want, Build build) {
  if (build() != want) return state.SkipWithError("wrong size of the text");
  for (auto _ : state) benchmark::DoNotOptimize(build());
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(want));
}

/// The command's output, as lines.
void FillCommand(benchmark::State& state, Bytes size, std::size_t names) {
  TQXSQL command;
  command.GetInLines().SetText(Statement(size, names));
  for (Integer i = 0; i < command.GetParams().GetCount(); ++i)
    command.GetParams().GetItems(i)->Text = "it's " + std::to_string(i);
  const Bytes want = command.GetOutLines().GetText().size();
  for (auto _ : state) benchmark::DoNotOptimize(command.GetOutLines().GetCount());
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(want));
}

bool IsNamePart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

using Literals = absl::flat_hash_map<std::string_view, std::string>;

/// One pass over the text; each whole name is looked up as it is.
std::string FillByHash(const std::string& text, const Literals& literals) {
  std::string out;
  out.reserve(text.size() + text.size() / 4);
  std::size_t done = 0;
  for (std::size_t mark = text.find('@'); mark != std::string::npos;) {
    std::size_t end = mark + 1;
    while (end < text.size() && IsNamePart(text[end])) ++end;
    const auto found = literals.find(std::string_view(text).substr(mark, end - mark));
    if (found != literals.end()) {
      out.append(text, done, mark - done).append(found->second);
      done = end;
    }
    mark = text.find('@', end);
  }
  return out.append(text, done);
}

/// The same bytes from one text to another, without lines, comments or letter case.
void FillByLoop(benchmark::State& state, Bytes size, std::size_t names) {
  const std::string text = Statement(size, names);
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < names; ++i) keys.push_back("@MM_P" + std::to_string(1000000 + i));
  Literals literals;
  for (std::size_t i = 0; i < names; ++i) literals[keys[i]] = "'it''s " + std::to_string(i) + "'";
  MeasureText(state, FillByHash(text, literals).size(), [&] { return FillByHash(text, literals).size(); });
}

// --- Comments ----------------------------------------------------------------------------------------

/// A text with a comment every 1,000 units.
std::u16string Commented(Bytes size) {
  std::u16string text;
  while (text.size() < size) text.append(980, u'x').append(u"/* a comment */\r\n");
  return text;
}

std::u16string ClearByFind(std::u16string_view text) {
  std::u16string kept;
  kept.reserve(text.size());
  std::size_t start = 0;
  for (std::size_t open = text.find(u"/*"); open != std::u16string::npos; open = text.find(u"/*", start)) {
    kept.append(text, start, open - start);
    start = text.find(u"*/", open + 2) + 2;
  }
  return kept.append(text, start);
}

template <class Clear>
void ClearNotes(benchmark::State& state, Clear clear) {
  const std::u16string text = Commented(static_cast<Bytes>(state.range(0)));
  MeasureText(state, ClearByFind(text).size(), [&] { return clear(text).size(); });
}

void ClearByCommand(benchmark::State& state) { ClearNotes(state, TQXSQL::ClearNote); }
void ClearBySet(benchmark::State& state) { ClearNotes(state, TQXSqlStoreProc::ClearNote); }
void ClearByFindLoop(benchmark::State& state) { ClearNotes(state, ClearByFind); }

// --- Calls -------------------------------------------------------------------------------------------

/// A statement with 1,000 parameters that have values, one macro and literals.
void FillSet(TQXSqlStoreProc& set, Bytes size) {
  set.GetStatement().SetText("select * from [$Table]" + Statement(size, kParameters));
  set.SetValue("$Table", "Goods");
  for (Integer i = 0; i < set.GetParamCount(); ++i) set.GetItems(i)->SetValue(i);
}

void BuildCall(benchmark::State& state) {
  TQXSqlStoreProc set;
  FillSet(set, static_cast<Bytes>(state.range(0)));
  const Bytes want = set.GetStoreProc()->GetText().size();
  MeasureText(state, want, [&] { return set.GetStoreProc()->GetText().size(); });
}

/// The call of the same set with exact types, its characters checked.
void BuildSafeCall(benchmark::State& state) {
  TQXSqlStoreProc set;
  TStrings call;
  FillSet(set, static_cast<Bytes>(state.range(0)));
  const auto build = [&] {
    qxSqlSafeCall::GetSafeStoreProc(set, call);
    return call.GetText().size();
  };
  MeasureText(state, build(), build);
}

/// The same replacements in the statement, and the declarations and values of as many integers: in two
/// strings, since putting them together would copy the statement once more.
void BuildCallByAbseil(benchmark::State& state) {
  const std::string text =
      "select * from [$Table]" + Statement(static_cast<Bytes>(state.range(0)), kParameters);
  std::vector<std::pair<std::string, Integer>> values;
  for (std::size_t i = 0; i < kParameters; ++i)
    values.emplace_back("@MM_P" + std::to_string(1000000 + i), static_cast<Integer>(i));
  const auto build = [&] {
    std::string declarations;
    std::string literals;
    for (const auto& [name, value] : values) {
      absl::StrAppend(&declarations, declarations.empty() ? "',\r\nN'" : " , ", name, " Int");
      absl::StrAppend(&literals, literals.empty() ? "', \r\n" : " , ", value);
    }
    return absl::StrReplaceAll(text, {{"[$Table]", "Goods"}, {"'", "''"}, {"[##]", "''"}}).size() +
           declarations.size() + literals.size();
  };
  MeasureText(state, build(), build);
}

// --- Literals ----------------------------------------------------------------------------------------

std::string QuoteByAbseil(absl::string_view value) {
  return absl::StrCat("'", absl::StrReplaceAll(value, {{"'", "''"}}), "'");
}

std::string QuoteByMemchr(std::string_view value) {
  std::string literal = "'";
  literal.reserve(value.size() + value.size() / 8 + 2);
  for (std::size_t at; (at = value.find('\'')) != std::string_view::npos; value.remove_prefix(at + 1))
    literal.append(value, 0, at + 1) += '\'';
  return literal.append(value) += '\'';
}

std::string ListByAbseil(const std::string& list) {
  return absl::StrCat(
      " (",
      absl::StrJoin(absl::StrSplit(list, ','), ",",
                    [](std::string* out, absl::string_view value) { out->append(QuoteByAbseil(value)); }),
      ") ");
}

using List = std::vector<std::string>;
using MakeLiteral = std::string (*)(const List& values, const std::string& joined);

void RegisterLiteral(const std::string& work, MakeLiteral ours,
                     std::initializer_list<std::pair<const char*, MakeLiteral>> peers) {
  const auto add = [&](const std::string& who, MakeLiteral build) {
    benchmark::RegisterBenchmark(
        (work + "/" + who).c_str(),
        [=](benchmark::State& state) {
          const std::vector<std::string> values = Values(static_cast<std::size_t>(state.range(0)));
          const std::string joined = absl::StrJoin(values, ",");
          MeasureText(state, ours(values, joined).size(), [&] { return build(values, joined).size(); });
        })
        ->Arg(1000)
        ->Arg(10000)
        ->Arg(100000)
        ->Unit(benchmark::kMicrosecond);
  };
  add("qxTools", ours);
  for (const auto& [who, build] : peers) add(who, build);
}

void RegisterLiterals() {
  RegisterLiteral("sql.ToSQLStr",
                  [](const List&, const std::string& text) { return QXSqlTools::ToSQLStr(text); },
                  {{"memchr loop", [](const List&, const std::string& text) { return QuoteByMemchr(text); }},
                   {"Abseil", [](const List&, const std::string& text) { return QuoteByAbseil(text); }}});
  RegisterLiteral("sql.ToSQLinlist",
                  [](const List&, const std::string& text) { return QXSqlTools::ToSQLinlist(text); },
                  {{"Abseil", [](const List&, const std::string& text) { return ListByAbseil(text); }}});
  RegisterLiteral("sql.ToSQLEx",
                  [](const List& values, const std::string&) {
                    return QXSqlTools::ToSQLEx(values, std::string(values.size(), 'S'));
                  },
                  {{"Abseil", [](const List& values, const std::string&) {
                      return absl::StrJoin(values, ",", [](std::string* out, const std::string& value) {
                        out->append(QuoteByAbseil(value));
                      });
                    }}});
}

// --- Rows --------------------------------------------------------------------------------------------

constexpr Bytes kStatement = 10 << 20;

template <class Scan>
void RegisterScan(const std::string& who, const std::string& work, Scan scan) {
  const auto sizes = [=](benchmark::State& state) { scan(state, static_cast<Bytes>(state.range(0)), 20); };
  benchmark::RegisterBenchmark(("sql." + work + "/" + who).c_str(), sizes)
      ->Arg(100 << 10)
      ->Arg(1 << 20)
      ->Arg(kStatement)
      ->Unit(benchmark::kMillisecond);
  const auto names = [=](benchmark::State& state) {
    scan(state, kStatement, static_cast<std::size_t>(state.range(0)));
  };
  benchmark::RegisterBenchmark(("sql." + work + "_names_in_10MB/" + who).c_str(), names)
      ->Arg(1000)
      ->Arg(10000)
      ->Arg(100000)
      ->Unit(benchmark::kMillisecond);
}

void RegisterScans() {
  RegisterScan("qxTools", "SearchAllParams", ScanCall);
  RegisterScan("PCRE2", "SearchAllParams", [](benchmark::State& state, Bytes size, std::size_t names) {
    ScanByPcre2(state, kNamesOutsideLiterals, size, names);
  });
  RegisterScan("RE2", "SearchAllParams", [](benchmark::State& state, Bytes size, std::size_t names) {
    ScanByRe2(state, kNamesOutsideLiterals, size, names);
  });
  RegisterScan("qxTools", "FindParams", ScanCommand);
  RegisterScan("PCRE2", "FindParams", [](benchmark::State& state, Bytes size, std::size_t names) {
    ScanByPcre2(state, kEveryName, size, names);
  });
}

template <class Fill>
void RegisterFilling(const std::string& who, Fill fill) {
  const auto sizes = [=](benchmark::State& state) {
    fill(state, static_cast<Bytes>(state.range(0)), kParameters);
  };
  benchmark::RegisterBenchmark(("sql.GetOutLines/" + who).c_str(), sizes)
      ->Arg(100 << 10)
      ->Arg(1 << 20)
      ->Arg(kStatement)
      ->Unit(benchmark::kMillisecond);
  const auto names = [=](benchmark::State& state) {
    fill(state, kStatement, static_cast<std::size_t>(state.range(0)));
  };
  benchmark::RegisterBenchmark(("sql.GetOutLines_names_in_10MB/" + who).c_str(), names)
      ->Arg(20)
      ->Arg(1000)
      ->Arg(100000)
      ->Unit(benchmark::kMillisecond);
}

void RegisterSizes(const char* name, void (*run)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, run)
      ->Arg(100 << 10)
      ->Arg(1 << 20)
      ->Arg(kStatement)
      ->Unit(benchmark::kMillisecond);
}

const bool registered = [] {
  RegisterScans();
  RegisterFilling("qxTools", FillCommand);
  RegisterFilling("hash loop", FillByLoop);
  RegisterSizes("sql.ClearNote/qxTools", ClearByCommand);
  RegisterSizes("sql.ClearNote/find", ClearByFindLoop);
  RegisterSizes("sql.ClearNote_of_set/qxTools", ClearBySet);
  RegisterSizes("sql.ClearNote_of_set/find", ClearByFindLoop);
  RegisterSizes("sql.GetStoreProc/qxTools", BuildCall);
  RegisterSizes("sql.GetStoreProc/Abseil", BuildCallByAbseil);
  RegisterSizes("sql.GetSafeStoreProc/qxTools", BuildSafeCall);
  RegisterLiterals();
  return true;
}();

}  // namespace
