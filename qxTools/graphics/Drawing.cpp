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

void CreateBrushPattern(TColor Color, TBitmap& Bitmap) {
  constexpr Integer kSide = 8;
  Bitmap.SetSize(kSide, kSide);
  Fill(Bitmap.GetCanvas(), {0, 0, kSide, kSide}, Color);
  for (Integer y = 0; y < kSide; ++y)
    for (Integer x = y % 2; x < kSide; x += 2) Bitmap.SetPixel(x, y, kWhite);
}

void DrawButton(TCanvas& Canvas, const TRect& Rect, bool Double) {
  Fill(Canvas, Rect, clBtnFace);
  if (!Double) return DrawRing(Canvas, Rect, clBtnHighlight, clBtnShadow);
  DrawRing(Canvas, Rect, clBtnFace, kDarkGrey);
  DrawRing(Canvas, ResizeRect(Rect, 1, roIn), clBtnHighlight, clBtnShadow);
}

void DrawBox(TCanvas& Canvas, const TRect& Rect, bool Double) {
  DrawRing(Canvas, Rect, clBtnShadow, clBtnHighlight);
  if (Double) DrawRing(Canvas, ResizeRect(Rect, 1, roIn), kDarkGrey, clBtnFace);
}

void DrawFrame(TCanvas& Canvas, const TRect& Rect, bool Double, TColor Color) {
  Fill(Canvas, Rect, Color);
  DrawBox(Canvas, Rect, Double);
}

void Draw3Angle(TCanvas& Canvas, const TRect& Rect, TDrawAngleType Direction, TColor Color) {
  const Integer midX = Middle(Rect.Left, Rect.Right);
  const Integer midY = Middle(Rect.Top, Rect.Bottom);
  const TPoint leftTop{Rect.Left, Rect.Top}, rightTop{Rect.Right, Rect.Top};
  const TPoint leftBottom{Rect.Left, Rect.Bottom}, rightBottom{Rect.Right, Rect.Bottom};
  const TPoint corners[][3] = {
      {{Rect.Left, midY}, rightTop, rightBottom},
      {{midX, Rect.Top}, rightBottom, leftBottom},
      {{Rect.Right, midY}, leftBottom, leftTop},
      {{midX, Rect.Bottom}, leftTop, rightTop},
  };
  if (Direction >= std::size(corners)) return;
  Canvas.SetBrushColor(Color);
  Canvas.SetPenColor(Color);
  Canvas.Polygon(corners[Direction]);
}

void DrawText(TCanvas& Canvas, const TRect& Rect, std::string_view Text, TAlignmentEx Alignment) {
  const bool known = Alignment <= aeRightBottom;
  const int column = known ? Alignment / 3 : 0;
  const int row = known ? Alignment % 3 : 0;
  const Integer x = Placed(column, Rect.Left, Rect.Right, Canvas.TextWidth(Text));
  const Integer y = Placed(row, Rect.Top, Rect.Bottom, Canvas.TextHeight(Text));
  const TBrushStyle before = Canvas.GetBrushStyle();
  Canvas.SetBrushStyle(bsClear);
  Canvas.TextRect(Rect, x, y, Text);
  Canvas.SetBrushStyle(before);
}

void DrawTabset(TCanvas& Canvas, const TRect& Rect, TColor Color, TColor TextColor, std::string_view Caption,
                bool Plain) {
  constexpr Integer kSlant = 6;
  const Integer height = WrapSubtract(Rect.Bottom, Rect.Top);
  const Integer inRight = WrapSubtract(Rect.Right, kSlant);
  const TPoint leftTop{Rect.Left, Rect.Top}, rightTop{Rect.Right, Rect.Top};
  const TPoint leftBottom{WrapAdd(Rect.Left, kSlant), Rect.Bottom};
  const TPoint plain[] = {leftTop, rightTop, {inRight, Rect.Bottom}, leftBottom};
  const TPoint notched[] = {leftTop,
                            rightTop,
                            {inRight, WrapAdd(Rect.Top, height / 3)},
                            {Rect.Right, Middle(Rect.Top, Rect.Bottom)},
                            {inRight, WrapSubtract(Rect.Bottom, height / 3)},
                            {Rect.Right, Rect.Bottom},
                            leftBottom};
  Canvas.SetBrushColor(Color);
  Canvas.SetPenColor(kBlack);
  Canvas.SetFontColor(TextColor);
  if (Plain)
    Canvas.Polygon(plain);
  else
    Canvas.Polygon(notched);
  const TRect cell{WrapAdd(Rect.Left, 7), WrapAdd(Rect.Top, 1), WrapSubtract(Rect.Right, 7),
                   WrapSubtract(Rect.Bottom, 1)};
  Canvas.TextRect(cell, cell.Left, WrapAdd(Rect.Top, 2), Caption);
}

}  // namespace qxTools::qxDrawTools
