#include <qxTools/painting/Rasteriser.h>

#include <algorithm>
#include <cstdint>

namespace qxTools {

namespace {

/// floor((2 * k * factor + extra) / (2 * divisor)) for k = first, first + 1, ... without dividing again.
/// `first`, `factor` without its sign and `divisor` are distances, below 2^32: their products fit 64 bits.
class FloorDivisionStepper {
 public:
  FloorDivisionStepper(std::int64_t first, std::int64_t factor, std::int64_t extra, std::int64_t divisor)
      : divisor_(2 * divisor) {
    const std::int64_t sign = factor < 0 ? -1 : 1;
    const std::uint64_t product = Unsigned(first) * Unsigned(sign * factor);
    const std::int64_t left = extra + sign * 2 * static_cast<std::int64_t>(product % Unsigned(divisor));
    value_ = sign * static_cast<std::int64_t>(product / Unsigned(divisor)) + FloorDivide(left, divisor_);
    rest_ = left - FloorDivide(left, divisor_) * divisor_;
    step_ = FloorDivide(factor, divisor);
    restStep_ = 2 * (factor - step_ * divisor);
  }

  std::int64_t Value() const { return value_; }
  void Advance() {
    value_ += step_;
    rest_ += restStep_;
    if (rest_ < divisor_) return;
    rest_ -= divisor_;
    ++value_;
  }

 private:
  static std::uint64_t Unsigned(std::int64_t value) { return static_cast<std::uint64_t>(value); }
  static std::int64_t FloorDivide(std::int64_t dividend, std::int64_t divisor) {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
  }

  std::int64_t divisor_;
  std::int64_t value_;
  std::int64_t rest_;
  std::int64_t step_;
  std::int64_t restStep_;
};

/// A coordinate that goes `length` steps up or down from `from`.
struct Axis {
  Axis(Integer start, Integer end, Integer low, Integer high)
      : from(start), length(std::int64_t{end} - start), step(1), clipBegin(low - from), clipEnd(high - from) {
    if (length >= 0) return;
    length = -length;
    step = -1;
    clipBegin = from - high + 1;
    clipEnd = from - low + 1;
  }

  /// The coordinates from step `first` up to step `end`, in rising order.
  Range Covered(std::int64_t first, std::int64_t end) const {
    const std::int64_t low = step > 0 ? from + first : from - end + 1;
    return {static_cast<Integer>(low), static_cast<Integer>(low + end - first)};
  }

  std::int64_t from;
  std::int64_t length;
  int step;
  std::int64_t clipBegin;  // steps that lie in the clip: from this one
  std::int64_t clipEnd;    // up to, but without, this one
};

/// How far a line is along its short axis after i steps along its long one: i * short / long, rounded
/// to nearest, ties to the smaller coordinate.
class Slope {
 public:
  Slope(const Axis& along, const Axis& across)
      : along_(along.length), across_(across.length), bias_(along.length - (across.step > 0 ? 1 : 0)) {}

  std::int64_t OffsetAt(std::int64_t i) const {
    return FloorDivisionStepper(i, across_, bias_, along_).Value();
  }

  /// The first step that is `offset` across, and the steps after it. The line must not be parallel to its
  /// long axis.
  FloorDivisionStepper StepsFrom(std::int64_t offset) const {
    return FloorDivisionStepper(offset, along_, 2 * across_ - 1 - bias_, across_);
  }

  /// The first step that is `offset` across, or the end.
  std::int64_t FirstStepAt(std::int64_t offset) const {
    if (offset <= 0) return 0;
    return offset <= across_ ? std::min(StepsFrom(offset).Value(), along_) : along_;
  }

 private:
  std::int64_t along_;
  std::int64_t across_;
  std::int64_t bias_;
};

TRect RectOf(const Range& x, const Range& y) { return {x.low, y.low, x.high, y.high}; }

/// Adds the runs of pixels that share a place on the short axis.
void AddRuns(const Axis& along, const Axis& across, bool flat, std::vector<TRect>& rects) {
  const Slope slope(along, across);
  std::int64_t i = std::max({std::int64_t{0}, along.clipBegin, slope.FirstStepAt(across.clipBegin)});
  const std::int64_t end = std::min({along.length, along.clipEnd, slope.FirstStepAt(across.clipEnd)});
  if (i >= end) return;
  std::int64_t offset = slope.OffsetAt(i);
  const auto add = [&](std::int64_t runEnd) {
    const Range longSide = along.Covered(i, runEnd);
    const Range shortSide = across.Covered(offset, offset + 1);
    rects.push_back(flat ? RectOf(longSide, shortSide) : RectOf(shortSide, longSide));
  };
  if (across.length == 0) return add(end);
  for (FloorDivisionStepper next = slope.StepsFrom(offset + 1); i < end; next.Advance(), ++offset) {
    const std::int64_t runEnd = std::min(next.Value(), end);
    add(runEnd);
    i = runEnd;
  }
}

/// An edge of a polygon from the first row that is seen; rows end before `end`.
struct Edge {
  /// The first pixel of the row that is not left of the edge.
  std::int64_t Crossing() const { return left + crossing.Value(); }

