// QXStrTools beside the loops one would write by hand, and beside Abseil and Boost.
//
// A row is <work>/<who>/<size>, the size in bytes or, for fields, in fields. Loops that count go on one byte
// behind each hit, since overlapping hits count. Abseil and Boost replace each hit once: the same text where
// the replacement holds nothing of what is replaced, else one of the same length. Abseil and the find loop
// have no replacement of any case; there they do the plain one.
#include <absl/strings/ascii.h>
#include <absl/strings/str_replace.h>
#include <absl/strings/str_split.h>
#include <benchmark/benchmark.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <boost/algorithm/string/replace.hpp>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace qxTools::QXStrTools;

namespace {

const std::vector<std::int64_t> kBytes = {10000, 100000, 1000000};
const std::vector<std::int64_t> kFields = {1000, 10000, 100000};

// --- Texts -------------------------------------------------------------------

// A number from 0 to 15; the same ones in every run.
std::uint32_t Draw(std::uint32_t& state) { return (state = state * 1664525 + 1013904223) >> 28; }

// `size` bytes of words, in which `piece` stands size / distance - 1 times, at varying distances.
std::string WordsWith(std::string_view piece, std::size_t distance, std::size_t size) {
  std::uint32_t state = 1;
  std::string text;
  while (text.size() < size) text += " etaoinshrdlcumw"[Draw(state)];
  for (std::size_t i = distance; i + distance <= size; i += distance) {
    text.replace(i + Draw(state) * distance / 32, piece.size(), piece);
  }
  return text;
}

std::string Fields(std::size_t count, std::string_view field) {
  std::string text;
  while (--count > 0) text.append(field).append(", ");
  return text + "last";
}

// --- Peers -------------------------------------------------------------------

// Goes on to the n-th occurrence: how many there were, and where the last one was.
struct Walk {
  int count = 0;
  std::size_t last = std::string_view::npos;
};

Walk WalkByMemmem(std::string_view sub, std::string_view s, int n) {
  Walk walk;
  const char* const end = s.data() + s.size();
  for (const char* p = s.data(); walk.count < n; ++p, ++walk.count) {
    p = static_cast<const char*>(memmem(p, static_cast<std::size_t>(end - p), sub.data(), sub.size()));
    if (p == nullptr) break;
    walk.last = static_cast<std::size_t>(p - s.data());
  }
  return walk;
}

Walk WalkByFind(std::string_view sub, std::string_view s, int n) {
  Walk walk;
  for (std::size_t p = 0; walk.count < n; ++p, ++walk.count) {
    p = s.find(sub, p);
    if (p == std::string_view::npos) break;
    walk.last = p;
  }
  return walk;
}

std::string ReplaceByAbseil(const std::string& s, std::string_view old, std::string_view replacement) {
  return absl::StrReplaceAll(absl::string_view(s.data(), s.size()),
                             {{absl::string_view(old.data(), old.size()),
                               absl::string_view(replacement.data(), replacement.size())}});
}

std::string ReplaceByFind(const std::string& s, const std::string& old, const std::string& replacement) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t p; (p = s.find(old, from)) != std::string::npos; from = p + old.size())
    result.append(s, from, p - from).append(replacement);
  return result.append(s, from);
}

// --- Rows --------------------------------------------------------------------

template <class Result>
struct Row {
  std::string work;
  std::vector<std::int64_t> sizes;
  std::function<std::string(std::size_t)> text;
  std::function<bool(const Result&, const std::string&)> isRight;
  std::vector<std::pair<const char*, std::function<Result(const std::string&)>>> contenders;
};

template <class Result>
void Register(const Row<Result>& row) {
  for (const auto& [who, run] : row.contenders) {
    const auto body = [text = row.text, isRight = row.isRight, run = run](benchmark::State& state) {
      const std::string s = text(static_cast<std::size_t>(state.range(0)));
      if (!isRight(run(s), s)) return state.SkipWithError("wrong answer");
      for (auto _ : state) benchmark::DoNotOptimize(run(s));
      state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(s.size()));
    };
    auto* const registered = benchmark::RegisterBenchmark((row.work + "/" + who).c_str(), body);
    for (const std::int64_t size : row.sizes) registered->Arg(size);
  }
}

constexpr int kAll = 0x7FFFFFFF;

