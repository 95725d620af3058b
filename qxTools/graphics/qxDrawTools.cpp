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

bool PosInRect(const TPoint& pos, const TRect& rect) {
  return rect.Left <= pos.X && pos.X <= rect.Right && rect.Top <= pos.Y && pos.Y <= rect.Bottom;
}

bool PosInRect(const TSmallPoint& pos, const TRect& rect) { return PosInRect(TPoint{pos.X, pos.Y}, rect); }

TRect ResizeRect(const TRect& rect, Integer size, TResizeRectOption option) {
  if (option != roIn && option != roOut) return rect;
  const Integer inwards = option == roIn ? size : WrapSubtract(0, size);
  return {WrapAdd(rect.Left, inwards), WrapAdd(rect.Top, inwards), WrapSubtract(rect.Right, inwards),
          WrapSubtract(rect.Bottom, inwards)};
}

TRect OffsetRect(const TRect& rect, Integer dx, Integer dy) {
  return {WrapAdd(rect.Left, dx), WrapAdd(rect.Top, dy), WrapAdd(rect.Right, dx), WrapAdd(rect.Bottom, dy)};
}

TRect RectAdd(const TRect& a, const TRect& b) {
  return {std::min(a.Left, b.Left), std::min(a.Top, b.Top), std::max(a.Right, b.Right),
          std::max(a.Bottom, b.Bottom)};
}

std::string RectToStr(const TRect& rect) {
  return "Left:" + std::to_string(rect.Left) + ", Top:" + std::to_string(rect.Top) +
         ", Right:" + std::to_string(rect.Right) + ", Bottom:" + std::to_string(rect.Bottom);
}

TPoint GetControlPos(WindowHandle handle) {
  TRect window;
  if (!GetWindowRect(handle, window)) return {};
  return {window.Left, window.Bottom};
}

TRect CropRect(const TRect& rect, TAlignmentEx alignment, Integer x, Integer y) {
  if (alignment >= std::size(kCrops)) return rect;
  const Crop& crop = kCrops[alignment];
  return {Moved(rect.Left, crop.left, x), Moved(rect.Top, crop.top, y), Moved(rect.Right, crop.right, x),
          Moved(rect.Bottom, crop.bottom, y)};
}

TPoint AdjustPos(const TPoint& pos, Integer width, Integer height) {
  const TPoint screen = GetScreenSize();
  return {KeepOnScreen(pos.X, width, screen.X), KeepOnScreen(pos.Y, height, screen.Y)};
}

bool BetWeen(Integer value, Integer bound1, Integer bound2) {
  return std::min(bound1, bound2) <= value && value <= std::max(bound1, bound2);
}

Integer CutMod(Integer value, Integer step) {
  if (value == 0 || step == 0) return 0;
  CheckDivision(value, step);
  return value - value % step;
}

Integer InPage(Integer count, Integer size) {
  if (count == 0 || size == 0) return 0;
  CheckDivision(count, size);
  return count / size + (count % size >= 1 ? 1 : 0);
}

}  // namespace qxTools::qxDrawTools
