/// @file
/// A canvas over anything that Qt paints on: a widget, a picture, a printer's page.
///
/// Pictures are those of a bitmap's canvas, pixel for pixel; only glyphs are the desktop's own. Coordinates
/// are Qt's logical ones: on a surface with a device pixel ratio of 2 each pixel becomes 2 x 2. At a ratio
/// such as 1.25 sides lie on the nearest pixels of the surface, so what meets elsewhere meets there too, and
/// a bitmap is stretched between its sides.
#pragma once

#include <qxTools/desktop/Export.h>
#include <qxTools/painting/Canvas.h>

#include <QtGui/QFont>
#include <QtGui/QPainter>
#include <QtGui/QTransform>
#include <vector>

namespace qxTools::desktop {

/// Paints from its making to its end; a widget makes it in paintEvent. The surface outlives it and is painted
/// by nothing else meanwhile. The font is at first the surface's. Text needs the program's application
/// object.
class QXTOOLS_DESKTOP_API QtCanvas : public TCanvas {
 public:
  /// @throws Exception "The surface cannot be painted" when Qt refuses it: null, or being painted already.
  explicit QtCanvas(QPaintDevice& surface);
  ~QtCanvas() override;

  const QFont& GetFont() const { return font_; }
  /// Points are those of the surface: on a printer's page they have more pixels than on the screen.
  void SetFont(const QFont& font);

  /// @throws Exception "No application object".
  Integer TextWidth(std::string_view text) override;
  /// The height of a line, whatever it says. @throws Exception "No application object".
  Integer TextHeight(std::string_view text) override;

 protected:
  TRect GetBounds() const override { return bounds_; }
  void PaintRects(std::span<const TRect> rects, TColor color) override;
  void PaintBitmap(Integer x, Integer y, const TBitmap& bitmap) override;
  void PaintText(const TRect& clip, const TPoint& at, std::string_view text, TColor color) override;

 private:
  /// The rectangle with its sides on the surface's own pixels.
  QRectF OnSurface(const TRect& rect) const;

  QPainter painter_;
  QTransform device_;    // from logical pixels to the surface's own
  bool isWhole_ = true;  // whether every side lies on one of those anyway
  QFont font_;
  TRect bounds_;
};

}  // namespace qxTools::desktop
