#include <qxTools/base/Exceptions.h>
#include <qxTools/graphics/Wrapping.h>
#include <qxTools/graphics/qxDrawTools.h>

#include <algorithm>
#include <limits>

namespace qxTools::qxDrawTools {

namespace {

/// How often X or Y is added to each side.
struct Crop {
  Integer left;
  Integer top;
  Integer right;
  Integer bottom;
};

// clang-format off
constexpr Crop kCrops[] = {
  // Left Top Right Bottom
  {1, 1,  0,  0},  // aeLeftTop
  {1, 1,  0,  1},  // aeLeftCenter
  {1, 0,  0, -1},  // aeLeftBottom
  {1, 1,  1,  0},  // aeTopCenter
  {1, 1,  1,  1},  // aeAllCenter
  {1, 0,  1, -1},  // aeBottomCenter
  {0, 1, -1,  0},  // aeRightTop
  {0, 0, -1,  1},  // aeRightCenter; on purpose Top stays
  {0, 0, -1, -1},  // aeRightBottom
};
// clang-format on
static_assert(std::size(kCrops) == aeRightBottom + 1, "one row per TAlignmentEx member");

Integer Moved(Integer side, Integer times, Integer distance) {
  return WrapAdd(side, WrapMultiply(times, distance));
}

Integer KeepOnScreen(Integer place, Integer size, Integer screenSize) {
  const Integer kept = std::max(place, 0);
  return screenSize < WrapAdd(kept, size) ? WrapSubtract(screenSize, size) : kept;
}

void CheckDivision(Integer dividend, Integer divisor) {
  if (dividend == std::numeric_limits<Integer>::min() && divisor == -1) throw EIntOverflow();
}

}  // namespace

bool PosInRect(const TPoint& Pos, const TRect& Rect) {
  return Rect.Left <= Pos.X && Pos.X <= Rect.Right && Rect.Top <= Pos.Y && Pos.Y <= Rect.Bottom;
}

bool PosInRect(const TSmallPoint& Pos, const TRect& Rect) { return PosInRect(TPoint{Pos.X, Pos.Y}, Rect); }

TRect ResizeRect(const TRect& Rect, Integer Size, TResizeRectOption Option) {
  if (Option != roIn && Option != roOut) return Rect;
  const Integer inwards = Option == roIn ? Size : WrapSubtract(0, Size);
  return {WrapAdd(Rect.Left, inwards), WrapAdd(Rect.Top, inwards), WrapSubtract(Rect.Right, inwards),
          WrapSubtract(Rect.Bottom, inwards)};
}

TRect OffsetRect(const TRect& Rect, Integer Dx, Integer Dy) {
  return {WrapAdd(Rect.Left, Dx), WrapAdd(Rect.Top, Dy), WrapAdd(Rect.Right, Dx), WrapAdd(Rect.Bottom, Dy)};
}

TRect RectAdd(const TRect& A, const TRect& B) {
  return {std::min(A.Left, B.Left), std::min(A.Top, B.Top), std::max(A.Right, B.Right),
          std::max(A.Bottom, B.Bottom)};
}

std::string RectToStr(const TRect& Rect) {
  return "Left:" + std::to_string(Rect.Left) + ", Top:" + std::to_string(Rect.Top) +
         ", Right:" + std::to_string(Rect.Right) + ", Bottom:" + std::to_string(Rect.Bottom);
}

TPoint GetControlPos(WindowHandle Handle) {
  TRect window;
  if (!GetWindowRect(Handle, window)) return {};
  return {window.Left, window.Bottom};
}

TRect CropRect(const TRect& Rect, TAlignmentEx Alignment, Integer X, Integer Y) {
  if (Alignment >= std::size(kCrops)) return Rect;
  const Crop& crop = kCrops[Alignment];
  return {Moved(Rect.Left, crop.left, X), Moved(Rect.Top, crop.top, Y), Moved(Rect.Right, crop.right, X),
          Moved(Rect.Bottom, crop.bottom, Y)};
}

TPoint AdjustPos(const TPoint& Pos, Integer Width, Integer Height) {
  const TPoint screen = GetScreenSize();
  return {KeepOnScreen(Pos.X, Width, screen.X), KeepOnScreen(Pos.Y, Height, screen.Y)};
}

bool BetWeen(Integer Value, Integer Bound1, Integer Bound2) {
  return std::min(Bound1, Bound2) <= Value && Value <= std::max(Bound1, Bound2);
}

Integer CutMod(Integer Value, Integer Step) {
  if (Value == 0 || Step == 0) return 0;
  CheckDivision(Value, Step);
  return Value - Value % Step;
}

Integer InPage(Integer Count, Integer Size) {
  if (Count == 0 || Size == 0) return 0;
  CheckDivision(Count, Size);
  return Count / Size + (Count % Size >= 1 ? 1 : 0);
}

}  // namespace qxTools::qxDrawTools