/// The n-th hit is the last of all, so that the whole text is searched.
void RegisterAt(const std::string& work, const std::string& sub, std::size_t distance) {
  const auto hits = [=](const std::string& s) { return static_cast<int>(s.size() / distance) - 1; };
  Register<std::size_t>(
      {work,
       kBytes,
       [=](std::size_t size) { return WordsWith(sub, distance, size); },
       [=](std::size_t at, const std::string& s) { return at == s.rfind(sub); },
       {{"qxTools", [=](const std::string& s) { return static_cast<std::size_t>(At(sub, s, hits(s)) - 1); }},
        {"memmem", [=](const std::string& s) { return WalkByMemmem(sub, s, hits(s)).last; }},
        {"find", [=](const std::string& s) { return WalkByFind(sub, s, hits(s)).last; }}}});
}

void RegisterCount(const std::string& work, const std::string& sub,
                   const std::function<std::string(std::size_t)>& text) {
  Row<int> row = {work,
                  kBytes,
                  text,
                  [=](int count, const std::string& s) { return count == WalkByFind(sub, s, kAll).count; },
                  {{"qxTools", [=](const std::string& s) { return Occurs(sub, s); }},
                   {"memmem", [=](const std::string& s) { return WalkByMemmem(sub, s, kAll).count; }},
                   {"find", [=](const std::string& s) { return WalkByFind(sub, s, kAll).count; }}}};
  if (sub.size() == 1)
    row.contenders.push_back({"std::count", [=](const std::string& s) {
                                return static_cast<int>(std::count(s.begin(), s.end(), sub.front()));
                              }});
  Register<int>(row);
}

void RegisterSearches() {
  RegisterAt("At sparse", "needle", 2000);
  RegisterAt("At dense", ", ", 25);
  const auto words = [](std::string_view piece, std::size_t distance) {
    return [=](std::size_t size) { return WordsWith(piece, distance, size); };
  };
  RegisterCount("Occurs sparse", ";", words(";", 2000));
  RegisterCount("Occurs dense 1 byte", ",", words(",", 25));
  RegisterCount("Occurs dense 2 bytes", ", ", words(", ", 25));
  RegisterCount("Occurs dense 5 bytes", "<sep>", words("<sep>", 25));
  RegisterCount("Occurs dense common start", "end", words("end", 25));
  RegisterCount("Occurs worst", "aaaa", [](std::size_t size) { return std::string(size, 'a'); });
  // Here both peers take the product of the two lengths.
  const std::string longSub(1000, 'a');
  Register<int>({"Occurs worst long",
                 {2000, 20000, 200000},
                 [](std::size_t size) { return std::string(size, 'a'); },
                 [](int count, const std::string& s) { return count == static_cast<int>(s.size()) - 999; },
                 {{"qxTools", [=](const std::string& s) { return Occurs(longSub, s); }},
                  {"find", [=](const std::string& s) { return WalkByFind(longSub, s, kAll).count; }}}});
}

std::string LastByAbseil(const std::string& s) {
  const std::vector<absl::string_view> all = absl::StrSplit(s, ", ");
  return std::string(all.back());
}

/// The last one of fields that are all like `field`.
void RegisterFields(const std::string& ending, const std::string& field,
                    const std::vector<std::int64_t>& sizes) {
  const auto text = [=](std::size_t count) { return Fields(count, field); };
  const auto isLast = [](const std::string& last, const std::string&) { return last == "last"; };
  const auto fields = [=](const std::string& s) {
    return static_cast<int>((s.size() - 4) / (field.size() + 2)) + 1;
  };
  const auto byFind = [=](const std::string& s) {
    return s.substr(WalkByFind(", ", s, fields(s) - 1).last + 2);
  };
  Register<std::string>({"GetAt " + ending,
                         sizes,
                         text,
                         isLast,
                         {{"qxTools", [=](const std::string& s) { return GetAt(", ", s, fields(s)); }},
                          {"absl::StrSplit", LastByAbseil},
                          {"find", byFind}}});
  Register<std::string>(
      {"GetAtRight " + ending,
       sizes,
       text,
       isLast,
       {{"qxTools", [=](const std::string& s) { return GetAtRight(", ", s, fields(s) - 1); }},
        {"find", byFind}}});
}

// --- Blanks and numbers ------------------------------------------------------

std::string TrimByFind(const std::string& s) {
  const std::size_t start = s.find_first_not_of(' ');
  return start == std::string::npos ? std::string() : s.substr(start, s.find_last_not_of(' ') + 1 - start);
}

