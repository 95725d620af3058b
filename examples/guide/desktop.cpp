// The library's drawing on a picture of Qt, as a widget would do it in its paintEvent.
#include <qxTools/desktop/Desktop.h>
#include <qxTools/desktop/qt/QtCanvas.h>
#include <qxTools/graphics/qxDrawTools.h>

#include <QtGui/QImage>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <iostream>

using namespace qxTools;
using namespace qxTools::qxDrawTools;

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const desktop::Desktop desktop;  // plugs in fonts, palette, screen and dialogs

  QImage picture(120, 40, QImage::Format_RGB32);
  picture.fill(Qt::white);
  {
    desktop::QtCanvas canvas(picture);
    const TRect button{0, 0, 119, 39};
    DrawButton(canvas, button, true);
    DrawText(canvas, button, "\xBDT\xA9w", aeAllCenter);  // 確定
  }                                                       // the canvas paints until its end

  const QColor face = application.palette().color(QPalette::Button);
  std::cout << "face in the palette's colour: " << (picture.pixelColor(5, 5) == face) << "\n";
  std::cout << "screen known: " << (GetScreenSize().X > 0) << "\n";
}
