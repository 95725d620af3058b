// Lines, polygons and stretched copies as pixels. All of it is exact for all 32-bit coordinates, and what
// lies outside the clip costs no time.
#pragma once

#include <qxTools/painting/Geometry.h>

#include <span>
#include <vector>

namespace qxTools {

/// Adds the pixels in `clip` of the line from `from` up to, but without, `to`: rectangles one pixel wide.
void AddLine(const TPoint& from, const TPoint& to, const TRect& clip, std::vector<TRect>& pieces);

/// Adds the pixels in `clip` that lie inside the polygon: rectangles one pixel high.
void AddInside(std::span<const TPoint> points, const TRect& clip, std::vector<TRect>& pieces);

/// What both rectangles have; empty or inverted when there is nothing.
TRect Intersection(const TRect& a, const TRect& b);

inline bool IsEmpty(const TRect& rect) { return rect.Left >= rect.Right || rect.Top >= rect.Bottom; }

/// From `low` up to, but without, `high`.
struct Span {
  Integer low;
  Integer high;
};

/// One axis of a copy: the pixels from `first` on take the source pixels `sources`.
struct CopyAxis {
  Integer first = 0;
  std::vector<Integer> sources;
};

/// The pixels of `dest` (reversed: mirrored) within `clip`, and what they take of `part` of a source with
/// pixels 0 to size - 1; those that would take one from outside are left out.
CopyAxis MapCopy(const Span& dest, const Span& clip, const Span& part, Integer size);

}  // namespace qxTools