/// Texts with a quarter of blanks at either end.
void RegisterTrim() {
  Register<std::string>({"Trim",
                         {20, 1000, 100000},
                         [](std::size_t size) {
                           return Space(static_cast<int>(size / 4)) + std::string(size / 2, 'x') +
                                  Space(static_cast<int>(size / 4));
                         },
                         [](const std::string& trimmed, const std::string& s) {
                           return trimmed == std::string(s.size() / 2, 'x');
                         },
                         {{"qxTools", [](const std::string& s) { return Trim(s, TrimOrign[tsTrimAll]); }},
                          {"absl::StripAsciiWhitespace",
                           [](const std::string& s) { return std::string(absl::StripAsciiWhitespace(s)); }},
                          {"find", TrimByFind}}});
}

constexpr int kWidth = 8;

std::string DigitsByChars(int value) {
  char digits[kWidth + 4];
  const auto end = std::to_chars(digits, std::end(digits), value).ptr;
  const auto size = static_cast<std::size_t>(end - digits);
  return std::string(size < kWidth ? kWidth - size : 0, '0').append(digits, size);
}

std::string DigitsByPrintf(int value) {
  char digits[kWidth + 4];
  return {digits, static_cast<std::size_t>(std::snprintf(digits, sizeof digits, "%0*d", kWidth, value))};
}

void Digits(benchmark::State& state, std::string (*digits)(int)) {
  std::uint32_t seed = 1;
  std::vector<int> values;
  while (std::ssize(values) < state.range(0)) {
    seed = seed * 1664525 + 1013904223;
    values.push_back(static_cast<int>((seed >> 1) >> (seed >> 28)));
  }
  for (const int value : values)
    if (digits(value) != DigitsByPrintf(value)) return state.SkipWithError("wrong digits");
  for (auto _ : state)
    for (const int value : values) benchmark::DoNotOptimize(digits(value));
}

/// Numbers of all lengths to eight digits or more.
void RegisterDigits() {
  const auto ours = [](int value) { return StrEx(value, kWidth); };
  benchmark::RegisterBenchmark("StrEx/qxTools", Digits, ours)->Arg(1000);
  benchmark::RegisterBenchmark("StrEx/to_chars", Digits, DigitsByChars)->Arg(1000);
  benchmark::RegisterBenchmark("StrEx/snprintf", Digits, DigitsByPrintf)->Arg(1000);
}

// --- Replacing ---------------------------------------------------------------

void RegisterReplace(const std::string& work, const std::string& old, const std::string& replacement,
                     bool ignoreCase) {
  const auto boost = [=](const std::string& s) {
    return ignoreCase ? boost::ireplace_all_copy(s, old, replacement)
                      : boost::replace_all_copy(s, old, replacement);
  };
  const bool apart = replacement.find(old) == std::string::npos;
  Register<std::string>(
      {work,
       kBytes,
       [=](std::size_t size) { return WordsWith(old, 100, size); },
       [=](const std::string& result, const std::string& s) {
         const std::string simple = ReplaceByAbseil(s, old, replacement);
         return apart ? result == simple : result.size() == simple.size();
       },
       {{"qxTools", [=](const std::string& s) { return ReplaceAllStr(s, old, replacement, ignoreCase); }},
        {"find", [=](const std::string& s) { return ReplaceByFind(s, old, replacement); }},
        {"absl::StrReplaceAll", [=](const std::string& s) { return ReplaceByAbseil(s, old, replacement); }},
        {"boost", boost}}});
}

const bool registered = [] {
  RegisterSearches();
  RegisterFields("dense", "1234567", kFields);
  RegisterFields("sparse", std::string(500, 'x'), {20, 200, 2000});
  RegisterTrim();
  RegisterDigits();
  RegisterReplace("ReplaceAllStr plain", "needle", "thread", false);
  RegisterReplace("ReplaceAllStr IgnoreCase", "needle", "thread", true);
  RegisterReplace("ReplaceAllStr touching", "needle", "eleven", false);
  RegisterReplace("ReplaceAllStr line ends", "\r\n", "\n", false);
  RegisterReplace("ReplaceAllStr removing", "needle", "", false);
  RegisterReplace("ReplaceAllStr doubling", "'", "''", false);
  RegisterReplace("ReplaceAllStr holding", "needle", "(needle)", false);
  return true;
}();

}  // namespace
