// GB2312 to BIG5 and back, beside iconv (which goes through Unicode), a plain copy for pure ASCII, and
// OpenCC's library, which looks at words and works on UTF-8: that one for orientation.
#include <benchmark/benchmark.h>
#include <iconv.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/encoding/CVCode.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <opencc/SimpleConverter.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace {

using qxTools::CVCode::BIG5toGB;
using qxTools::CVCode::GBtoBIG5;
using Convert = std::function<std::string(const std::string&)>;

/// Converts by the C library; gives "" for text that holds something it cannot convert.
Convert Iconv(const char* from, const char* to) {
  std::shared_ptr<void> handle(iconv_open(to, from), iconv_close);
  return [handle](const std::string& s) {
    std::string result(s.size() * 2, '\0');
    char* in = const_cast<char*>(s.data());
    char* out = result.data();
    std::size_t inLeft = s.size(), outLeft = result.size();
    const bool failed = iconv(handle.get(), &in, &inLeft, &out, &outLeft) != 0;
    result.resize(failed ? 0 : result.size() - outLeft);
    return result;
  };
}

Convert IconvThroughUnicode(const char* from, const char* to) {
  return [in = Iconv(from, "UTF-16LE"), out = Iconv("UTF-16LE", to)](const std::string& s) {
    return out(in(s));
  };
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
      if (toBig5(hanzi) == big5 && direct(hanzi) == big5 && BIG5toGB(big5) == hanzi) shared.push_back(hanzi);
    }
  return shared;
}

/// `size` bytes of GB2312: hanzi in no order, with a piece of `ascii` of changing length before every sixth.
std::string MakeText(std::size_t size, std::string_view ascii) {
  static const std::vector<std::string> hanzi = SharedHanzi();
  std::string text;
  std::uint32_t seed = 7;
  for (int i = 0; text.size() + ascii.size() + 2 <= size; ++i) {
    seed = seed * 1664525 + 1013904223;
    if (i % 6 == 0) text += ascii.substr(0, (seed >> 4) % (ascii.size() + 1));
    text += hanzi[(seed >> 8) % hanzi.size()];
  }
  return text + std::string(size - text.size(), 'x');
}

void Run(benchmark::State& state, const Convert& convert, const std::string& text, const std::string& want) {
  if (convert(text) != want) return state.SkipWithError("wrong text");
  for (auto _ : state) benchmark::DoNotOptimize(convert(text));
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
  all.insert(all.begin(), {"qxTools", [](const std::string& s) { return GBtoBIG5(s); },
                           [](const std::string& s) { return BIG5toGB(s); }});
  for (const Converter& one : all) add("cv.gb_to_big5_" + name + "/" + one.name, one.toBig5, true);
  for (const Converter& one : all) add("cv.big5_to_gb_" + name + "/" + one.name, one.toGb, false);
}

/// OpenCC in UTF-8; what it gives depends on words, so only the length is looked at.
void AddOpenCC() {
  benchmark::RegisterBenchmark("cv.gb_to_big5_chinese/OpenCC",
                               [](benchmark::State& state) {
                                 const opencc::SimpleConverter converter("s2tw.json");
                                 const std::string text = qxTools::BytesToUtf8(
                                     GBtoBIG5(MakeText(static_cast<std::size_t>(state.range(0)), "")));
                                 if (converter.Convert(text).size() < text.size() / 2)
                                   return state.SkipWithError("text lost");
                                 for (auto _ : state) benchmark::DoNotOptimize(converter.Convert(text));
                                 state.SetBytesProcessed(state.iterations() * state.range(0));
                               })
      ->Arg(64 << 10)
      ->Arg(1 << 20);
}

[[maybe_unused]] const bool registered = [] {
  const Converter iconv = {"iconv", IconvThroughUnicode("GB2312", "BIG5"),
                           IconvThroughUnicode("BIG5", "GB2312")};
  const Converter direct = {"iconv_direct", Iconv("GB2312", "BIG5"), Iconv("BIG5", "GB2312")};
  const Convert copy = [](const std::string& s) { return std::string(s); };
  AddRows("chinese", [](std::size_t size) { return MakeText(size, ""); }, {iconv, direct});
  AddRows("mixed", [](std::size_t size) { return MakeText(size, "SELECT * FROM Goods WHERE "); },
          {iconv, direct});
  AddRows("ascii", [](std::size_t size) { return std::string(size, 'x'); }, {{"memcpy", copy, copy}});
  AddOpenCC();
  return true;
}();

}  // namespace
