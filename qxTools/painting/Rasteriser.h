// Lines, polygons and stretched copies as pixels. All of it is exact for all 32-bit coordinates, and what
// lies outside the clip takes no time.
#pragma once

#include <qxTools/painting/Geometry.h>

#include <span>
#include <vector>

namespace qxTools {

/// Adds the pixels in `clip` of the line from `from` up to, but without, `to`: rectangles one pixel wide.
void AddLine(const TPoint& from, const TPoint& to, const TRect& clip, std::vector<TRect>& rects);

/// Adds the pixels in `clip` that lie inside the polygon: rectangles one pixel high.
void AddPolygonSpans(std::span<const TPoint> points, const TRect& clip, std::vector<TRect>& rects);

/// Returns the part that both rectangles cover; empty or inverted if there is none.
TRect Intersection(const TRect& a, const TRect& b);

/// Returns whether the rectangle has no pixels.
inline bool IsEmpty(const TRect& rect) { return rect.Left >= rect.Right || rect.Top >= rect.Bottom; }

/// The numbers from `low` up to, but without, `high`.
struct Range {
  Integer low;
  Integer high;
};

/// One axis of a copy: the pixels from `first` on are copies of the source pixels `sources`.
struct CopyAxis {
  Integer first = 0;
  std::vector<Integer> sources;
};

/// Returns the pixels of `dest` (mirrored if it is reversed) within `clip`, and which pixel of `part` each
/// one copies. The source has the pixels 0 to size - 1; pixels that would copy one outside it are left out.
CopyAxis MapCopy(const Range& dest, const Range& clip, const Range& part, Integer size);

}  // namespace qxTools
