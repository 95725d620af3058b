/// @file
/// Colours between the packed form, separate channels, HSV and HLS, and two small geometric functions.
///
/// Everything is computed in `long double`. The models work on channels of any scale: the functions on reals
/// take what they are given, usually 0 to 1, and those on packed colours work on 0 to 255 without scaling.
/// Hue is in degrees from 0 up to but excluding 360. On purpose a grey has hue 0 in HSV and -1000 in HLS.
///
/// Packing rounds each channel to the nearest integer, ties to even, NaN to 0 and what is beyond 32 bits to
/// the nearest limit. On purpose it neither clamps nor masks: a channel outside 0 to 255 spills into the
/// bits of its neighbours.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>
#include <qxTools/painting/Geometry.h>

namespace qxTools::QXColorMode {

/// The number that colours are computed in.
using Real = long double;

/// Hue, saturation and value.
struct THSVMode {
  Real H = 0;  ///< degrees
  Real S = 0;  ///< saturation
  Real V = 0;  ///< value
};

/// Hue, lightness and saturation.
struct THLSMode {
  Real H = 0;  ///< degrees
  Real L = 0;  ///< lightness
  Real S = 0;  ///< saturation
};

/// The channels of a packed colour, 0 to 255, as reals and as integers.
struct TRGBMode {
  /// Red, green and blue.
  Real R = 0;
  Real G = 0;
  Real B = 0;
  Integer IntR = 0;
  Integer IntG = 0;
  Integer IntB = 0;
};

// --- Between channels and models ---------------------------------------------
// Channels that are infinite or not a number give NaN in some results, and hue 0 where no channel equals the
// largest; nothing is raised.

/// V is the largest channel. S is 0 where that is 0.
QXTOOLS_API void RGBtoHSV(Real r, Real g, Real b, Real& h, Real& s, Real& v);

/// Hue 360 counts as 0. With S exactly 0 all three are V, whatever the hue.
/// On purpose: any other hue outside 0 to 360 leaves R, G and B as they were.
QXTOOLS_API void HSVtoRGB(Real h, Real s, Real v, Real& r, Real& g, Real& b);

/// @throws EDivByZero when the channels differ and max + min is 0, or 2 with max above 1, as in (2, 0, 0).
/// Nothing is written then.
QXTOOLS_API void RGBtoHLS(Real r, Real g, Real b, Real& h, Real& l, Real& s);

/// With S exactly 0 all three are L, whatever the hue.
/// On purpose: a hue outside 0 to 360 is folded back once only; from 240 degrees beyond it the channels leave
/// the colour.
QXTOOLS_API void HLStoRGB(Real h, Real l, Real s, Real& r, Real& g, Real& b);

// --- Packed colours ----------------------------------------------------------

/// The low bytes of the three, packed.
QXTOOLS_API TColor RGB(Integer r, Integer g, Integer b);

/// The channels of a packed colour; its highest byte is not looked at.
QXTOOLS_API TRGBMode RGB(TColor color);

/// The channels of HSVtoRGB, packed without scaling; black for a hue that it does not write.
QXTOOLS_API TColor HSV(Real h, Real s, Real v);

/// The same from a record.
/// On purpose: red alone is multiplied by 255 before it is rounded; green and blue are not.
QXTOOLS_API TColor HSV(const THSVMode& mode);

/// RGBtoHSV of the channels 0 to 255: V is 0 to 255 too.
QXTOOLS_API THSVMode HSV(TColor color);

/// The channels of HLStoRGB, packed without scaling.
QXTOOLS_API TColor HLS(Real h, Real l, Real s);
QXTOOLS_API TColor HLS(const THLSMode& mode);

/// RGBtoHLS of the channels 0 to 255: L is 0 to 255 too.
/// @throws EDivByZero as RGBtoHLS.
QXTOOLS_API THLSMode HLS(TColor color);

// --- Mixing ------------------------------------------------------------------

/// Hue and saturation of `a` with the value of `b`.
QXTOOLS_API THSVMode HSVAdd(const THSVMode& a, const THSVMode& b);

/// HSVAdd of both colours on the scale 0 to 1, packed by HSV(THSVMode).
/// On purpose: only red comes back on the scale 0 to 255; green and blue are 0 or 1.
QXTOOLS_API TColor RGBAdd(TColor a, TColor b);

// --- HTML --------------------------------------------------------------------

/// "#" and the three channels in upper-case hexadecimal, each of at least two digits: "#FF0010".
/// On purpose: a channel above 255 takes more digits, a negative one the eight of its two's complement.
QXTOOLS_API std::string HTMLRGB(Integer r, Integer g, Integer b);

// --- Geometry ----------------------------------------------------------------

/// A compass angle in degrees (0 is up, clockwise) as radians from the right, anticlockwise.
QXTOOLS_API Real AdToRd(Real a);

/// Whether the point lies in the rectangle, all four edges included.
QXTOOLS_API bool PointinRect(const TPoint& point, const TRect& rect);

}  // namespace qxTools::QXColorMode
