#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/desktop/qt/Glyphs.h>

#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>

namespace qxTools::desktop {

void RequireApplication() {
  if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
    throw Exception("No application object");
}

QString ToQString(std::string_view text) { return QString::fromStdU16String(BytesToWide(text)); }

TColor ToTColor(const QColor& color) {
  return static_cast<TColor>(color.red() | color.green() << 8 | color.blue() << 16);
}

TPoint MeasureGlyphs(const QFont& font, std::string_view text) {
  RequireApplication();
  const QFontMetrics metrics(font);
  return {metrics.horizontalAdvance(ToQString(text)), metrics.height()};
}

void PaintGlyphs(QPainter& painter, const QFont& font, const QRectF& clip, const TPoint& at,
                 std::string_view text, TColor color) {
  RequireApplication();
  painter.setFont(font);
  painter.setPen(ToQColor(color));
  painter.setClipRect(clip);
  painter.drawText(QPointF(at.X, at.Y) + QPointF(0, QFontMetrics(font).ascent()), ToQString(text));
  painter.setClipping(false);
}

}  // namespace qxTools::desktop
