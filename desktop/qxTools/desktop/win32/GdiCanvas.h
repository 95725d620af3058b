/// @file
/// A canvas on anything that GDI paints on: a window, a bitmap in memory or a printer's page.
///
/// Pictures have the same pixels as on a bitmap's canvas; only the shapes of characters are those of the
/// desktop. Coordinates are the device context's logical ones.
#pragma once

#include <qxTools/desktop/Export.h>
#include <qxTools/painting/Canvas.h>

struct HDC__;

namespace qxTools::desktop {

/// A canvas on a device context, whose clipping region bounds it. A window makes one in WM_PAINT, after
/// BeginPaint. Text is in the font that is selected in the context; SelectObject chooses another one.
class QXTOOLS_DESKTOP_API GdiCanvas : public TCanvas {
 public:
  /// Starts painting on a device context (an HDC), which must outlive the canvas.
  /// @throws Exception "The surface cannot be painted" if it is not a device context.
  explicit GdiCanvas(HDC__* context);
  /// Ends painting. The context has the font, the colours and the modes again that it had before.
  ~GdiCanvas() override;

  /// Returns the width of one line of text.
  Integer TextWidth(std::string_view text) override;
  /// Returns the height of a line, which is the same for every text.
  Integer TextHeight(std::string_view text) override;

 protected:
  TRect GetBounds() const override;
  void PaintRects(std::span<const TRect> rects, TColor color) override;
  void PaintBitmap(Integer x, Integer y, const TBitmap& bitmap) override;
  void PaintText(const TRect& clip, const TPoint& at, std::string_view text, TColor color) override;

 private:
  HDC__* const context_;
  const int saved_;
};

}  // namespace qxTools::desktop
