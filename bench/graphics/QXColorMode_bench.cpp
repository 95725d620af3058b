// Colour conversions beside the plain ones that textbooks print, in `long double` too. The pixels are random,
// so that no order of the channels can be guessed ahead. Qt stands beside for orientation: it keeps channels
// in 16 bits.
#include <benchmark/benchmark.h>
#include <qxTools/graphics/QXColorMode.h>
#ifdef QXTOOLS_BENCH_QT
#include <QColor>
#endif

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace {

using namespace qxTools::QXColorMode;
using Three = std::array<Real, 3>;
using Conversion = void (*)(Real, Real, Real, Real&, Real&, Real&);

// --- Smith, "Color Gamut Transform Pairs", SIGGRAPH 1978 ---

Real PlainHue(Real r, Real g, Real b, Real max, Real delta) {
  Real h = 0;
  if (r == max)
    h = (g - b) / delta;
  else if (g == max)
    h = 2 + (b - r) / delta;
  else
    h = 4 + (r - g) / delta;
  h *= 60;
  if (h < 0) h += 360;
  return h;
}

void PlainRGBtoHSV(Real r, Real g, Real b, Real& h, Real& s, Real& v) {
  const Real max = std::max(r, std::max(g, b));
  const Real min = std::min(r, std::min(g, b));
  v = max;
  s = max != 0 ? (max - min) / max : 0;
  h = s == 0 ? 0 : PlainHue(r, g, b, max, max - min);
}

void PlainHSVtoRGB(Real h, Real s, Real v, Real& r, Real& g, Real& b) {
  if (s == 0) {
    r = g = b = v;
    return;
  }
  if (h == 360) h = 0;
  h /= 60;
  const int i = static_cast<int>(std::floor(h));
  const Real f = h - i;
  const Real p = v * (1 - s);
  const Real q = v * (1 - s * f);
  const Real t = v * (1 - s * (1 - f));
  switch (i) {
    case 0:
      r = v, g = t, b = p;
      break;
    case 1:
      r = q, g = v, b = p;
      break;
    case 2:
      r = p, g = v, b = t;
      break;
    case 3:
      r = p, g = q, b = v;
      break;
    case 4:
      r = t, g = p, b = v;
      break;
    case 5:
      r = v, g = p, b = q;
      break;
  }
}

// --- Foley, van Dam, Feiner, Hughes, "Computer Graphics", section 13.3 ---

void PlainRGBtoHLS(Real r, Real g, Real b, Real& h, Real& l, Real& s) {
  const Real max = std::max(r, std::max(g, b));
  const Real min = std::min(r, std::min(g, b));
  l = (max + min) / 2;
  if (max == min) {
    s = 0;
    h = -1000;
    return;
  }
  s = l <= 0.5L ? (max - min) / (max + min) : (max - min) / (2 - max - min);
  h = PlainHue(r, g, b, max, max - min);
}

Real PlainValue(Real n1, Real n2, Real hue) {
  if (hue > 360)
    hue -= 360;
  else if (hue < 0)
    hue += 360;
  if (hue < 60) return n1 + (n2 - n1) * hue / 60;
  if (hue < 180) return n2;
  if (hue < 240) return n1 + (n2 - n1) * (240 - hue) / 60;
  return n1;
}

void PlainHLStoRGB(Real h, Real l, Real s, Real& r, Real& g, Real& b) {
  const Real m2 = l <= 0.5L ? l * (1 + s) : l + s - l * s;
  const Real m1 = 2 * l - m2;
  if (s == 0) {
    r = g = b = l;
    return;
  }
  r = PlainValue(m1, m2, h + 120);
  g = PlainValue(m1, m2, h);
  b = PlainValue(m1, m2, h - 120);
}

#ifdef QXTOOLS_BENCH_QT
void QtRGBtoHSV(Real r, Real g, Real b, Real& h, Real& s, Real& v) {
  float hue, saturation, value;
  QColor::fromRgbF(float(r), float(g), float(b)).getHsvF(&hue, &saturation, &value);
  h = hue < 0 ? 0 : Real(hue) * 360;
  s = saturation;
  v = value;
}

void QtHSVtoRGB(Real h, Real s, Real v, Real& r, Real& g, Real& b) {
  float red, green, blue;
  QColor::fromHsvF(float(h / 360), float(s), float(v)).getRgbF(&red, &green, &blue);
  r = red;
  g = green;
  b = blue;
}
#endif

// --- The rows ---

Three Convert(Conversion conversion, const Three& in) {
  Three out;
  conversion(in[0], in[1], in[2], out[0], out[1], out[2]);
  return out;
}

std::vector<Three> Pixels(std::size_t count) {
  std::mt19937 random;
  std::vector<Three> pixels(count);
  for (Three& pixel : pixels)
    for (Real& channel : pixel) channel = Real(random() & 0xFF) / 255;
  return pixels;
}

// The answers agree within the error: of a degree on hue, and of the whole on the rest.
bool Agree(const Three& a, const Three& b, Real error) {
  for (std::size_t i = 0; i < a.size(); ++i)
    if (!(std::fabs(a[i] - b[i]) <= error)) return false;
  return true;
}

struct Row {
  Conversion plain;
  Conversion before = nullptr;  // makes the input of the pixels
};

void Run(benchmark::State& state, Row row, Conversion conversion, Real error) {
  std::vector<Three> in = Pixels(static_cast<std::size_t>(state.range(0)));
  for (Three& pixel : in) {
    if (row.before != nullptr) pixel = Convert(row.before, pixel);
    if (!Agree(Convert(conversion, pixel), Convert(row.plain, pixel), error))
      return state.SkipWithError("wrong colour");
  }
  for (auto _ : state)
    for (const Three& pixel : in) benchmark::DoNotOptimize(Convert(conversion, pixel));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

[[maybe_unused]] const bool registered = [] {
  const auto add = [](const char* name, Row row, Conversion conversion, Real error = 1e-15L) {
    benchmark::RegisterBenchmark(name, Run, row, conversion, error)->Arg(1000)->Arg(10000)->Arg(100000);
  };
  const Row toHSV{PlainRGBtoHSV}, fromHSV{PlainHSVtoRGB, PlainRGBtoHSV};
  const Row toHLS{PlainRGBtoHLS}, fromHLS{PlainHLStoRGB, PlainRGBtoHLS};
  add("color.rgb_to_hsv/qxTools", toHSV, RGBtoHSV);
  add("color.rgb_to_hsv/plain", toHSV, PlainRGBtoHSV);
  add("color.hsv_to_rgb/qxTools", fromHSV, HSVtoRGB);
  add("color.hsv_to_rgb/plain", fromHSV, PlainHSVtoRGB);
  add("color.rgb_to_hls/qxTools", toHLS, RGBtoHLS);
  add("color.rgb_to_hls/plain", toHLS, PlainRGBtoHLS);
  add("color.hls_to_rgb/qxTools", fromHLS, HLStoRGB);
  add("color.hls_to_rgb/plain", fromHLS, PlainHLStoRGB);
#ifdef QXTOOLS_BENCH_QT
  add("color.rgb_to_hsv/Qt", toHSV, QtRGBtoHSV, 0.01L);
  add("color.hsv_to_rgb/Qt", fromHSV, QtHSVtoRGB, 0.01L);
#endif
  return true;
}();

}  // namespace