  Integer row;
  Integer end;
  Integer left;
  FloorDivisionStepper crossing;
};

void AddEdge(TPoint upper, TPoint lower, const TRect& clip, std::vector<Edge>& edges) {
  if (upper.Y > lower.Y) std::swap(upper, lower);
  const Integer row = std::max(upper.Y, clip.Top);
  const Integer end = std::min(lower.Y, clip.Bottom);
  if (row >= end) return;
  const std::int64_t width = std::int64_t{lower.X} - upper.X;
  const std::int64_t height = std::int64_t{lower.Y} - upper.Y;
  edges.push_back(
      {row, end, upper.X, FloorDivisionStepper(std::int64_t{row} - upper.Y, width, 2 * height - 2, height)});
}

/// The edges that cross rows of the clip, by their first row.
std::vector<Edge> EdgesOf(std::span<const TPoint> points, const TRect& clip) {
  std::vector<Edge> edges;
  for (std::size_t i = 0; i < points.size(); ++i)
    AddEdge(points[i], points[(i + 1) % points.size()], clip, edges);
  std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.row < b.row; });
  return edges;
}

void AddSpans(const std::vector<Edge>& crossed, Integer row, const TRect& clip, std::vector<TRect>& rects) {
  for (std::size_t i = 0; i + 1 < crossed.size(); i += 2) {
    const std::int64_t left = std::max<std::int64_t>(crossed[i].Crossing(), clip.Left);
    const std::int64_t right = std::min<std::int64_t>(crossed[i + 1].Crossing(), clip.Right);
    if (left < right)
      rects.push_back({static_cast<Integer>(left), row, static_cast<Integer>(right), row + 1});
  }
}

}  // namespace

void AddLine(const TPoint& from, const TPoint& to, const TRect& clip, std::vector<TRect>& rects) {
  const Axis x(from.X, to.X, clip.Left, clip.Right);
  const Axis y(from.Y, to.Y, clip.Top, clip.Bottom);
  if (x.length >= y.length)
    AddRuns(x, y, true, rects);
  else
    AddRuns(y, x, false, rects);
}

void AddPolygonSpans(std::span<const TPoint> points, const TRect& clip, std::vector<TRect>& rects) {
  const std::vector<Edge> edges = EdgesOf(points, clip);
  if (edges.empty()) return;
  std::vector<Edge> crossed;
  auto next = edges.begin();
  for (Integer row = next->row; next != edges.end() || !crossed.empty(); ++row) {
    while (next != edges.end() && next->row == row) crossed.push_back(*next++);
    std::sort(crossed.begin(), crossed.end(),
              [](const Edge& a, const Edge& b) { return a.Crossing() < b.Crossing(); });
    AddSpans(crossed, row, clip, rects);
    std::erase_if(crossed, [row](const Edge& edge) { return edge.end == row + 1; });
    for (Edge& edge : crossed) edge.crossing.Advance();
  }
}

TRect Intersection(const TRect& a, const TRect& b) {
  return {std::max(a.Left, b.Left), std::max(a.Top, b.Top), std::min(a.Right, b.Right),
          std::min(a.Bottom, b.Bottom)};
}

CopyAxis MapCopy(const Range& dest, const Range& clip, const Range& part, Integer size) {
  const Integer low = std::min(dest.low, dest.high);
  const Integer high = std::max(dest.low, dest.high);
  const std::int64_t length = std::int64_t{high} - low;
  const std::int64_t taken = std::int64_t{part.high} - part.low;
  CopyAxis axis;
  if (taken <= 0) return axis;
  for (Integer pixel = std::max(low, clip.low); pixel < std::min(high, clip.high); ++pixel) {
    const std::int64_t i = dest.low > dest.high ? std::int64_t{high} - 1 - pixel : std::int64_t{pixel} - low;
    const std::int64_t source = part.low + FloorDivisionStepper(i, taken, taken - 1, length).Value();
    if (source < 0 || source >= size) continue;
    if (axis.sources.empty()) axis.first = pixel;
    axis.sources.push_back(static_cast<Integer>(source));
  }
  return axis;
}

}  // namespace qxTools
