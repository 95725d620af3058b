/// @file
/// What a drawing surface offers: lines, rectangles, polygons, text and copies of bitmaps.
///
/// Lines, polygons and copies are worked out here, to the pixel, so a picture is the same on every host. A
/// host derives a class and paints rectangles, blocks of pixels and text. Coordinates are pixels from the top
/// left; what lies outside the surface costs no time. Colours may be system colours
/// (platform/SystemColors.h).
#pragma once

#include <qxTools/Export.h>
#include <qxTools/painting/Geometry.h>

#include <span>
#include <string_view>
#include <vector>

namespace qxTools {

class TBitmap;

/// Whether areas are filled.
enum TBrushStyle { bsSolid, bsClear };

/// A surface with a pen (1 pixel wide, black at first), a brush (solid and white at first), a font colour
/// (black at first) and a position, (0, 0) at first.
class QXTOOLS_API TCanvas : public TObject {
 public:
  TCanvas();
  TCanvas(const TCanvas&) = delete;
  TCanvas& operator=(const TCanvas&) = delete;
  ~TCanvas() override;

  // --- Pen, brush and font ------------------------------------------------------
  TColor GetPenColor() const { return penColor_; }
  void SetPenColor(TColor color) { penColor_ = color; }
  TColor GetBrushColor() const { return brushColor_; }
  /// On purpose: a clear brush becomes solid.
  void SetBrushColor(TColor color);
  TBrushStyle GetBrushStyle() const { return brushStyle_; }
  void SetBrushStyle(TBrushStyle style) { brushStyle_ = style; }
  TColor GetFontColor() const { return fontColor_; }
  void SetFontColor(TColor color) { fontColor_ = color; }

  // --- Lines and areas ----------------------------------------------------------
  /// Moves the position.
  void MoveTo(Integer x, Integer y) { position_ = {x, y}; }
  /// Draws from the position up to, but without, (x, y), and moves the position there. The pixels are those
  /// nearest to the line; of two equally near ones the one with the smaller coordinate, so both directions
  /// take the same.
  void LineTo(Integer x, Integer y);
  /// Fills with the brush, without the right and bottom edges. An inverted or empty rectangle, and a clear
  /// brush, fill nothing.
  void FillRect(const TRect& rect);
  /// Fills with the brush what lies inside by the even-odd rule (left and top edges do, right and bottom ones
  /// do not), then draws every edge with the pen, the one from the last point to the first included. The
  /// position stays. Linear in the points times the logarithm of those that share a row.
  void Polygon(std::span<const TPoint> points);

  // --- Bitmaps ------------------------------------------------------------------
  /// Copies a bitmap, or a part of it, into `dest`. Sizes that differ stretch it: pixel i of d takes source
  /// pixel ((2i + 1) * s - 1) div (2d) of s. A `dest` with its sides reversed is painted mirrored. What
  /// `part` names outside the bitmap is not painted; an empty or reversed part paints nothing. The bitmap may
  /// be the one of this canvas.
  void CopyRect(const TRect& dest, const TBitmap& source);
  void CopyRect(const TRect& dest, const TBitmap& source, const TRect& part);

  // --- Text ---------------------------------------------------------------------
  /// The width of a line of text.
  virtual Integer TextWidth(std::string_view text) = 0;
  /// The height of a line of text.
  virtual Integer TextHeight(std::string_view text) = 0;
  /// Text in the font's colour, its top left at (x, y), clipped to `rect`. A solid brush fills the whole
  /// rectangle first, a clear one leaves what is behind the glyphs.
  void TextRect(const TRect& rect, Integer x, Integer y, std::string_view text);

 protected:
  // What a host paints with. Colours come as plain ones; everything lies within the bounds.

  /// The pixels that can be painted.
  virtual TRect GetBounds() const = 0;
  /// Fills rectangles, none of which is empty.
  virtual void PaintRects(std::span<const TRect> rects, TColor color) = 0;
  /// Paints a bitmap, which is not empty, pixel by pixel with its top left at (x, y).
  virtual void PaintBitmap(Integer x, Integer y, const TBitmap& bitmap) = 0;
  /// Paints glyphs, nothing outside `clip`, which is not empty; `at` is the top left of the text.
  virtual void PaintText(const TRect& clip, const TPoint& at, std::string_view text, TColor color) = 0;

 private:
  void Paint(std::span<const TRect> rects, TColor color);

  TColor penColor_ = 0;
  TColor brushColor_ = 0xFFFFFF;
  TColor fontColor_ = 0;
  TBrushStyle brushStyle_ = bsSolid;
  TPoint position_;
  std::vector<TRect> rects_;  // of the line or polygon that was drawn last; kept for its memory
};

}  // namespace qxTools
