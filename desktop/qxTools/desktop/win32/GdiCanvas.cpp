#include <qxTools/base/Exceptions.h>
#include <qxTools/desktop/win32/GdiCanvas.h>
#include <qxTools/desktop/win32/Glyphs.h>
#include <qxTools/desktop/win32/Pixels.h>
#include <qxTools/painting/Bitmap.h>

namespace qxTools::desktop {

GdiCanvas::GdiCanvas(HDC context) : context_(context), saved_(::SaveDC(context)) {
  if (saved_ == 0) throw Exception("The surface cannot be painted");
  ::SetStretchBltMode(context_, COLORONCOLOR);
}

GdiCanvas::~GdiCanvas() { ::RestoreDC(context_, saved_); }

Integer GdiCanvas::TextWidth(std::string_view text) { return MeasureGlyphs(context_, text).X; }

Integer GdiCanvas::TextHeight(std::string_view text) { return MeasureGlyphs(context_, text).Y; }

TRect GdiCanvas::GetBounds() const {
  RECT box{};
  ::GetClipBox(context_, &box);
  return {box.left, box.top, box.right, box.bottom};
}

void GdiCanvas::PaintRects(std::span<const TRect> rects, TColor color) {
  ::SetDCBrushColor(context_, color);
  const auto brush = static_cast<HBRUSH>(::GetStockObject(DC_BRUSH));
  for (const TRect& rect : rects) {
    const RECT sides = ToRect(rect);
    ::FillRect(context_, &sides, brush);
  }
}

void GdiCanvas::PaintBitmap(Integer x, Integer y, const TBitmap& bitmap) {
  const Integer width = bitmap.GetWidth();
  const Integer height = bitmap.GetHeight();
  const BITMAPINFO info = PixelsOf(width, height);
  ::StretchDIBits(context_, x, y, width, height, 0, 0, width, height, bitmap.GetRow(0), &info, DIB_RGB_COLORS,
                  SRCCOPY);
}

void GdiCanvas::PaintText(const TRect& clip, const TPoint& at, std::string_view text, TColor color) {
  PaintGlyphs(context_, clip, at, text, color);
}

}  // namespace qxTools::desktop
