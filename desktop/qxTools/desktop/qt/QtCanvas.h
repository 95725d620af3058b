/// @file
/// A canvas on anything that Qt paints on: a widget, a picture or a printer's page.
///
/// Pictures have the same pixels as on a bitmap's canvas; only the shapes of characters are those of the
/// desktop. Coordinates are Qt's logical ones: on a surface with a device pixel ratio of 2 each pixel becomes
/// 2 x 2. At a ratio such as 1.25 each side is moved to the nearest pixel of the surface, so that areas that
/// touch each other still do, and a bitmap is stretched between its sides.
#pragma once

#include <qxTools/desktop/Export.h>
#include <qxTools/painting/Canvas.h>

#include <QtGui/QFont>
#include <QtGui/QPainter>
#include <QtGui/QTransform>
#include <vector>

namespace qxTools::desktop {

/// A canvas on a surface. The surface must outlive it and must not be painted by anything else while it
/// exists. A widget makes a canvas in paintEvent. At first the font is that of the surface. Text needs an
/// application object.
class QXTOOLS_DESKTOP_API QtCanvas : public TCanvas {
 public:
  /// Starts painting on a surface.
  /// @throws Exception "The surface cannot be painted" if Qt refuses it: it is null or is being painted
  /// already.
  explicit QtCanvas(QPaintDevice& surface);
  /// Ends painting.
  ~QtCanvas() override;

  /// Returns the font of text.
  const QFont& GetFont() const { return font_; }
  /// Sets the font of text. Its points are those of the surface: on a printer's page they have more pixels
  /// than on the screen.
  void SetFont(const QFont& font);

  /// Returns the width of one line of text.
  /// @throws Exception "No application object" if there is none.
  Integer TextWidth(std::string_view text) override;
  /// Returns the height of a line, which is the same for every text.
  /// @throws Exception "No application object" if there is none.
  Integer TextHeight(std::string_view text) override;

 protected:
  TRect GetBounds() const override { return bounds_; }
  void PaintRects(std::span<const TRect> rects, TColor color) override;
  void PaintBitmap(Integer x, Integer y, const TBitmap& bitmap) override;
  void PaintText(const TRect& clip, const TPoint& at, std::string_view text, TColor color) override;

 private:
  /// Returns the rectangle with its sides moved to the surface's own pixels.
  QRectF OnSurface(const TRect& rect) const;

  QPainter painter_;
  QTransform device_;    // from logical pixels to the surface's own
  bool isWhole_ = true;  // whether every side lies on one of those anyway
  QFont font_;
  TRect bounds_;
};

}  // namespace qxTools::desktop
