#include <qxTools/graphics/Wrapping.h>
#include <qxTools/graphics/qxDrawTools.h>
#include <qxTools/painting/SystemColors.h>

namespace qxTools::qxDrawTools {

namespace {

constexpr TColor kBlack = 0;
constexpr TColor kWhite = 0xFFFFFF;
constexpr TColor kDarkGrey = 0x3F3F3F;

/// Both sides' middle, the half rounded towards zero.
Integer Middle(Integer low, Integer high) { return WrapAdd(low, WrapSubtract(high, low) / 2); }

void Fill(TCanvas& canvas, const TRect& rect, TColor color) {
  canvas.SetBrushColor(color);
  canvas.FillRect(rect);
}

/// A ring on the sides of a rectangle: left and top in one colour, right and bottom in another.
void DrawRing(TCanvas& canvas, const TRect& rect, TColor leftTop, TColor rightBottom) {
  canvas.SetPenColor(leftTop);
  canvas.MoveTo(rect.Left, rect.Bottom);
  canvas.LineTo(rect.Left, rect.Top);
  canvas.LineTo(rect.Right, rect.Top);
  canvas.SetPenColor(rightBottom);
  canvas.LineTo(rect.Right, rect.Bottom);
  canvas.LineTo(rect.Left, rect.Bottom);
}

/// Where a side of text starts: 0 at the low side of its room, 1 in the middle, 2 at the high side.
Integer Placed(int where, Integer low, Integer high, Integer size) {
  const Integer room = WrapSubtract(WrapSubtract(high, low), size);
  return where == 0 ? low : where == 1 ? WrapAdd(low, room / 2) : WrapSubtract(high, size);
}

}  // namespace

void CreateBrushPattern(TColor color, TBitmap& bitmap) {
  constexpr Integer kSide = 8;
  bitmap.SetSize(kSide, kSide);
  Fill(bitmap.GetCanvas(), {0, 0, kSide, kSide}, color);
  for (Integer y = 0; y < kSide; ++y)
    for (Integer x = y % 2; x < kSide; x += 2) bitmap.SetPixel(x, y, kWhite);
}

void DrawButton(TCanvas& canvas, const TRect& rect, bool isDouble) {
  Fill(canvas, rect, clBtnFace);
  if (!isDouble) return DrawRing(canvas, rect, clBtnHighlight, clBtnShadow);
  DrawRing(canvas, rect, clBtnFace, kDarkGrey);
  DrawRing(canvas, ResizeRect(rect, 1, roIn), clBtnHighlight, clBtnShadow);
}

void DrawBox(TCanvas& canvas, const TRect& rect, bool isDouble) {
  DrawRing(canvas, rect, clBtnShadow, clBtnHighlight);
  if (isDouble) DrawRing(canvas, ResizeRect(rect, 1, roIn), kDarkGrey, clBtnFace);
}

void DrawFrame(TCanvas& canvas, const TRect& rect, bool isDouble, TColor color) {
  Fill(canvas, rect, color);
  DrawBox(canvas, rect, isDouble);
}

void Draw3Angle(TCanvas& canvas, const TRect& rect, TDrawAngleType direction, TColor color) {
  const Integer midX = Middle(rect.Left, rect.Right);
  const Integer midY = Middle(rect.Top, rect.Bottom);
  const TPoint leftTop{rect.Left, rect.Top}, rightTop{rect.Right, rect.Top};
  const TPoint leftBottom{rect.Left, rect.Bottom}, rightBottom{rect.Right, rect.Bottom};
  const TPoint corners[][3] = {
      {{rect.Left, midY}, rightTop, rightBottom},
      {{midX, rect.Top}, rightBottom, leftBottom},
      {{rect.Right, midY}, leftBottom, leftTop},
      {{midX, rect.Bottom}, leftTop, rightTop},
  };
  if (direction >= std::size(corners)) return;
  canvas.SetBrushColor(color);
  canvas.SetPenColor(color);
  canvas.Polygon(corners[direction]);
}

void DrawText(TCanvas& canvas, const TRect& rect, std::string_view text, TAlignmentEx alignment) {
  const bool known = alignment <= aeRightBottom;
  const int column = known ? alignment / 3 : 0;
  const int row = known ? alignment % 3 : 0;
  const Integer x = Placed(column, rect.Left, rect.Right, canvas.TextWidth(text));
  const Integer y = Placed(row, rect.Top, rect.Bottom, canvas.TextHeight(text));
  const TBrushStyle before = canvas.GetBrushStyle();
  canvas.SetBrushStyle(bsClear);
  canvas.TextRect(rect, x, y, text);
  canvas.SetBrushStyle(before);
}

void DrawTabset(TCanvas& canvas, const TRect& rect, TColor color, TColor textColor, std::string_view caption,
                bool isPlain) {
  constexpr Integer kSlant = 6;
  const Integer height = WrapSubtract(rect.Bottom, rect.Top);
  const Integer inRight = WrapSubtract(rect.Right, kSlant);
  const TPoint leftTop{rect.Left, rect.Top}, rightTop{rect.Right, rect.Top};
  const TPoint leftBottom{WrapAdd(rect.Left, kSlant), rect.Bottom};
  const TPoint trapezium[] = {leftTop, rightTop, {inRight, rect.Bottom}, leftBottom};
  const TPoint notched[] = {leftTop,
                            rightTop,
                            {inRight, WrapAdd(rect.Top, height / 3)},
                            {rect.Right, Middle(rect.Top, rect.Bottom)},
                            {inRight, WrapSubtract(rect.Bottom, height / 3)},
                            {rect.Right, rect.Bottom},
                            leftBottom};
  canvas.SetBrushColor(color);
  canvas.SetPenColor(kBlack);
  canvas.SetFontColor(textColor);
  if (isPlain)
    canvas.Polygon(trapezium);
  else
    canvas.Polygon(notched);
  const TRect cell{WrapAdd(rect.Left, 7), WrapAdd(rect.Top, 1), WrapSubtract(rect.Right, 7),
                   WrapSubtract(rect.Bottom, 1)};
  canvas.TextRect(cell, cell.Left, WrapAdd(rect.Top, 2), caption);
}

}  // namespace qxTools::qxDrawTools
