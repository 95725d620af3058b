// Needs a Chinese font, as the package fonts-wqy-microhei has, and Qt's offscreen platform.
#include <qxTools/desktop/Desktop.h>
#include <qxTools/graphics/qxDrawTools.h>

#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

#include "desktop/Application.h"
#include "desktop/Checks.h"

namespace qxTools::test {

namespace {

using desktop::Desktop;

class DesktopTest : public WithApplication {};

}  // namespace

TEST_F(DesktopTest, TextOnBitmapsIsPaintedInsideTheClip) {
  const Desktop desktop;
  ExpectTextInsideTheClip();
}

TEST_F(DesktopTest, SystemColorsFollowThePalette) {
  QPalette palette;
  palette.setColor(QPalette::Button, QColor(1, 2, 3));
  QApplication::setPalette(palette);
  {
    const Desktop desktop;
    EXPECT_EQ(ColorToRGB(clBtnFace), 0x030201U);
    palette.setColor(QPalette::Button, QColor(4, 5, 6));
    palette.setColor(QPalette::Dark, QColor(7, 8, 9));
    palette.setColor(QPalette::Light, QColor(10, 11, 12));
    QApplication::setPalette(palette);
    QApplication::processEvents();
    EXPECT_EQ(ColorToRGB(clBtnFace), 0x060504U);
    EXPECT_EQ(ColorToRGB(clBtnShadow), 0x090807U);
    EXPECT_EQ(ColorToRGB(clBtnHighlight), 0x0C0B0AU);
  }
  ExpectNoDesktop();
}

TEST_F(DesktopTest, TheScreenAndItsWindowsAreKnown) {
  const Desktop desktop;
  const QSize screen = QGuiApplication::primaryScreen()->size();
  EXPECT_EQ(GetScreenSize(), (TPoint{screen.width(), screen.height()}));

  QWidget window;
  QWidget control(&window);
  window.setGeometry(40, 50, 200, 100);
  control.setGeometry(10, 20, 80, 25);
  window.show();
  TRect rect;
  ASSERT_TRUE(GetWindowRect(control.winId(), rect));
  EXPECT_EQ(rect, (TRect{50, 70, 130, 95}));
  EXPECT_EQ(qxDrawTools::GetControlPos(control.winId()), (TPoint{50, 95}));
  const QRect frame = window.frameGeometry();
  ASSERT_TRUE(GetWindowRect(window.winId(), rect));
  EXPECT_EQ(rect, (TRect{frame.left(), frame.top(), frame.right() + 1, frame.bottom() + 1}));
  EXPECT_FALSE(GetWindowRect(987654321, rect));
}

TEST(Desktop, NeedsAnApplicationObject) {
  EXPECT_EQ(MessageOf([] { Desktop desktop; }), "No application object");
  const Application<QGuiApplication> withoutWidgets;
  EXPECT_EQ(MessageOf([] { Desktop desktop; }), "No application object");
}

}  // namespace qxTools::test
