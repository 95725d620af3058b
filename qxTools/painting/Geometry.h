/// @file
/// Points and rectangles, in pixels.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

/// A point.
struct TPoint {
  Integer X = 0;  ///< Pixels from the left.
  Integer Y = 0;  ///< Pixels from the top.

  /// Returns whether two points are equal.
  friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// A point in one 32-bit word, as Windows packs it.
struct TSmallPoint {
  std::int16_t X = 0;  ///< Pixels from the left.
  std::int16_t Y = 0;  ///< Pixels from the top.
};

/// A rectangle. Whether the column Right and the row Bottom are part of it depends on the function that uses
/// it.
struct TRect {
  Integer Left = 0;    ///< The first column.
  Integer Top = 0;     ///< The first row.
  Integer Right = 0;   ///< The last column, or the one after it.
  Integer Bottom = 0;  ///< The last row, or the one below it.

  /// Returns whether two rectangles are equal.
  friend bool operator==(const TRect&, const TRect&) = default;
};

}  // namespace qxTools
