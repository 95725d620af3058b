// GB2312 to BIG5 and back, beside iconv (which goes through Unicode), a plain copy for pure ASCII, and
// OpenCC's library, which looks at words and works on UTF-8: that one for orientation.
#include <benchmark/benchmark.h>
#include <iconv.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/encoding/CVCode.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <opencc/SimpleConverter.hpp>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using qxTools::CVCode::BIG5toGB;
using qxTools::CVCode::GBtoBIG5;
/// Gives the converted text to `use`; "" for text that holds something it cannot convert.
using Use = std::function<void(std::string_view)>;
using Convert = std::function<void(const std::string& text, const Use& use)>;

Convert Ours(std::string (*convert)(std::string_view)) {
  return [=](const std::string& s, const Use& use) { use(convert(s)); };
}

/// Converts by the C library into a buffer of the size that is needed.
Convert Iconv(const char* from, const char* to) {
  std::shared_ptr<void> handle(iconv_open(to, from), iconv_close);
  const std::size_t growth = to == std::string_view("UTF-16LE") ? 2 : 1;
  return [=](const std::string& s, const Use& use) {
    const std::size_t size = s.size() * growth;
    const auto result = std::make_unique_for_overwrite<char[]>(size);
    char* in = const_cast<char*>(s.data());
    char* out = result.get();
    std::size_t inLeft = s.size(), outLeft = size;
    const bool failed = iconv(handle.get(), &in, &inLeft, &out, &outLeft) != 0;
    use({result.get(), failed ? 0 : size - outLeft});
  };
}

Convert IconvThroughUnicode(const char* from, const char* to) {
  return [in = Iconv(from, "UTF-16LE"), out = Iconv("UTF-16LE", to)](const std::string& s, const Use& use) {
    in(s, [&](std::string_view unicode) { out(std::string(unicode), use); });
  };
}

std::string Converted(const Convert& convert, const std::string& text) {
  std::string result;
  convert(text, [&](std::string_view converted) { result = converted; });
  return result;
}

/// The frequent hanzi of GB2312 that BIG5 holds as the same Unicode character and that every peer pairs
/// alike.
std::vector<std::string> SharedHanzi() {
  const Convert toBig5 = IconvThroughUnicode("GB2312", "BIG5"), direct = Iconv("GB2312", "BIG5");
  std::vector<std::string> shared;
  for (int lead = 0xB0; lead <= 0xD7; ++lead)
    for (int trail = 0xA1; trail <= 0xFE; ++trail) {
      const std::string hanzi = {static_cast<char>(lead), static_cast<char>(trail)};
      const std::string big5 = GBtoBIG5(hanzi);
      if (Converted(toBig5, hanzi) == big5 && Converted(direct, hanzi) == big5 && BIG5toGB(big5) == hanzi)
        shared.push_back(hanzi);
    }
  return shared;
}

/// `size` bytes of GB2312: runs of hanzi in no order, each after a piece of `ascii`. All lengths are random.
std::string MakeBlock(std::size_t size, std::string_view ascii) {
  static const std::vector<std::string> hanzi = SharedHanzi();
  std::mt19937 random;
  std::string text;
  while (text.size() + ascii.size() + 24 <= size) {
    text += ascii.substr(0, random() % (ascii.size() + 1));
    for (auto left = random() % 12 + 1; left > 0; --left) text += hanzi[random() % hanzi.size()];
  }
  return text + std::string(size - text.size(), 'x');
}

/// A large text is made of blocks that no processor remembers.
std::string MakeText(std::size_t size, std::string_view ascii) {
  const std::size_t blockSize = std::min(size, std::size_t{1} << 20);
  const std::string block = MakeBlock(blockSize, ascii);
  std::string text;
  text.reserve(size);
  while (text.size() < size) text += block;
  return text;
}

void Run(benchmark::State& state, const Convert& convert, const std::string& text, const std::string& want) {
  if (Converted(convert, text) != want) return state.SkipWithError("wrong text");
  const Use use = [](std::string_view result) { benchmark::DoNotOptimize(result.data()); };
  for (auto _ : state) convert(text, use);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

struct Converter {
  const char* name;
  Convert toBig5;
  Convert toGb;
};

/// A row for each direction; `make` gives GB2312 text of a size.
template <class Make>
void AddRows(const std::string& name, Make make, const std::vector<Converter>& peers) {
  const auto add = [&](const std::string& row, const Convert& convert, bool toBig5) {
    benchmark::RegisterBenchmark(row.c_str(),
                                 [=](benchmark::State& state) {
                                   const std::string gb = make(static_cast<std::size_t>(state.range(0)));
                                   const std::string big5 = GBtoBIG5(gb);
                                   toBig5 ? Run(state, convert, gb, big5) : Run(state, convert, big5, gb);
                                 })
        ->Arg(64 << 10)
        ->Arg(1 << 20)
        ->Arg(64 << 20);
  };
  std::vector<Converter> all = peers;
  all.insert(all.begin(), {"qxTools", Ours(GBtoBIG5), Ours(BIG5toGB)});
  for (const Converter& one : all) add("cv.gb_to_big5_" + name + "/" + one.name, one.toBig5, true);
  for (const Converter& one : all) add("cv.big5_to_gb_" + name + "/" + one.name, one.toGb, false);
}

/// OpenCC in UTF-8; what it gives depends on words, so only the length is looked at.
void AddOpenCC() {
  benchmark::RegisterBenchmark("cv.gb_to_big5_chinese/OpenCC", [](benchmark::State& state) {
    const opencc::SimpleConverter converter("s2tw.json");
    const std::string text =
        qxTools::BytesToUtf8(GBtoBIG5(MakeText(static_cast<std::size_t>(state.range(0)), "")));
    if (converter.Convert(text).size() < text.size() / 2) return state.SkipWithError("text lost");
    for (auto _ : state) benchmark::DoNotOptimize(converter.Convert(text));
    state.SetBytesProcessed(state.iterations() * state.range(0));
  })->Arg(64 << 10);
}

[[maybe_unused]] const bool registered = [] {
  const Converter iconv = {"iconv", IconvThroughUnicode("GB2312", "BIG5"),
                           IconvThroughUnicode("BIG5", "GB2312")};
  const Converter direct = {"iconv_direct", Iconv("GB2312", "BIG5"), Iconv("BIG5", "GB2312")};
  const Convert copy = Ours([](std::string_view s) { return std::string(s); });
  AddRows("chinese", [](std::size_t size) { return MakeText(size, ""); }, {iconv, direct});
  AddRows("mixed", [](std::size_t size) { return MakeText(size, "SELECT * FROM Goods WHERE "); },
          {iconv, direct});
  AddRows("ascii", [](std::size_t size) { return std::string(size, 'x'); }, {{"memcpy", copy, copy}});
  AddOpenCC();
  return true;
}();

}  // namespace
