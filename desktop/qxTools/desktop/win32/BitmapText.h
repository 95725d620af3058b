// Text on the library's own bitmaps, in the font of message boxes.
#pragma once

#include <qxTools/desktop/win32/Glyphs.h>
#include <qxTools/painting/TextPainter.h>

namespace qxTools::desktop {

class BitmapText final : public TextPainter {
 public:
  TPoint Measure(std::string_view text) override;
  void Paint(TBitmap& bitmap, const TRect& clip, const TPoint& at, std::string_view text,
             TColor color) override;

 private:
  const MemoryContext context_;
};

}  // namespace qxTools::desktop
