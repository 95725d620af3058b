#include <qxTools/base/Exceptions.h>
#include <qxTools/graphics/QXColorMode.h>
#include <qxTools/runtime/Numbers.h>

#include <cstdio>
#include <numbers>

namespace qxTools::QXColorMode {

namespace {

struct Range {
  Real max;
  Real min;
};

/// Starts with red: a NaN there stays, one in green or blue is passed over.
Range RangeOf(Real r, Real g, Real b) {
  Range range{r, r};
  if (g > range.max) range.max = g;
  if (b > range.max) range.max = b;
  if (g < range.min) range.min = g;
  if (b < range.min) range.min = b;
  return range;
}

/// The hue of channels that are not all equal.
Real HueOf(Real r, Real g, Real b, const Range& range) {
  const Real d = range.max - range.min;
  Real h = 0;
  if (r == range.max)
    h = (g - b) / d;
  else if (g == range.max)
    h = 2 + (b - r) / d;
  else if (b == range.max)
    h = 4 + (r - g) / d;
  h *= 60;
  return h < 0 ? h + 360 : h;
}

Real HueValue(Real m1, Real m2, Real h) {
  if (h > 360)
    h -= 360;
  else if (h < 0)
    h += 360;
  if (h < 60) return m1 + (m2 - m1) * h / 60;
  if (h < 180) return m2;
  if (h < 240) return m1 + (m2 - m1) * (240 - h) / 60;
  return m1;
}

Real Divide(Real a, Real b) {
  if (b == 0) throw EDivByZero();
  return a / b;
}

TColor Round(Real channel) { return static_cast<TColor>(RoundToInteger(channel)); }

TColor Pack(Real r, Real g, Real b) { return Round(b) << 16 | Round(g) << 8 | Round(r); }

THSVMode UnitHSV(TColor color) {
  const TRGBMode c = RGB(color);
  THSVMode mode;
  RGBtoHSV(c.R / 255, c.G / 255, c.B / 255, mode.H, mode.S, mode.V);
  return mode;
}

}  // namespace

void RGBtoHSV(Real r, Real g, Real b, Real& h, Real& s, Real& v) {
  const Range range = RangeOf(r, g, b);
  v = range.max;
  s = range.max == 0 ? 0 : (range.max - range.min) / range.max;
  h = s == 0 ? 0 : HueOf(r, g, b, range);
}

void HSVtoRGB(Real h, Real s, Real v, Real& r, Real& g, Real& b) {
  if (s == 0) {
    r = g = b = v;
    return;
  }
  if (!(h >= 0 && h <= 360)) return;
  const Real sector = h == 360 ? 0 : h / 60;
  const int i = static_cast<int>(sector);
  const Real f = sector - i;
  const Real p = v * (1 - s);
  const Real q = v * (1 - s * f);
  const Real t = v * (1 - (1 - f) * s);
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

void RGBtoHLS(Real r, Real g, Real b, Real& h, Real& l, Real& s) {
  const Range range = RangeOf(r, g, b);
  const auto [max, min] = range;
  const Real lightness = (max + min) / 2;
  const bool isGrey = max == min;
  s = isGrey ? 0 : Divide(max - min, lightness <= 0.5L ? max + min : 2 - max - min);
  h = isGrey ? -1000 : HueOf(r, g, b, range);
  l = lightness;
}

void HLStoRGB(Real h, Real l, Real s, Real& r, Real& g, Real& b) {
  const Real m2 = l < 0.5L ? l * (1 + s) : l + s - l * s;
  const Real m1 = 2 * l - m2;
  const bool isGrey = s == 0;
  r = isGrey ? l : HueValue(m1, m2, h + 120);
  g = isGrey ? l : HueValue(m1, m2, h);
  b = isGrey ? l : HueValue(m1, m2, h - 120);
}

TColor RGB(Integer r, Integer g, Integer b) {
  const auto lowByte = [](Integer channel) { return static_cast<TColor>(channel) & 0xFF; };
  return lowByte(b) << 16 | lowByte(g) << 8 | lowByte(r);
}

TRGBMode RGB(TColor color) {
  const auto channel = [color](int shift) { return static_cast<Integer>(color >> shift & 0xFF); };
  const Integer r = channel(0), g = channel(8), b = channel(16);
  return {Real(r), Real(g), Real(b), r, g, b};
}

TColor HSV(Real h, Real s, Real v) {
  Real r = 0, g = 0, b = 0;
  HSVtoRGB(h, s, v, r, g, b);
  return Pack(r, g, b);
}

TColor HSV(const THSVMode& mode) {
  Real r = 0, g = 0, b = 0;
  HSVtoRGB(mode.H, mode.S, mode.V, r, g, b);
  return Pack(r * 255, g, b);
}

THSVMode HSV(TColor color) {
  const TRGBMode c = RGB(color);
  THSVMode mode;
  RGBtoHSV(c.R, c.G, c.B, mode.H, mode.S, mode.V);
  return mode;
}

TColor HLS(Real h, Real l, Real s) {
  Real r = 0, g = 0, b = 0;
  HLStoRGB(h, l, s, r, g, b);
  return Pack(r, g, b);
}

TColor HLS(const THLSMode& mode) { return HLS(mode.H, mode.L, mode.S); }

THLSMode HLS(TColor color) {
  const TRGBMode c = RGB(color);
  THLSMode mode;
  RGBtoHLS(c.R, c.G, c.B, mode.H, mode.L, mode.S);
  return mode;
}

THSVMode HSVAdd(const THSVMode& a, const THSVMode& b) { return {a.H, a.S, b.V}; }

TColor RGBAdd(TColor a, TColor b) { return HSV(HSVAdd(UnitHSV(a), UnitHSV(b))); }

std::string HTMLRGB(Integer r, Integer g, Integer b) {
  char text[1 + 3 * 8 + 1];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", static_cast<unsigned>(r), static_cast<unsigned>(g),
                static_cast<unsigned>(b));
  return text;
}

Real AdToRd(Real a) { return (90 - a) * std::numbers::pi_v<Real> / 180; }

bool PointinRect(const TPoint& point, const TRect& rect) {
  return rect.Left <= point.X && point.X <= rect.Right && rect.Top <= point.Y && point.Y <= rect.Bottom;
}

}  // namespace qxTools::QXColorMode
