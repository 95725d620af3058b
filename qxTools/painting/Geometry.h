/// @file
/// Points and rectangles, in pixels.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

/// A place.
struct TPoint {
  Integer X = 0;  ///< from the left
  Integer Y = 0;  ///< from the top

  friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// A point as the system packs it into one 32-bit word.
struct TSmallPoint {
  std::int16_t X = 0;  ///< from the left
  std::int16_t Y = 0;  ///< from the top
};

/// Four sides. Whether Right and Bottom belong to it is up to who takes it.
struct TRect {
  Integer Left = 0;    ///< the first column
  Integer Top = 0;     ///< the first row
  Integer Right = 0;   ///< the last column, or the one behind it
  Integer Bottom = 0;  ///< the last row, or the one below it

  friend bool operator==(const TRect&, const TRect&) = default;
};

}  // namespace qxTools
