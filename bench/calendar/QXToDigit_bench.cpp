// Thousands separators beside fmt, which is given the number. One size: so many random numbers.
#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <qxTools/calendar/QXToDigit.h>

#include <locale>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kNumbers = 1000;

struct Number {
  std::int64_t value;
  std::string text;
};

/// Numbers of one to twelve digits, of both signs.
std::vector<Number> Numbers() {
  std::mt19937_64 random;
  std::vector<Number> numbers;
  std::int64_t limit = 10;
  while (numbers.size() < kNumbers) {
    const std::int64_t value =
        static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(2 * limit)) - limit;
    numbers.push_back({value, std::to_string(value)});
    limit = limit < 1'000'000'000'000 ? limit * 10 : 10;
  }
  return numbers;
}

class Thousands : public std::numpunct<char> {
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

std::string ByFmt(const Number& number) {
  static const std::locale locale(std::locale::classic(), new Thousands);
  return fmt::format(locale, "{:L}", number.value);
}

std::string ByText(const Number& number) { return qxTools::QXToDigit::ToKiloBit(number.text); }

void Separate(benchmark::State& state, std::string (*separate)(const Number&)) {
  const std::vector<Number> numbers = Numbers();
  for (const Number& number : numbers)
    if (separate(number) != ByFmt(number)) return state.SkipWithError(number.text.c_str());
  for (auto _ : state)
    for (const Number& number : numbers) benchmark::DoNotOptimize(separate(number));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

[[maybe_unused]] const bool registered = [] {
  benchmark::RegisterBenchmark("ToKiloBit/qxTools", Separate, ByText)->Arg(kNumbers);
  benchmark::RegisterBenchmark("ToKiloBit/fmt", Separate, ByFmt)->Arg(kNumbers);
  return true;
}();

}  // namespace
