// A page of controls on a Qt surface of 1920 x 1080: 2,000 of them are to take less than 60 ms. The picture
// is compared with that of the core's bitmap first.
#include <benchmark/benchmark.h>
#include <qxTools/desktop/qt/QtCanvas.h>
#include <qxTools/graphics/qxDrawTools.h>

#include <QtGui/QImage>
#include <algorithm>

namespace {

using namespace qxTools;
using namespace qxTools::qxDrawTools;

constexpr Integer kWidth = 1920;
constexpr Integer kHeight = 1080;
constexpr TColor kColor = 0x804020;

QImage Screen() {
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  image.fill(Qt::white);
  return image;
}

using DrawControl = void (*)(TCanvas& canvas, const TRect& rect);

void DrawDoubleButton(TCanvas& canvas, const TRect& rect) { DrawButton(canvas, rect, true); }
void DrawTriangle(TCanvas& canvas, const TRect& rect) { Draw3Angle(canvas, rect, daBottom, kColor); }

/// Controls of 60 x 24, row by row, begun again at the top when the page is full.
void DrawControls(TCanvas& canvas, std::int64_t count, DrawControl draw) {
  for (std::int64_t i = 0; i < count; ++i) {
    const auto x = static_cast<Integer>(i % 30 * 64);
    const auto y = static_cast<Integer>(i / 30 % 38 * 28);
    draw(canvas, {x, y, x + 60, y + 24});
  }
}

void BenchControls(benchmark::State& state, DrawControl draw) {
  QImage image = Screen();
  TBitmap bitmap(kWidth, kHeight);
  {
    desktop::QtCanvas canvas(image);
    DrawControls(canvas, state.range(0), draw);
    DrawControls(bitmap.GetCanvas(), state.range(0), draw);
  }
  for (Integer y = 0; y < kHeight; ++y)
    if (!std::equal(bitmap.GetRow(y), bitmap.GetRow(y) + kWidth,
                    reinterpret_cast<const std::uint32_t*>(image.constScanLine(y))))
      return state.SkipWithError("another picture than the core's");
  for (auto _ : state) {
    desktop::QtCanvas canvas(image);
    DrawControls(canvas, state.range(0), draw);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

[[maybe_unused]] const bool registered = [] {
  const auto add = [](const char* name, DrawControl draw) {
    benchmark::RegisterBenchmark(name, BenchControls, draw)->Arg(500)->Arg(2000)->Arg(8000);
  };
  add("desktop.buttons/qxTools", DrawDoubleButton);
  add("desktop.triangles/qxTools", DrawTriangle);
  return true;
}();

}  // namespace
