#include <qxTools/desktop/qt/BitmapText.h>
#include <qxTools/desktop/qt/Glyphs.h>
#include <qxTools/painting/Bitmap.h>

#include <QtGui/QImage>

namespace qxTools::desktop {

TPoint BitmapText::Measure(std::string_view text) { return MeasureGlyphs(QFont(), text); }

void BitmapText::Paint(TBitmap& bitmap, const TRect& clip, const TPoint& at, std::string_view text,
                       TColor color) {
  auto* const pixels = reinterpret_cast<uchar*>(bitmap.GetRow(0));
  const qsizetype rowBytes = qsizetype{bitmap.GetWidth()} * 4;
  QImage image(pixels, bitmap.GetWidth(), bitmap.GetHeight(), rowBytes, QImage::Format_RGB32);
  QPainter painter(&image);
  const QRectF sides(QPointF(clip.Left, clip.Top), QPointF(clip.Right, clip.Bottom));
  PaintGlyphs(painter, QFont(), sides, at, text, color);
}

}  // namespace qxTools::desktop
