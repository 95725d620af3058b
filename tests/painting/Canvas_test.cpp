#include <qxTools/painting/SystemColors.h>
#include <qxTools/painting/TextPainter.h>

#include "support/BoxText.h"
#include "support/Picture.h"
#include "support/Testing.h"

namespace qxTools::test {

namespace {

constexpr Integer kLowest = std::numeric_limits<Integer>::min();
constexpr Integer kHighest = std::numeric_limits<Integer>::max();

/// Marks a line by its definition, pixel by pixel.
void MarkLine(TBitmap& bitmap, TPoint from, TPoint to, char letter) {
  const Integer steps = std::max(std::abs(to.X - from.X), std::abs(to.Y - from.Y));
  // steps * coordinate, rounded: ties down.
  const auto nearest = [steps](Integer scaled) {
    return (2 * scaled + steps - 1 + 200 * steps) / (2 * steps) - 100;
  };
  for (Integer i = 0; i < steps; ++i)
    bitmap.SetPixel(nearest(from.X * steps + i * (to.X - from.X)),
                    nearest(from.Y * steps + i * (to.Y - from.Y)), ColorOf(letter));
}

/// Whether a pixel lies inside by the number of edges left of it or on it.
bool Inside(const std::vector<TPoint>& points, Integer x, Integer y) {
  bool inside = false;
  for (std::size_t i = 0; i < points.size(); ++i) {
    TPoint upper = points[i];
    TPoint lower = points[(i + 1) % points.size()];
    if (upper.Y > lower.Y) std::swap(upper, lower);
    if (y < upper.Y || y >= lower.Y) continue;
    if ((x - upper.X) * (lower.Y - upper.Y) >= (y - upper.Y) * (lower.X - upper.X)) inside = !inside;
  }
  return inside;
}

}  // namespace

TEST(Canvas, LinesAndPolygonsAreThoseOfTheirDefinition) {
  std::mt19937 random;
  const auto draw = [&random] { return static_cast<Integer>(random() % 40) - 12; };
  for (int round = 0; round < 3000; ++round) {
    std::vector<TPoint> points(random() % 7);
    for (TPoint& point : points) point = {draw(), draw()};
    Paper drawn(16, 16), marked(16, 16);
    drawn.GetCanvas().SetBrushColor(ColorOf('r'));
    drawn.GetCanvas().SetPenColor(ColorOf('k'));
    drawn.GetCanvas().Polygon(points);
    for (Integer y = 0; y < 16; ++y)
      for (Integer x = 0; x < 16; ++x)
        if (Inside(points, x, y)) marked.SetPixel(x, y, ColorOf('r'));
    for (std::size_t i = 0; i < points.size(); ++i)
      MarkLine(marked, points[i], points[(i + 1) % points.size()], 'k');
    ASSERT_EQ(TextOf(drawn), TextOf(marked)) << "round " << round;
  }
}

TEST(Canvas, TheWholeRangeOfCoordinatesIsExact) {
  Paper paper(4, 5);
  TCanvas& canvas = paper.GetCanvas();
  canvas.MoveTo(kLowest, 0);
  canvas.LineTo(kHighest, 7);  // at 0 a little more than half the way
  canvas.MoveTo(kLowest, kHighest);
  canvas.SetPenColor(ColorOf('r'));
  canvas.LineTo(kHighest, kLowest);  // x + y = -1
  canvas.MoveTo(kHighest - 1, kLowest);
  canvas.LineTo(kLowest + 1, kHighest);  // x + y = -2
  EXPECT_EQ(TextOf(paper), "....\n....\n....\n....\nkkkk\n");
  const TPoint triangle[] = {{kLowest, kLowest}, {kHighest, kLowest}, {kHighest, kHighest}};
  canvas.SetBrushColor(ColorOf('g'));
  canvas.SetPenColor(ColorOf('s'));
  canvas.Polygon(triangle);
  EXPECT_EQ(TextOf(paper), "sggg\n.sgg\n..sg\n...s\nkkkk\n");
  canvas.FillRect({kLowest, kLowest, kHighest, kHighest});
  EXPECT_EQ(TextOf(paper), "gggg\ngggg\ngggg\ngggg\ngggg\n");
  TBitmap source;
  Paint(source, "123456\n");
  canvas.CopyRect({kLowest, 0, kHighest, 1}, source);  // 0 is exactly the middle
  canvas.CopyRect({3, 1, 4, 2}, source, {kLowest + 2, 0, kHighest, 1});
  EXPECT_EQ(TextOf(paper).substr(0, 10), "4444\nggg1\n");
}

TEST(Canvas, FillsWithoutTheRightAndBottomEdges) {
  Paper paper(5, 4);
  TCanvas& canvas = paper.GetCanvas();
  canvas.SetBrushColor(ColorOf('r'));
  for (const TRect& rect : {TRect{1, 1, 4, 3}, TRect{4, 0, 1, 4}, TRect{0, 2, 5, 2}}) canvas.FillRect(rect);
  canvas.SetBrushColor(ColorOf('g'));
  canvas.SetBrushStyle(bsClear);
  canvas.FillRect({0, 0, 5, 4});
  canvas.Polygon(std::array{TPoint{1, 0}, TPoint{4, 0}, TPoint{4, 3}});
  EXPECT_EQ(TextOf(paper), ".kkkk\n.rkrk\n.rrkk\n....k\n");
  canvas.SetBrushColor(clBtnShadow);
  EXPECT_EQ(canvas.GetBrushStyle(), bsSolid);
  canvas.FillRect({0, 0, 1, 1});
  EXPECT_EQ(paper.GetPixel(0, 0), 0x808080U);
  // clang-format off
  Rows<TColor>(ColorToRGB)
      (0x8000000F, 0xC0C0C0)(0x80000010, 0x808080)(0x80000014, 0xFFFFFF)(0x8000001E, 0)(0x8000001F, 0)
      (0x7F123456, 0x123456);
  // clang-format on
}

TEST(Canvas, CopiesStretchMirrorAndClip) {
  // All of "123" and parts of it, into columns of one row.
  const auto copied = [](const std::array<Integer, 4>& sides) {
    TBitmap source;
    Paint(source, "123\n");
    Paper paper(9, 1);
    paper.GetCanvas().CopyRect({sides[0], 0, sides[1], 1}, source, {sides[2], 0, sides[3], 1});
    return TextOf(paper);
  };
  // clang-format off
  Rows<std::array<Integer, 4>, std::string>(copied)
      ({1, 4, 0, 3}, ".123.....\n")({1, 7, 0, 3}, ".112233..\n")({1, 6, 0, 3}, ".11233...\n")
      ({1, 3, 0, 3}, ".13......\n")({1, 2, 0, 3}, ".2.......\n")({4, 1, 0, 3}, ".321.....\n")
      ({7, 1, 1, 3}, ".333222..\n")({-1, 5, 0, 3}, "12233....\n")({7, 13, 0, 3}, ".......11\n")
      ({1, 6, -1, 4}, "..123....\n")({1, 4, 3, 0}, ".........\n")({1, 4, 1, 1}, ".........\n")
      ({1, 1, 0, 3}, ".........\n")({20, 23, 0, 3}, ".........\n");
  // clang-format on
  TBitmap self;
  Paint(self, "12\n34\n");
  self.GetCanvas().CopyRect({0, 0, 2, 2}, self);
  self.GetCanvas().CopyRect({0, 2, 2, 0}, self);
  EXPECT_EQ(TextOf(self), "34\n12\n");
}

TEST(Canvas, TextIsThePainters) {
  Paper paper(7, 4);
  TCanvas& canvas = paper.GetCanvas();
  EXPECT_EQ((TPoint{canvas.TextWidth("ab"), canvas.TextHeight("ab")}), TPoint());
  canvas.SetBrushColor(ColorOf('g'));
  canvas.TextRect({5, 0, 7, 1}, 5, 0, "ab");  // fills, and draws no glyph
  const BoxText painter;
  EXPECT_EQ((TPoint{canvas.TextWidth("ab"), canvas.TextHeight("ab")}), (TPoint{6, 2}));
  canvas.SetFontColor(ColorOf('r'));
  canvas.TextRect({1, 2, 6, 4}, 0, 1, "ab");
  canvas.TextRect({6, 4, 1, 2}, 1, 2, "ab");  // inverted: all of it is clipped
  EXPECT_EQ(TextOf(paper), ".....gg\n.......\n.rgrrg.\n.ggggg.\n");
}

}  // namespace qxTools::test
