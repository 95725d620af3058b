// Needs a Chinese font, as the package fonts-wqy-microhei has, and Qt's offscreen platform.
#include <qxTools/desktop/QtCanvas.h>

#include <QtGui/QFontDatabase>
#include <QtGui/QImage>
#include <QtGui/QPicture>
#include <QtGui/QPixmap>
#include <QtGui/QRasterWindow>
#include <QtWidgets/QWidget>
#include <cmath>

#include "desktop/Application.h"
#include "support/Picture.h"
#include "support/Testing.h"

namespace qxTools::test {

namespace {

using desktop::QtCanvas;

QRgb PaperColor() { return qRgb(0xFF, 0xFF, 0x80); }

constexpr Integer kSide = 32;

/// The first of the surface's pixels that a logical pixel has.
int Edge(Integer place, double ratio) { return static_cast<int>(std::floor(place * ratio + 0.5)); }

QImage QtPaper(Integer width, Integer height, double ratio = 1) {
  QImage image(Edge(width, ratio), Edge(height, ratio), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(PaperColor());
  return image;
}

/// The picture's letters; with a ratio above 1 every pixel must be a block of equal ones.
std::string TextOf(const QImage& image, double ratio = 1) {
  std::string text;
  for (Integer y = 0; Edge(y, ratio) < image.height(); ++y) {
    for (Integer x = 0; Edge(x, ratio) < image.width(); ++x) {
      const QRect block(QPoint(Edge(x, ratio), Edge(y, ratio)),
                        QPoint(Edge(x + 1, ratio) - 1, Edge(y + 1, ratio) - 1));
      const QRgb pixel = image.pixel(block.topLeft());
      QImage even(block.size(), image.format());
      even.fill(pixel);
      const auto color = static_cast<TColor>(qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16);
      text += image.copy(block) == even ? LetterOf(color) : '#';
    }
    text += '\n';
  }
  return text;
}

/// Random lines, polygons, fills and copies of `stamp`, the same for the same seed.
void DrawAtRandom(TCanvas& canvas, unsigned seed, const char* stamp = "012\n345\n") {
  std::mt19937 random(seed);
  const auto place = [&random] { return static_cast<Integer>(random() % 60) - 15; };
  const auto rect = [&place] { return TRect{place(), place(), place(), place()}; };
  TBitmap bitmap;
  Paint(bitmap, stamp);
  for (int i = 0; i < 8; ++i) {
    canvas.SetPenColor(kInks[random() % std::size(kInks)].color);
    canvas.SetBrushColor(kInks[random() % std::size(kInks)].color);
    const TPoint corners[] = {{place(), place()}, {place(), place()}, {place(), place()}};
    canvas.Polygon(corners);
    canvas.LineTo(place(), place());
    canvas.FillRect(rect());
    canvas.CopyRect(rect(), bitmap, rect());
    canvas.CopyRect(rect(), bitmap);
  }
}

/// What that gives on the core's own canvas.
template <class... Stamp>
std::string TextOfRandom(unsigned seed, Stamp... stamp) {
  Paper paper(kSide, kSide);
  DrawAtRandom(paper.GetCanvas(), seed, stamp...);
  return TextOf(paper);
}

/// Whether a pixel that differs from the paper lies in the rectangle, and whether one lies outside.
std::pair<bool, bool> Inked(const QImage& image, const QRect& rect) {
  bool inside = false;
  bool outside = false;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != PaperColor()) (rect.contains(x, y) ? inside : outside) = true;
  return {inside, outside};
}

constexpr char kOrder[] = "\xAD\x71\xB3\xE6";  // 訂單

class QtCanvasTest : public WithApplication {};

}  // namespace

TEST_F(QtCanvasTest, RandomPicturesAreThoseOfTheCore) {
  for (unsigned seed = 0; seed < 100; ++seed)
    for (const double ratio : {1., 1.25, 1.5, 1.75, 2., 3.}) {
      // At a broken ratio bitmaps are stretched by the toolkit.
      const char* const stamp = ratio == std::floor(ratio) ? "012\n345\n" : "0\n";
      QImage image = QtPaper(kSide, kSide, ratio);
      QtCanvas canvas(image);
      DrawAtRandom(canvas, seed, stamp);
      ASSERT_EQ(TextOf(image, ratio), TextOfRandom(seed, stamp)) << "seed " << seed << " at ratio " << ratio;
    }
}

TEST_F(QtCanvasTest, EveryKindOfSurfaceCanBePainted) {
  const auto draw = [](QPaintDevice& surface) {
    QtCanvas canvas(surface);
    DrawAtRandom(canvas, 1);
  };
  QPixmap pixmap = QPixmap::fromImage(QtPaper(kSide, kSide));
  draw(pixmap);
  EXPECT_EQ(TextOf(pixmap.toImage()), TextOfRandom(1));

  QPicture picture;
  draw(picture);
  QImage played = QtPaper(kSide, kSide);
  QPainter(&played).drawPicture(0, 0, picture);
  EXPECT_EQ(TextOf(played), TextOfRandom(1));

  class Form : public QWidget {
    void paintEvent(QPaintEvent*) override {
      QtCanvas canvas(*this);
      canvas.SetBrushColor(ColorOf('.'));
      canvas.FillRect({0, 0, width(), height()});
      DrawAtRandom(canvas, 1);
    }
  } form;
  form.resize(kSide, kSide);
  EXPECT_EQ(TextOf(form.grab().toImage()), TextOfRandom(1));
}

TEST_F(QtCanvasTest, ASurfaceThatIsBeingPaintedIsRefused) {
  QImage image = QtPaper(8, 8);
  const QtCanvas first(image);
  EXPECT_EQ(MessageOf([&] { QtCanvas second(image); }), "The surface cannot be painted");
}

TEST_F(QtCanvasTest, GlyphsStayInTheClip) {
  ASSERT_TRUE(QFontDatabase::families(QFontDatabase::TraditionalChinese).size() > 0)
      << "a Chinese font is needed: package fonts-wqy-microhei";
  for (const double ratio : {1., 1.25, 1.5, 2.}) {
    QImage image = QtPaper(60, 40, ratio);
    QtCanvas canvas(image);
    canvas.SetBrushStyle(bsClear);
    canvas.SetFontColor(ColorOf('r'));
    canvas.TextRect({10, 13, 21, 18}, 8, 8, kOrder);
    const QRect clip(QPoint(Edge(10, ratio), Edge(13, ratio)), QPoint(Edge(21, ratio) - 1, Edge(18, ratio) - 1));
    EXPECT_EQ(Inked(image, clip), std::pair(true, false)) << "ratio " << ratio;
  }
}

TEST_F(QtCanvasTest, ASolidBrushFillsBehindTheGlyphs) {
  QImage image = QtPaper(60, 40);
  QtCanvas canvas(image);
  canvas.SetBrushColor(ColorOf('g'));
  canvas.SetFontColor(ColorOf('g'));
  canvas.TextRect({1, 1, 4, 3}, 0, 0, kOrder);
  EXPECT_EQ(TextOf(image.copy(0, 0, 5, 4)), ".....\n.ggg.\n.ggg.\n.....\n");
  EXPECT_EQ(Inked(image, QRect(1, 1, 3, 2)), std::pair(true, false));
}

TEST_F(QtCanvasTest, TextIsReadByTheLibrarysTableInTheCanvassFont) {
  const char bytes[] = "\xA1\x45\xA1\x5A\xF9\xD6\xF9\xFA";  // other tables differ here
  const QString text = QString::fromUtf16(u"\u2027\u2574\u7881\u256D");
  QImage ours = QtPaper(99, 30);
  QImage direct = QtPaper(99, 30);
  QtCanvas canvas(ours);
  canvas.SetBrushStyle(bsClear);
  canvas.TextRect({0, 0, 99, 30}, 3, 4, bytes);
  QPainter painter(&direct);
  painter.drawText(3, 4 + painter.fontMetrics().ascent(), text);
  EXPECT_EQ(ours, direct);
  EXPECT_EQ(canvas.TextWidth(bytes), painter.fontMetrics().horizontalAdvance(text));
  EXPECT_EQ(canvas.TextHeight(""), painter.fontMetrics().height());
  QFont large = canvas.GetFont();
  large.setPixelSize(3 * canvas.TextHeight(""));
  canvas.SetFont(large);
  EXPECT_EQ(canvas.TextHeight(""), QFontMetrics(large).height());
}

TEST_F(QtCanvasTest, PointsAreThoseOfTheSurface) {
  QImage page = QtPaper(8, 8);
  page.setDotsPerMeterX(10000);
  page.setDotsPerMeterY(10000);
  QtCanvas canvas(page);
  const Integer before = canvas.TextHeight("");
  EXPECT_GT(before, QFontMetrics(QFont()).height());
  canvas.SetFont(QFont());
  EXPECT_EQ(canvas.TextHeight(""), before);
}

TEST(QtCanvas, TheBoundsOfAWindowAreLogical) {
  class Window : public QRasterWindow {
   public:
    TRect bounds;

   private:
    struct Canvas : QtCanvas {
      using QtCanvas::GetBounds;
      using QtCanvas::QtCanvas;
    };
    void paintEvent(QPaintEvent*) override { bounds = Canvas(*this).GetBounds(); }
  };
  qputenv("QT_SCALE_FACTOR", "2");
  const Application application;
  qunsetenv("QT_SCALE_FACTOR");
  Window window;
  window.resize(100, 50);
  window.show();
  QCoreApplication::processEvents();
  EXPECT_EQ(window.bounds, (TRect{0, 0, 100, 50}));
}

TEST(QtCanvas, TextWithoutAnApplicationObjectIsAnError) {
  QImage image = QtPaper(8, 8);
  QtCanvas canvas(image);
  canvas.LineTo(8, 8);  // needs none
  EXPECT_EQ(MessageOf([&] { canvas.TextWidth("a"); }), "No application object");
  EXPECT_EQ(MessageOf([&] { canvas.TextRect({0, 0, 8, 8}, 0, 0, "a"); }), "No application object");
}

}  // namespace qxTools::test
