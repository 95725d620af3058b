/// @file
/// Text on bitmaps. The library has no fonts, so a host measures and paints text.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/painting/Geometry.h>

#include <string_view>

namespace qxTools {

class TBitmap;

/// Measures and paints text in code page 950. A desktop host sets its own painter, a test a simple one.
class QXTOOLS_API TextPainter {
 public:
  /// Destroys the painter, which must not be set any more.
  virtual ~TextPainter();
  /// Returns width and height of one line of text in pixels.
  virtual TPoint Measure(std::string_view text) = 0;
  /// Paints one line of text in a plain colour, without a background; `at` is its top left. Nothing must be
  /// painted outside `clip`, which is not empty and is within the bitmap.
  virtual void Paint(TBitmap& bitmap, const TRect& clip, const TPoint& at, std::string_view text,
                     TColor color) = 0;
};

/// Sets the painter of this process, or none if it is null. The caller keeps owning it.
/// @return the painter that was set before, or null.
QXTOOLS_API TextPainter* SetTextPainter(TextPainter* painter);

/// Returns the painter that is set, or null.
QXTOOLS_API TextPainter* GetTextPainter();

}  // namespace qxTools
