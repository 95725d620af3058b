/// @file
/// Points and rectangles, in pixels.
#pragma once

#include <qxTools/runtime/Types.h>

namespace qxTools {

struct TPoint {
  Integer X = 0;
  Integer Y = 0;

  friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// A point as the system packs it into one 32-bit word.
struct TSmallPoint {
  std::int16_t X = 0;
  std::int16_t Y = 0;
};

struct TRect {
  Integer Left = 0;
  Integer Top = 0;
  Integer Right = 0;
  Integer Bottom = 0;

  friend bool operator==(const TRect&, const TRect&) = default;
};

}  // namespace qxTools
