#pragma once

#include <qxTools/painting/Bitmap.h>
#include <qxTools/painting/TextPainter.h>

#include <stdexcept>

namespace qxTools::test {

/// Plugged in while it lives: each byte is a box of 2 x 2 pixels with a gap of 1 behind it.
class BoxText : public TextPainter {
 public:
  BoxText() { SetTextPainter(this); }
  ~BoxText() override { SetTextPainter(nullptr); }

  TPoint Measure(std::string_view text) override { return {3 * static_cast<Integer>(text.size()), 2}; }

  void Paint(TBitmap& bitmap, const TRect& clip, const TPoint& at, std::string_view text,
             TColor color) override {
    if (clip.Left >= clip.Right || clip.Top >= clip.Bottom) throw std::logic_error("the clip is empty");
    for (Integer y = clip.Top; y < clip.Bottom; ++y)
      for (Integer x = clip.Left; x < clip.Right; ++x) {
        const Integer column = x - at.X;
        const bool inText = column >= 0 && column < Measure(text).X && y >= at.Y && y < at.Y + 2;
        if (inText && column % 3 != 2) bitmap.SetPixel(x, y, color);
      }
  }
};

}  // namespace qxTools::test
