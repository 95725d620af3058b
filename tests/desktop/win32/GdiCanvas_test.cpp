#include "desktop/win32/Surface.h"
// After windows.h, whose macros they must survive.
#include <qxTools/desktop/win32/GdiCanvas.h>

#include "support/RandomPicture.h"
#include "support/Testing.h"

namespace qxTools::test {

namespace {

using desktop::GdiCanvas;

constexpr Integer kSide = 64;
constexpr char kOrder[] = "\xAD\x71\xB3\xE6";  // 訂單

/// Draws on the library's own bitmap and on one of GDI. Returns how many pixels differ.
template <class Draw>
int DifferencesOf(Draw&& draw) {
  Paper own(kSide, kSide);
  const Surface surface(own);
  draw(own.GetCanvas());
  GdiCanvas canvas(surface.Context());
  draw(canvas);
  TBitmap painted;
  surface.CopyTo(painted);
  return Differences(own, painted);
}

TEST(GdiCanvas, PicturesAreThoseOfTheCore) {
  for (unsigned seed = 0; seed < 1000; ++seed)
    ASSERT_EQ(DifferencesOf([seed](TCanvas& canvas) { DrawAtRandom(canvas, seed); }), 0) << "seed " << seed;
}

TEST(GdiCanvas, EverySizeOfACopyIsThatOfTheCore) {
  TBitmap stamp;
  Paint(stamp, kStamp);
  for (Integer width = -30; width <= 30; ++width)
    for (Integer height = -4; height <= 4; ++height)
      ASSERT_EQ(DifferencesOf([&](TCanvas& canvas) {
                  canvas.CopyRect({32, 8, 32 + width, 8 + height}, stamp);
                  canvas.CopyRect({32, 30, 32 + width, 30 + height}, stamp, {1, 0, 3, 2});
                }),
                0)
          << width << " x " << height;
}

TEST(GdiCanvas, TheClippingRegionAndTheOriginAreThoseOfTheContext) {
  Paper own(kSide, kSide);
  const Surface surface(own);
  ::SetViewportOrgEx(surface.Context(), 10, 20, nullptr);
  ::IntersectClipRect(surface.Context(), 0, 0, 20, 20);
  {
    GdiCanvas canvas(surface.Context());
    canvas.SetBrushColor(ColorOf('r'));
    canvas.FillRect({-100, -100, 100, 100});
  }
  own.GetCanvas().SetBrushColor(ColorOf('r'));
  own.GetCanvas().FillRect({10, 20, 30, 40});
  TBitmap painted;
  surface.CopyTo(painted);
  EXPECT_EQ(TextOf(painted), TextOf(own));
}

TEST(GdiCanvas, GlyphsStayInTheClipAndTheContextStaysAsItWas) {
  const Paper own(kSide, kSide);
  const Surface surface(own);
  const COLORREF before = ::SetTextColor(surface.Context(), 0x123456);
  TBitmap painted;
  {
    GdiCanvas canvas(surface.Context());
    EXPECT_GT(canvas.TextWidth(kOrder), canvas.TextWidth(""));
    EXPECT_EQ(canvas.TextWidth(std::string(10000, 'x')), 10 * canvas.TextWidth(std::string(1000, 'x')));
    EXPECT_EQ(canvas.TextHeight(kOrder), canvas.TextHeight(""));
    canvas.SetBrushStyle(bsClear);
    canvas.TextRect({10, 13, 21, 18}, 8, 8, kOrder);
    surface.CopyTo(painted);
    EXPECT_GT(Differences(own, painted), 0);
    canvas.TextRect({0, 13, kSide, 40}, 8 - canvas.TextWidth(std::string(9000, 'x')), 12,
                    std::string(9010, 'x'));
    canvas.SetBrushColor(ColorOf('.'));
    canvas.FillRect({0, 13, kSide, 40});
    surface.CopyTo(painted);
    EXPECT_EQ(Differences(own, painted), 0);
  }
  EXPECT_EQ(::SetTextColor(surface.Context(), before), 0x123456U);
}

TEST(GdiCanvas, WhatIsNoContextIsRefused) {
  EXPECT_EQ(MessageOf([] { GdiCanvas canvas(nullptr); }), "The surface cannot be painted");
}

}  // namespace

}  // namespace qxTools::test
