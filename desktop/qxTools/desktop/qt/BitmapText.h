// Text on the library's own bitmaps, in the application's font.
#pragma once

#include <qxTools/painting/TextPainter.h>

namespace qxTools::desktop {

class BitmapText final : public TextPainter {
 public:
  TPoint Measure(std::string_view text) override;
  void Paint(TBitmap& bitmap, const TRect& clip, const TPoint& at, std::string_view text,
             TColor color) override;
};

}  // namespace qxTools::desktop
