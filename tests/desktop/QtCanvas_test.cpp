// Needs a Chinese font, as the package fonts-wqy-microhei has, and Qt's offscreen platform.
#include <qxTools/desktop/qt/QtCanvas.h>
#include <qxTools/graphics/qxDrawTools.h>

#include <QtGui/QFontDatabase>
#include <QtGui/QImage>
#include <QtGui/QPicture>
#include <QtGui/QPixmap>
#include <QtGui/QRasterWindow>
#include <QtWidgets/QWidget>
#include <cmath>

#include "desktop/Application.h"
#include "support/RandomPicture.h"
#include "support/Testing.h"

namespace qxTools::test {

namespace {

using desktop::QtCanvas;

constexpr Integer kSide = 64;
constexpr char kOrder[] = "\xAD\x71\xB3\xE6";  // 訂單

/// A picture of the core as Qt shows it: each pixel has those of the surface that its rounded sides enclose.
QImage ImageOf(const TBitmap& bitmap, double ratio = 1) {
  const auto size = [ratio](Integer side) { return static_cast<int>(std::floor(side * ratio + 0.5)); };
  const auto source = [ratio](int place) {
    return static_cast<Integer>(std::ceil((place + 0.5) / ratio)) - 1;
  };
  QImage image(size(bitmap.GetWidth()), size(bitmap.GetHeight()), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, bitmap.GetRow(source(y))[source(x)]);
  return image;
}

QImage QtPaper(double ratio = 1) { return ImageOf(Paper(kSide, kSide), ratio); }

/// What that gives on the core's own canvas.
QImage Expected(unsigned seed, double ratio = 1, const char* stamp = kStamp) {
  Paper paper(kSide, kSide);
  DrawAtRandom(paper.GetCanvas(), seed, stamp);
  return ImageOf(paper, ratio);
}

class QtCanvasTest : public WithApplication {};

}  // namespace

TEST_F(QtCanvasTest, RandomPicturesAreThoseOfTheCore) {
  for (unsigned seed = 0; seed < 100; ++seed)
    for (const double ratio : {1., 1.25, 1.5, 1.75, 2., 3.}) {
      // At a broken ratio bitmaps are stretched by the toolkit.
      const char* const stamp = ratio == std::floor(ratio) ? kStamp : "0\n";
      QImage image = QtPaper(ratio);
      QtCanvas canvas(image);
      DrawAtRandom(canvas, seed, stamp);
      ASSERT_EQ(image, Expected(seed, ratio, stamp)) << "seed " << seed << " at ratio " << ratio;
    }
}

TEST_F(QtCanvasTest, EveryKindOfSurfaceCanBePainted) {
  const auto draw = [](QPaintDevice& surface) {
    QtCanvas canvas(surface);
    DrawAtRandom(canvas, 1);
  };
  QPixmap pixmap = QPixmap::fromImage(QtPaper());
  draw(pixmap);
  EXPECT_EQ(pixmap.toImage(), Expected(1));

  QPicture picture;
  draw(picture);
  QImage played = QtPaper();
  QPainter(&played).drawPicture(0, 0, picture);
  EXPECT_EQ(played, Expected(1));

  class Form : public QWidget {
    void paintEvent(QPaintEvent*) override {
      QtCanvas canvas(*this);
      canvas.SetBrushColor(ColorOf('.'));
      canvas.FillRect({0, 0, width(), height()});
      DrawAtRandom(canvas, 1);
    }
  } form;
  form.resize(kSide, kSide);
  EXPECT_EQ(form.grab().toImage(), Expected(1));
}

TEST_F(QtCanvasTest, ASurfaceThatIsBeingPaintedIsRefused) {
  QImage image = QtPaper();
  const QtCanvas first(image);
  EXPECT_EQ(MessageOf([&] { QtCanvas second(image); }), "The surface cannot be painted");
}

TEST_F(QtCanvasTest, GlyphsStayInTheClip) {
  ASSERT_TRUE(QFontDatabase::families(QFontDatabase::TraditionalChinese).size() > 0)
      << "a Chinese font is needed: package fonts-wqy-microhei";
  const TRect clip{10, 13, 21, 18};
  for (const double ratio : {1., 1.25, 1.5, 2.}) {
    const QImage empty = QtPaper(ratio);
    QImage image = empty;
    QtCanvas canvas(image);
    canvas.SetBrushStyle(bsClear);
    canvas.TextRect(clip, 8, 8, kOrder);
    EXPECT_NE(image, empty) << "ratio " << ratio;
    canvas.SetBrushColor(ColorOf('.'));  // solid: fills the clip, then paints as if nothing
    canvas.SetFontColor(ColorOf('.'));
    canvas.TextRect(clip, 8, 8, kOrder);
    EXPECT_EQ(image, empty) << "ratio " << ratio;
  }
}

TEST_F(QtCanvasTest, TextIsReadByTheLibrarysTableInTheCanvassFont) {
  const char bytes[] = "\xA1\x45\xA1\x5A\xF9\xD6\xF9\xFA";  // other tables differ here
  const QString text = QString::fromUtf16(u"\u2027\u2574\u7881\u256D");
  QImage ours = QtPaper();
  QImage direct = ours;
  QtCanvas canvas(ours);
  canvas.SetBrushStyle(bsClear);
  canvas.TextRect({0, 0, kSide, kSide}, 3, 4, bytes);
  QPainter painter(&direct);
  painter.drawText(3, 4 + painter.fontMetrics().ascent(), text);
  EXPECT_EQ(ours, direct);
  EXPECT_EQ(canvas.TextWidth(bytes), painter.fontMetrics().horizontalAdvance(text));
  QFont large = canvas.GetFont();
  large.setPixelSize(3 * canvas.TextHeight(""));
  canvas.SetFont(large);
  EXPECT_EQ(canvas.TextHeight(""), QFontMetrics(large).height());
}

TEST_F(QtCanvasTest, PointsAreThoseOfTheSurface) {
  QImage page = QtPaper();
  page.setDotsPerMeterX(10000);
  page.setDotsPerMeterY(10000);
  QtCanvas canvas(page);
  const Integer before = canvas.TextHeight("");
  EXPECT_GT(before, QFontMetrics(QFont()).height());
  canvas.SetFont(QFont());
  EXPECT_EQ(canvas.TextHeight(""), before);
}

TEST(QtCanvas, TheBoundsOfAWindowAreLogical) {
  struct Canvas : QtCanvas {
    using QtCanvas::GetBounds;
    using QtCanvas::QtCanvas;
  };
  struct Window : QRasterWindow {
    void paintEvent(QPaintEvent*) override { bounds = Canvas(*this).GetBounds(); }
    TRect bounds;
  };
  qputenv("QT_SCALE_FACTOR", "2");
  const Application<> application;
  qunsetenv("QT_SCALE_FACTOR");
  Window window;
  window.resize(100, 50);
  window.show();
  QCoreApplication::processEvents();
  EXPECT_EQ(window.bounds, (TRect{0, 0, 100, 50}));
}

TEST(QtCanvas, TextWithoutAnApplicationObjectIsAnError) {
  QImage image = QtPaper();
  QtCanvas canvas(image);
  canvas.LineTo(8, 8);  // needs none
  const Application<QCoreApplication> withoutWindows;
  EXPECT_EQ(MessageOf([&] { canvas.TextWidth("a"); }), "No application object");
  EXPECT_EQ(MessageOf([&] { canvas.TextRect({0, 0, 8, 8}, 0, 0, "a"); }), "No application object");
}

}  // namespace qxTools::test
