#include "Skin.h"

namespace desk {

using namespace qxTools;
using namespace qxTools::qxDrawTools;

namespace {

constexpr TColor kMoulding[kBorder] = {0x5A2A10, 0xB07848, 0xD8A878, 0xE8C098, 0xD8A878, 0xC89060, 0xB87848,
                                       0xA86838, 0x985830, 0x884828, 0x783C20, 0x683018, 0x5A2A10, 0x404040};

/// An octagon around the middle of a corner.
void PaintStud(TCanvas& canvas, const TRect& corner) {
  const auto [left, top, right, bottom] = ResizeRect(corner, 3, roIn);
  const TPoint outline[] = {{left + 2, top},         {right - 3, top},        {right - 1, top + 2},
                            {right - 1, bottom - 3}, {right - 3, bottom - 1}, {left + 2, bottom - 1},
                            {left, bottom - 3},      {left, top + 2}};
  canvas.SetBrushColor(0x40C8F0);
  canvas.SetPenColor(0x205880);
  canvas.Polygon(outline);
  canvas.SetBrushColor(0xD0F4FF);
  canvas.FillRect({left + 2, top + 2, left + 4, top + 4});
}

}  // namespace

void PaintSkin(TFrameBitmaps& pieces) {
  // The frame of a square of three borders' side, cut in nine.
  constexpr Integer kSide = 3 * kBorder;
  TBitmap whole(kSide, kSide);
  TCanvas& canvas = whole.GetCanvas();
  for (Integer i = 0; i < kBorder; ++i) {
    canvas.SetBrushColor(kMoulding[i]);
    canvas.FillRect(ResizeRect({0, 0, kSide, kSide}, i, roIn));
  }
  for (Integer k = 0; k < 9; ++k) {
    const Integer x = k / 3 * kBorder;
    const Integer y = k % 3 * kBorder;
    const TRect part{x, y, x + kBorder, y + kBorder};
    if (k / 3 != 1 && k % 3 != 1) PaintStud(canvas, part);
    TBitmap& piece = pieces[static_cast<std::size_t>(k)];
    piece.SetSize(kBorder, kBorder);
    piece.GetCanvas().CopyRect({0, 0, kBorder, kBorder}, whole, part);
  }
}

}  // namespace desk
