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
Range RangeOf(Real R, Real G, Real B) {
  Range range{R, R};
  if (G > range.max) range.max = G;
  if (B > range.max) range.max = B;
  if (G < range.min) range.min = G;
  if (B < range.min) range.min = B;
  return range;
}

/// The hue of channels that are not all equal.
Real HueOf(Real R, Real G, Real B, const Range& range) {
  const Real d = range.max - range.min;
  Real H = 0;
  if (R == range.max)
    H = (G - B) / d;
  else if (G == range.max)
    H = 2 + (B - R) / d;
  else if (B == range.max)
    H = 4 + (R - G) / d;
  H *= 60;
  return H < 0 ? H + 360 : H;
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

TColor Pack(Real R, Real G, Real B) { return Round(B) << 16 | Round(G) << 8 | Round(R); }

THSVMode UnitHSV(TColor color) {
  const TRGBMode c = RGB(color);
  THSVMode mode;
  RGBtoHSV(c.R / 255, c.G / 255, c.B / 255, mode.H, mode.S, mode.V);
  return mode;
}

}  // namespace

void RGBtoHSV(Real R, Real G, Real B, Real& H, Real& S, Real& V) {
  const Range range = RangeOf(R, G, B);
  V = range.max;
  S = range.max == 0 ? 0 : (range.max - range.min) / range.max;
  H = S == 0 ? 0 : HueOf(R, G, B, range);
}

void HSVtoRGB(Real H, Real S, Real V, Real& R, Real& G, Real& B) {
  if (S == 0) {
    R = G = B = V;
    return;
  }
  if (!(H >= 0 && H <= 360)) return;
  const Real h = H == 360 ? 0 : H / 60;
  const int i = static_cast<int>(h);
  const Real f = h - i;
  const Real p = V * (1 - S);
  const Real q = V * (1 - S * f);
  const Real t = V * (1 - (1 - f) * S);
  switch (i) {
    case 0:
      R = V, G = t, B = p;
      break;
    case 1:
      R = q, G = V, B = p;
      break;
    case 2:
      R = p, G = V, B = t;
      break;
    case 3:
      R = p, G = q, B = V;
      break;
    case 4:
      R = t, G = p, B = V;
      break;
    case 5:
      R = V, G = p, B = q;
      break;
  }
}

void RGBtoHLS(Real R, Real G, Real B, Real& H, Real& L, Real& S) {
  const Range range = RangeOf(R, G, B);
  const auto [max, min] = range;
  const Real lightness = (max + min) / 2;
  const bool isGrey = max == min;
  S = isGrey ? 0 : Divide(max - min, lightness <= 0.5L ? max + min : 2 - max - min);
  H = isGrey ? -1000 : HueOf(R, G, B, range);
  L = lightness;
}

void HLStoRGB(Real H, Real L, Real S, Real& R, Real& G, Real& B) {
  const Real m2 = L < 0.5L ? L * (1 + S) : L + S - L * S;
  const Real m1 = 2 * L - m2;
  const bool isGrey = S == 0;
  R = isGrey ? L : HueValue(m1, m2, H + 120);
  G = isGrey ? L : HueValue(m1, m2, H);
  B = isGrey ? L : HueValue(m1, m2, H - 120);
}

TColor RGB(Integer R, Integer G, Integer B) {
  const auto lowByte = [](Integer channel) { return static_cast<TColor>(channel) & 0xFF; };
  return lowByte(B) << 16 | lowByte(G) << 8 | lowByte(R);
}

TRGBMode RGB(TColor color) {
  const auto channel = [color](int shift) { return static_cast<Integer>(color >> shift & 0xFF); };
  const Integer R = channel(0), G = channel(8), B = channel(16);
  return {Real(R), Real(G), Real(B), R, G, B};
}

TColor HSV(Real H, Real S, Real V) {
  Real R = 0, G = 0, B = 0;
  HSVtoRGB(H, S, V, R, G, B);
  return Pack(R, G, B);
}

TColor HSV(const THSVMode& mode) {
  Real R = 0, G = 0, B = 0;
  HSVtoRGB(mode.H, mode.S, mode.V, R, G, B);
  return Pack(R * 255, G, B);
}

THSVMode HSV(TColor color) {
  const TRGBMode c = RGB(color);
  THSVMode mode;
  RGBtoHSV(c.R, c.G, c.B, mode.H, mode.S, mode.V);
  return mode;
}

TColor HLS(Real H, Real L, Real S) {
  Real R = 0, G = 0, B = 0;
  HLStoRGB(H, L, S, R, G, B);
  return Pack(R, G, B);
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

std::string HTMLRGB(Integer R, Integer G, Integer B) {
  char text[1 + 3 * 8 + 1];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", static_cast<unsigned>(R), static_cast<unsigned>(G),
                static_cast<unsigned>(B));
  return text;
}

Real AdToRd(Real A) { return (90 - A) * std::numbers::pi_v<Real> / 180; }

bool PointinRect(const TPoint& point, const TRect& rect) {
  return rect.Left <= point.X && point.X <= rect.Right && rect.Top <= point.Y && point.Y <= rect.Bottom;
}

}  // namespace qxTools::QXColorMode
