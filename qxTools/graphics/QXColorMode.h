/// @file
/// Converts colours between the packed form, separate channels, HSV and HLS; and two small geometric
/// functions.
///
/// Everything is computed in `long double`. The models work on channels of any scale: functions on reals use
/// the scale of their arguments, usually 0 to 1; functions on packed colours use 0 to 255. Hue is in degrees,
/// 0 up to but not including 360. On purpose: a grey has hue 0 in HSV and -1000 in HLS.
///
/// Packing rounds each channel to the nearest integer, ties to even; NaN becomes 0, and a channel beyond 32
/// bits the nearest limit. On purpose: channels are neither clamped nor masked, so a channel outside 0 to 255
/// changes the bits of its neighbours.
///
/// Infinite channels and NaN give NaN in some results, and hue 0 if no channel equals the largest; they never
/// cause an exception.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>
#include <qxTools/painting/Geometry.h>

namespace qxTools::QXColorMode {

/// The type that colours are computed in.
using Real = long double;

/// Hue, saturation and value.
struct THSVMode {
  Real H = 0;  ///< Hue in degrees.
  Real S = 0;  ///< Saturation.
  Real V = 0;  ///< Value.
};

/// Hue, lightness and saturation.
struct THLSMode {
  Real H = 0;  ///< Hue in degrees.
  Real L = 0;  ///< Lightness.
  Real S = 0;  ///< Saturation.
};

/// The channels of a packed colour, 0 to 255, as reals and as integers.
struct TRGBMode {
  Real R = 0;        ///< Red.
  Real G = 0;        ///< Green.
  Real B = 0;        ///< Blue.
  Integer IntR = 0;  ///< Red as an integer.
  Integer IntG = 0;  ///< Green as an integer.
  Integer IntB = 0;  ///< Blue as an integer.
};

// --- Between channels and models ---------------------------------------------

/// Converts channels to HSV. V is the largest channel; S is 0 if V is 0. Never throws.
QXTOOLS_API void RGBtoHSV(Real r, Real g, Real b, Real& h, Real& s, Real& v);

/// Converts HSV to channels. Hue 360 counts as 0. If S is exactly 0, all three channels are V, whatever the
/// hue. Never throws. On purpose: any other hue outside 0 to 360 leaves R, G and B unchanged.
QXTOOLS_API void HSVtoRGB(Real h, Real s, Real v, Real& r, Real& g, Real& b);

/// Converts channels to HLS. A grey has hue -1000 and S 0.
/// @throws EDivByZero if the channels differ and max + min is 0, or is 2 with max above 1, as for (2, 0, 0).
/// Then h, l and s are unchanged.
QXTOOLS_API void RGBtoHLS(Real r, Real g, Real b, Real& h, Real& l, Real& s);

/// Converts HLS to channels. If S is exactly 0, all three channels are L, whatever the hue. Never throws.
/// On purpose: a hue outside 0 to 360 is folded back only once; at 240 degrees or more outside, the channels
/// are wrong.
QXTOOLS_API void HLStoRGB(Real h, Real l, Real s, Real& r, Real& g, Real& b);

// --- Packed colours ----------------------------------------------------------

// (RGB) in parentheses: windows.h has a macro of that name.
/// Packs the low bytes of the three channels: RGB(255, 0, 16) is red in the low byte, blue in the third.
QXTOOLS_API TColor(RGB)(Integer r, Integer g, Integer b);

/// Returns the channels of a packed colour; its highest byte is ignored.
QXTOOLS_API TRGBMode(RGB)(TColor color);

/// RGB by a name that windows.h has no macro of: packs the low bytes of the three channels.
inline TColor PackRGB(Integer r, Integer g, Integer b) { return (RGB)(r, g, b); }

/// RGB by a name that windows.h has no macro of: returns the channels of a packed colour.
inline TRGBMode UnpackRGB(TColor color) { return (RGB)(color); }

/// Returns HSVtoRGB's channels packed without scaling, so give V on the scale 0 to 255; black if the hue is
/// outside 0 to 360 and S is not 0.
QXTOOLS_API TColor HSV(Real h, Real s, Real v);

/// Returns HSVtoRGB's channels packed; black if the hue is outside 0 to 360 and S is not 0.
/// On purpose: only red is multiplied by 255 before rounding; green and blue are not.
QXTOOLS_API TColor HSV(const THSVMode& mode);

/// Returns hue, saturation and value of a packed colour; V is on the scale 0 to 255.
QXTOOLS_API THSVMode HSV(TColor color);

/// Returns HLStoRGB's channels packed without scaling, so give L on the scale 0 to 255.
QXTOOLS_API TColor HLS(Real h, Real l, Real s);

/// Returns HLStoRGB's channels of the record packed without scaling, so give L on the scale 0 to 255.
QXTOOLS_API TColor HLS(const THLSMode& mode);

/// Returns hue, lightness and saturation of a packed colour; L is on the scale 0 to 255.
/// @throws EDivByZero if the channels differ and max + min is 2, as for (2, 0, 0).
QXTOOLS_API THLSMode HLS(TColor color);

// --- Mixing ------------------------------------------------------------------

/// Returns hue and saturation of `a` with the value of `b`.
QXTOOLS_API THSVMode HSVAdd(const THSVMode& a, const THSVMode& b);

/// Returns HSVAdd of both colours on the scale 0 to 1, packed by HSV(const THSVMode&).
/// On purpose: only red is scaled back to 0 to 255; green and blue are 0 or 1.
QXTOOLS_API TColor RGBAdd(TColor a, TColor b);

// --- HTML --------------------------------------------------------------------

/// Returns "#" and the three channels in upper-case hexadecimal, at least two digits each: HTMLRGB(255, 0,
/// 16) is
/// "#FF0010".
/// On purpose: a channel above 255 has more digits, a negative one the eight digits of its two's complement.
QXTOOLS_API std::string HTMLRGB(Integer r, Integer g, Integer b);

// --- Geometry ----------------------------------------------------------------

/// Converts a compass angle in degrees (0 is up, clockwise) to radians (0 is right, anticlockwise):
/// AdToRd(90) is 0.
QXTOOLS_API Real AdToRd(Real a);

/// Returns true if the point is in the rectangle, all four edges included.
QXTOOLS_API bool PointinRect(const TPoint& point, const TRect& rect);

}  // namespace qxTools::QXColorMode
