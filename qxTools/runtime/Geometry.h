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

struct TRect {
  Integer Left = 0;
  Integer Top = 0;
  Integer Right = 0;
  Integer Bottom = 0;

  friend bool operator==(const TRect&, const TRect&) = default;
};

}  // namespace qxTools
