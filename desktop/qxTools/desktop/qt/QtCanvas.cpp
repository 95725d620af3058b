#include <qxTools/base/Exceptions.h>
#include <qxTools/desktop/qt/Glyphs.h>
#include <qxTools/desktop/qt/QtCanvas.h>
#include <qxTools/painting/Bitmap.h>

#include <QtGui/QImage>
#include <QtGui/QPaintDeviceWindow>
#include <cmath>

namespace qxTools::desktop {

namespace {

/// A recording has no sides of its own; this is what a page or screen may need.
constexpr TRect kRecordingBounds{0, 0, 32767, 32767};

/// The size of widgets and windows is in logical pixels; that of all other surfaces is in the device's own.
TRect BoundsOf(const QPaintDevice& surface) {
  if (surface.devType() == QInternal::Picture) return kRecordingBounds;
  const bool isWindow = dynamic_cast<const QPaintDeviceWindow*>(&surface) != nullptr;
  const double ratio = isWindow || surface.devType() == QInternal::Widget ? 1 : surface.devicePixelRatioF();
  const auto logical = [ratio](int size) { return static_cast<Integer>(std::ceil(size / ratio)); };
  return {0, 0, logical(surface.width()), logical(surface.height())};
}

bool IsWhole(double number) { return number == std::floor(number); }

}  // namespace

QtCanvas::QtCanvas(QPaintDevice& surface) {
  if (!painter_.begin(&surface)) throw Exception("The surface cannot be painted");
  device_ = painter_.deviceTransform();
  isWhole_ =
      IsWhole(device_.m11()) && IsWhole(device_.m22()) && IsWhole(device_.dx()) && IsWhole(device_.dy());
  font_ = painter_.font();
  bounds_ = BoundsOf(surface);
}

QtCanvas::~QtCanvas() = default;

void QtCanvas::SetFont(const QFont& font) { font_ = QFont(font, painter_.device()); }

Integer QtCanvas::TextWidth(std::string_view text) { return MeasureGlyphs(font_, text).X; }

Integer QtCanvas::TextHeight(std::string_view text) { return MeasureGlyphs(font_, text).Y; }

QRectF QtCanvas::OnSurface(const TRect& rect) const {
  if (isWhole_) return QRectF(rect.Left, rect.Top, rect.Right - rect.Left, rect.Bottom - rect.Top);
  const auto nearest = [](Integer place, double ratio, double start) {
    return (std::floor(place * ratio + start + 0.5) - start) / ratio;
  };
  const auto x = [&](Integer place) { return nearest(place, device_.m11(), device_.dx()); };
  const auto y = [&](Integer place) { return nearest(place, device_.m22(), device_.dy()); };
  return {QPointF(x(rect.Left), y(rect.Top)), QPointF(x(rect.Right), y(rect.Bottom))};
}

void QtCanvas::PaintRects(std::span<const TRect> rects, TColor color) {
  const QColor solid = ToQColor(color);
  for (const TRect& rect : rects) painter_.fillRect(OnSurface(rect), solid);
}

void QtCanvas::PaintBitmap(Integer x, Integer y, const TBitmap& bitmap) {
  const auto* const pixels = reinterpret_cast<const uchar*>(bitmap.GetRow(0));
  const qsizetype rowBytes = qsizetype{bitmap.GetWidth()} * 4;
  const QImage image(pixels, bitmap.GetWidth(), bitmap.GetHeight(), rowBytes, QImage::Format_RGB32);
  painter_.drawImage(OnSurface({x, y, x + bitmap.GetWidth(), y + bitmap.GetHeight()}), image);
}

void QtCanvas::PaintText(const TRect& clip, const TPoint& at, std::string_view text, TColor color) {
  PaintGlyphs(painter_, font_, OnSurface(clip), at, text, color);
}

}  // namespace qxTools::desktop
