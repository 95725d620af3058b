#include <qxTools/painting/Bitmap.h>
#include <qxTools/painting/Canvas.h>
#include <qxTools/painting/Rasteriser.h>
#include <qxTools/painting/SystemColors.h>

namespace qxTools {

namespace {

bool Contains(const TRect& outer, const TRect& inner) { return Intersection(outer, inner) == inner; }

/// Whether `dest` takes the whole bitmap pixel by pixel.
bool IsPlain(const TRect& dest, const TBitmap& source, const TRect& part) {
  return part == TRect{0, 0, source.GetWidth(), source.GetHeight()} &&
         std::int64_t{dest.Right} - dest.Left == part.Right &&
         std::int64_t{dest.Bottom} - dest.Top == part.Bottom;
}

}  // namespace

TCanvas::TCanvas() = default;
TCanvas::~TCanvas() = default;

void TCanvas::SetBrushColor(TColor color) {
  brushColor_ = color;
  brushStyle_ = bsSolid;
}

void TCanvas::LineTo(Integer x, Integer y) {
  rects_.clear();
  AddLine(position_, {x, y}, GetBounds(), rects_);
  Paint(rects_, penColor_);
  position_ = {x, y};
}

void TCanvas::FillRect(const TRect& rect) {
  const TRect seen = Intersection(rect, GetBounds());
  if (brushStyle_ == bsClear || IsEmpty(seen)) return;
  PaintRects({&seen, 1}, ColorToRGB(brushColor_));
}

void TCanvas::Polygon(std::span<const TPoint> points) {
  const TRect bounds = GetBounds();
  rects_.clear();
  if (brushStyle_ != bsClear) AddPolygonSpans(points, bounds, rects_);
  const std::size_t inside = rects_.size();
  for (std::size_t i = 0; i < points.size(); ++i)
    AddLine(points[i], points[(i + 1) % points.size()], bounds, rects_);
  Paint(std::span(rects_).first(inside), brushColor_);
  Paint(std::span(rects_).subspan(inside), penColor_);
}

void TCanvas::Paint(std::span<const TRect> rects, TColor color) {
  if (!rects.empty()) PaintRects(rects, ColorToRGB(color));
}

void TCanvas::CopyRect(const TRect& dest, const TBitmap& source) {
  CopyRect(dest, source, {0, 0, source.GetWidth(), source.GetHeight()});
}

void TCanvas::CopyRect(const TRect& dest, const TBitmap& source, const TRect& part) {
  const TRect bounds = GetBounds();
  if (source.Empty()) return;
  if (IsPlain(dest, source, part) && Contains(bounds, dest)) return PaintBitmap(dest.Left, dest.Top, source);
  const CopyAxis x = MapCopy({dest.Left, dest.Right}, {bounds.Left, bounds.Right}, {part.Left, part.Right},
                             source.GetWidth());
  const CopyAxis y = MapCopy({dest.Top, dest.Bottom}, {bounds.Top, bounds.Bottom}, {part.Top, part.Bottom},
                             source.GetHeight());
  if (x.sources.empty() || y.sources.empty()) return;
  TBitmap block(static_cast<Integer>(x.sources.size()), static_cast<Integer>(y.sources.size()));
  for (std::size_t row = 0; row < y.sources.size(); ++row) {
    const std::uint32_t* const from = source.GetRow(y.sources[row]);
    std::uint32_t* to = block.GetRow(static_cast<Integer>(row));
    for (const Integer column : x.sources) *to++ = from[column];
  }
  PaintBitmap(x.first, y.first, block);
}

void TCanvas::TextRect(const TRect& rect, Integer x, Integer y, std::string_view text) {
  FillRect(rect);
  const TRect seen = Intersection(rect, GetBounds());
  if (!IsEmpty(seen)) PaintText(seen, {x, y}, text, ColorToRGB(fontColor_));
}

}  // namespace qxTools
