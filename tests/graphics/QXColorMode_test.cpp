#include <gtest/gtest.h>
#include <qxTools/graphics/QXColorMode.h>
#include <qxTools/graphics/QXHTML.h>

#include <array>
#include <limits>
#include <numbers>

#include "support/MessageOf.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXColorMode;
using test::MessageOf;

constexpr Real kNaN = std::numeric_limits<Real>::quiet_NaN();
constexpr Real kInfinity = std::numeric_limits<Real>::infinity();

using Three = std::array<Real, 3>;

template <class Function>
Three Convert(Function function, Three in, Three out = {-7, -7, -7}) {
  function(in[0], in[1], in[2], out[0], out[1], out[2]);
  return out;
}

TEST(QXColorMode, ChannelsBecomeHueSaturationAndTheRest) {
  struct {
    Three rgb, hsv, hls;
  } const cases[] = {
      {{0, 0, 0}, {0, 0, 0}, {-1000, 0, 0}},
      {{0.5L, 0.5L, 0.5L}, {0, 0, 0.5L}, {-1000, 0.5L, 0}},
      {{1, 0, 0}, {0, 1, 1}, {0, 0.5L, 1}},
      {{1, 1, 0.5L}, {60, 0.5L, 1}, {60, 0.75L, 1}},
      {{0, 0.5L, 0}, {120, 1, 0.5L}, {120, 0.25L, 1}},
      {{0, 0.25L, 0.5L}, {210, 1, 0.5L}, {210, 0.25L, 1}},
      {{1, 0, 0.5L}, {330, 1, 1}, {330, 0.5L, 1}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Convert(RGBtoHSV, c.rgb), c.hsv);
    EXPECT_EQ(Convert(RGBtoHLS, c.rgb), c.hls);
    EXPECT_EQ(Convert(HSVtoRGB, c.hsv), c.rgb);
    EXPECT_EQ(Convert(HLStoRGB, c.hls), c.rgb);
  }
}

TEST(QXColorMode, BothModelsLeadBackToTheChannels) {
  for (int i = 0; i < 0x1000; ++i) {
    const Three rgb = {Real(i & 15) / 15, Real(i >> 4 & 15) / 15, Real(i >> 8) / 15};
    const Three hsv = Convert(HSVtoRGB, Convert(RGBtoHSV, rgb));
    const Three hls = Convert(HLStoRGB, Convert(RGBtoHLS, rgb));
    for (int k = 0; k < 3; ++k) {
      EXPECT_NEAR(static_cast<double>(hsv[k] - rgb[k]), 0, 1e-15) << i;
      EXPECT_NEAR(static_cast<double>(hls[k] - rgb[k]), 0, 1e-15) << i;
    }
  }
}

TEST(QXColorMode, HuesOutsideTheCircle) {
  EXPECT_EQ(Convert(HSVtoRGB, {360, 1, 1}), (Three{1, 0, 0}));
  EXPECT_EQ(Convert(HSVtoRGB, {-1000, 0, 1}), (Three{1, 1, 1}));
  for (const Real hue : {-10.0L, 361.0L, 1e300L, kNaN, -kInfinity}) {
    EXPECT_EQ(Convert(HSVtoRGB, {hue, 1, 1}), (Three{-7, -7, -7}));
    EXPECT_EQ(HSV(hue, 1, 255), 0U);
  }
  EXPECT_EQ(Convert(HLStoRGB, {-120, 0.5L, 1}), (Three{0, 0, 1}));
  EXPECT_EQ(Convert(HLStoRGB, {480, 0.5L, 1}), (Three{0, 1, 0}));
  EXPECT_EQ(Convert(HLStoRGB, {660, 0.5L, 1}), (Three{0, 0, 1}));  // its red is folded only once
}

TEST(QXColorMode, HLSDividesByZeroOnlyWhereItIsTold) {
  EXPECT_EQ(MessageOf([] { Convert(RGBtoHLS, {2, 0, 0}); }), "Division by zero");
  EXPECT_EQ(MessageOf([] { Convert(RGBtoHLS, {1, 0, -1}); }), "Division by zero");
  EXPECT_THROW(HLS(TColor{0x000200}), EDivByZero);
  EXPECT_EQ(Convert(RGBtoHLS, {1, 1, 1}), (Three{-1000, 1, 0}));
  EXPECT_EQ(HLS(TColor{0xFFFFFF}).L, 255);
}

