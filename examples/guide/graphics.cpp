// A button and a triangle on a bitmap, shown as characters; colours.
#include <qxTools/graphics/QXColorMode.h>
#include <qxTools/graphics/QXHTML.h>
#include <qxTools/graphics/qxDrawTools.h>

#include <iostream>

using namespace qxTools;
using namespace qxTools::qxDrawTools;

namespace {

char ShadeOf(TColor color) {
  switch (color) {
    case 0xFFFFFF:
      return '+';  // highlight
    case 0x808080:
      return '#';  // shadow
    case 0xC0C0C0:
      return '.';  // face
    default:
      return '@';
  }
}

}  // namespace

int main() {
  TBitmap picture(24, 9);
  TCanvas& canvas = picture.GetCanvas();
  DrawButton(canvas, {0, 0, 23, 8}, false);
  Draw3Angle(canvas, {7, 2, 15, 6}, daBottom, 0);
  for (Integer y = 0; y < picture.GetHeight(); ++y) {
    for (Integer x = 0; x < picture.GetWidth(); ++x) std::cout << ShadeOf(picture.GetPixel(x, y));
    std::cout << "\n";
  }

  std::cout << RectToStr(ResizeRect({10, 10, 20, 20}, 2, roOut)) << "\n";

  // A packed colour holds red in its low byte; the models take channels of any scale.
  const TColor orange = QXColorMode::RGB(255, 128, 0);
  const QXColorMode::THSVMode hsv = QXColorMode::HSV(orange);
  std::cout << std::hex << orange << std::dec << ", hue " << static_cast<int>(hsv.H) << ", "
            << QXHTML::HTMLColor(QXHTML::HTMLRGB(255, 128, 0), "text") << "\n";
}
