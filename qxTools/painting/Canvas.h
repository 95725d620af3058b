/// @file
/// A drawing surface: lines, rectangles, polygons, text and copies of bitmaps.
///
/// The pixels of lines, polygons and copies are calculated here, so a picture is the same on every host. A
/// host derives a class that paints rectangles, bitmaps and text. Coordinates are pixels from the top left;
/// what is outside the surface is not painted and takes no time. Colours may be system colours
/// (SystemColors.h).
#pragma once

#include <qxTools/Export.h>
#include <qxTools/painting/Geometry.h>

#include <span>
#include <string_view>
#include <vector>

namespace qxTools {

class TBitmap;

/// Whether areas are filled.
enum TBrushStyle {
  bsSolid,  ///< Areas are filled with the brush's colour.
  bsClear   ///< Areas are not filled.
};

/// A surface with a pen, a brush, a font colour and a position. At first the pen is black (it is always 1
/// pixel wide), the brush is solid and white, the font colour is black and the position is (0, 0).
///
/// If memory runs out, std::bad_alloc is thrown and nothing has been painted; for TextRect the rectangle may
/// have been filled.
class QXTOOLS_API TCanvas : public TObject {
 public:
  /// Makes a canvas with the colours and the position of a new one.
  TCanvas();
  TCanvas(const TCanvas&) = delete;
  TCanvas& operator=(const TCanvas&) = delete;
  ~TCanvas() override;

  // --- Pen, brush and font ------------------------------------------------------
  /// Returns the colour of lines.
  TColor GetPenColor() const { return penColor_; }
  /// Sets the colour of lines.
  void SetPenColor(TColor color) { penColor_ = color; }
  /// Returns the colour that areas are filled with.
  TColor GetBrushColor() const { return brushColor_; }
  /// Sets the colour that areas are filled with. On purpose: a clear brush becomes solid.
  void SetBrushColor(TColor color);
  /// Returns whether areas are filled.
  TBrushStyle GetBrushStyle() const { return brushStyle_; }
  /// Sets whether areas are filled.
  void SetBrushStyle(TBrushStyle style) { brushStyle_ = style; }
  /// Returns the colour of text.
  TColor GetFontColor() const { return fontColor_; }
  /// Sets the colour of text.
  void SetFontColor(TColor color) { fontColor_ = color; }

  // --- Lines and areas ----------------------------------------------------------
  /// Moves the position.
  void MoveTo(Integer x, Integer y) { position_ = {x, y}; }
  /// Draws a line from the position up to, but without, (x, y), and moves the position there. The pixels
  /// nearest to the line are painted; of two equally near ones the one with the smaller coordinate, so that
  /// both directions paint the same pixels.
  void LineTo(Integer x, Integer y);
  /// Fills a rectangle, without the column Right and the row Bottom, with the brush. If the rectangle is
  /// inverted or empty, or the brush is clear, nothing is painted.
  void FillRect(const TRect& rect);
  /// Fills the inside of a polygon with the brush and then draws every edge with the pen, also the one from
  /// the last point to the first. What is inside is determined by the even-odd rule; left and top edges are
  /// inside, right and bottom edges are not. The position is unchanged. Takes time linear in the points times
  /// the logarithm of those that share a row.
  void Polygon(std::span<const TPoint> points);

  // --- Bitmaps ------------------------------------------------------------------
  /// Copies a bitmap into `dest`. If the sizes differ, it is stretched: of d pixels that show s source
  /// pixels, pixel i shows source pixel ((2i + 1) * s - 1) div (2d). If the sides of `dest` are reversed, the
  /// copy is mirrored. The bitmap may be the one of this canvas.
  void CopyRect(const TRect& dest, const TBitmap& source);
  /// Copies a part of a bitmap into `dest`, stretched or mirrored as the whole one is. Pixels of the part
  /// that are outside the bitmap are not painted; an empty or reversed part paints nothing. The bitmap may be
  /// the one of this canvas.
  void CopyRect(const TRect& dest, const TBitmap& source, const TRect& part);

  // --- Text ---------------------------------------------------------------------
  /// Returns the width of one line of text in pixels.
  virtual Integer TextWidth(std::string_view text) = 0;
  /// Returns the height of one line of text in pixels.
  virtual Integer TextHeight(std::string_view text) = 0;
  /// Paints one line of text in the font's colour with its top left at (x, y). Nothing is painted outside
  /// `rect`. If the brush is solid, the whole rectangle is filled first.
  void TextRect(const TRect& rect, Integer x, Integer y, std::string_view text);

 protected:
  // A host overrides these. Colours are plain ones, and everything is within the bounds.

  /// Returns the pixels that can be painted.
  virtual TRect GetBounds() const = 0;
  /// Fills rectangles with a plain colour. None of them is empty, and all are within the bounds.
  virtual void PaintRects(std::span<const TRect> rects, TColor color) = 0;
  /// Paints a bitmap pixel by pixel with its top left at (x, y). It is not empty and is within the bounds.
  virtual void PaintBitmap(Integer x, Integer y, const TBitmap& bitmap) = 0;
  /// Paints one line of text in a plain colour with its top left at `at`, and nothing outside `clip`, which
  /// is not empty.
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