TEST(QXColorMode, ValuesThatAreNoNumbersRaiseNothing) {
  for (const Real odd : {kNaN, kInfinity, -kInfinity})
    for (int k = 0; k < 3; ++k) {
      Three rgb = {0.5L, 1, 0};
      rgb[k] = odd;
      for (const Three& out : {Convert(RGBtoHSV, rgb), Convert(RGBtoHLS, rgb)})
        EXPECT_FALSE(out[0] < 0 || out[0] >= 360);
    }
  EXPECT_EQ(HSV(0, kNaN, kNaN), 0U);
  EXPECT_EQ(HLS(0, kInfinity, 0), 0xFFFFFFFFU);
  EXPECT_EQ(HLS(0, -1e30L, 0), 0x80000000U);
}

TEST(QXColorMode, PackingNeitherClampsNorMasks) {
  EXPECT_EQ(HSV(0, 0, 255), 0xFFFFFFU);
  EXPECT_EQ(HSV(0, 0, 0.5L) + HSV(0, 0, 2.5L), 0x020202U);  // ties to even
  EXPECT_EQ(HLS(0, 256, 0), 0x1010100U);
  EXPECT_EQ(HLS(0, -1, 0), 0xFFFFFFFFU);
  EXPECT_EQ(HLS(THLSMode{120, 0.5L, 1}), 0x000100U);
  EXPECT_EQ(HSV(THSVMode{0, 0, 1}), 0x0101FFU);
  EXPECT_EQ(RGB(300, 0, 0), 0x2CU);
  EXPECT_EQ(RGB(-1, 0, 256), 0xFFU);
}

TEST(QXColorMode, PackedColoursComeApartUnscaled) {
  const TRGBMode c = RGB(TColor{0xFF123456});
  EXPECT_EQ((Three{c.R, c.G, c.B}), (Three{0x56, 0x34, 0x12}));
  EXPECT_EQ((std::array{c.IntR, c.IntG, c.IntB}), (std::array{0x56, 0x34, 0x12}));
  const THSVMode hsv = HSV(TColor{0x0080FF});
  EXPECT_EQ((Three{hsv.H, hsv.S, hsv.V}), (Three{128.0L / 255 * 60, 1, 255}));
}

TEST(QXColorMode, MixingTakesTheValueOfTheSecond) {
  const THSVMode mix = HSVAdd({1, 2, 3}, {4, 5, 6});
  EXPECT_EQ((Three{mix.H, mix.S, mix.V}), (Three{1, 2, 6}));
  EXPECT_EQ(RGBAdd(0x0000FF, 0x00FF00), 0x0000FFU);
  EXPECT_EQ(RGBAdd(0xFFFFFF, 0x808080), 0x010180U);
  EXPECT_EQ(RGBAdd(0x00FF00, 0x404040), 0U);
}

TEST(QXColorMode, ChannelsAreWrittenForHTML) {
  EXPECT_EQ(HTMLRGB(255, 0, 16), "#FF0010");
  EXPECT_EQ(HTMLRGB(256, 0, 0), "#1000000");
  EXPECT_EQ(QXHTML::HTMLRGB(-1, 0xABC, 0), "#FFFFFFFFABC00");
  EXPECT_EQ(QXHTML::HTMLColor("red", "Hi"), "<Font Color=red>Hi</Font>");
}

TEST(QXColorMode, GeometryCountsAllEdges) {
  EXPECT_EQ(AdToRd(90), 0);
  EXPECT_EQ(AdToRd(0), std::numbers::pi_v<Real> / 2);
  const TRect rect{0, -5, 10, 10};
  EXPECT_TRUE(PointinRect({10, 10}, rect) && PointinRect({0, -5}, rect));
  for (const TPoint& point : {TPoint{11, 0}, TPoint{-1, 0}, TPoint{0, 11}, TPoint{0, -6}})
    EXPECT_FALSE(PointinRect(point, rect));
}

}  // namespace
