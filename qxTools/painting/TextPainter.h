/// @file
/// Text on bitmaps, which the library leaves to the host: it has no fonts of its own.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/painting/Geometry.h>

#include <string_view>

namespace qxTools {

class TBitmap;

/// Measures and paints code page 950 text. A desktop plugs in its own, a test a simple one.
class QXTOOLS_API TextPainter {
 public:
  virtual ~TextPainter();
  /// Width and height of the text, in pixels.
  virtual TPoint Measure(std::string_view text) = 0;
  /// Paints the glyphs, and nothing behind them, in a plain colour; (x, y) is the top left of the text.
  /// Nothing is painted outside `clip`, which is not empty and lies within the bitmap.
  virtual void Paint(TBitmap& bitmap, const TRect& clip, const TPoint& at, std::string_view text,
                     TColor color) = 0;
};

/// Plugs in a painter, which the caller keeps; null takes it away.
/// @return the painter plugged in before, or null.
QXTOOLS_API TextPainter* SetTextPainter(TextPainter* painter);

/// The painter that is plugged in, or null.
QXTOOLS_API TextPainter* GetTextPainter();

}  // namespace qxTools
