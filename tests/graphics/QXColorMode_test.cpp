#include <qxTools/graphics/QXColorMode.h>
#include <qxTools/graphics/QXHTML.h>

#include <numbers>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXColorMode;
using namespace qxTools::test;

constexpr Real kNaN = std::numeric_limits<Real>::quiet_NaN();
constexpr Real kInfinity = std::numeric_limits<Real>::infinity();

using Three = std::array<Real, 3>;

template <class Function>
Three Convert(Function function, Three in) {
  Three out = {-7, -7, -7};
  function(in[0], in[1], in[2], out[0], out[1], out[2]);
  return out;
}

TEST(QXColorMode, ChannelsBecomeHueSaturationAndTheRest) {
  const std::array<Three, 3> cases[] = {
      // RGB, HSV, HLS
      {{{0, 0, 0}, {0, 0, 0}, {-1000, 0, 0}}},        {{{0.5, 0.5, 0.5}, {0, 0, 0.5}, {-1000, 0.5, 0}}},
      {{{1, 0, 0}, {0, 1, 1}, {0, 0.5, 1}}},          {{{1, 1, 0.5}, {60, 0.5, 1}, {60, 0.75, 1}}},
      {{{0, 0.5, 0}, {120, 1, 0.5}, {120, 0.25, 1}}}, {{{0, 0.25, 0.5}, {210, 1, 0.5}, {210, 0.25, 1}}},
      {{{1, 0, 0.5}, {330, 1, 1}, {330, 0.5, 1}}}};
  for (const auto& [rgb, hsv, hls] : cases) {
    EXPECT_EQ((std::array{Convert(RGBtoHSV, rgb), Convert(RGBtoHLS, rgb)}), (std::array{hsv, hls}));
    EXPECT_EQ((std::array{Convert(HSVtoRGB, hsv), Convert(HLStoRGB, hls)}), (std::array{rgb, rgb}));
  }
}

TEST(QXColorMode, BothModelsLeadBackToTheChannels) {
  for (int i = 0; i < 0x1000; ++i) {
    const Three rgb = {Real(i & 15) / 15, Real(i >> 4 & 15) / 15, Real(i >> 8) / 15};
    for (const Three& back :
         {Convert(HSVtoRGB, Convert(RGBtoHSV, rgb)), Convert(HLStoRGB, Convert(RGBtoHLS, rgb))})
      for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(static_cast<double>(back[k] - rgb[k]), 0, 1e-15) << i;
  }
}

TEST(QXColorMode, HuesOutsideTheCircle) {
  EXPECT_EQ(Convert(HSVtoRGB, {360, 1, 1}), (Three{1, 0, 0}));
  EXPECT_EQ(Convert(HSVtoRGB, {-1000, 0, 1}), (Three{1, 1, 1}));
  for (const Real hue : {-10.0L, 361.0L, 1e300L, kNaN}) {
    EXPECT_EQ(Convert(HSVtoRGB, {hue, 1, 1}), (Three{-7, -7, -7}));
    EXPECT_EQ(HSV(hue, 1, 255), 0U);
  }
  for (const Real odd : {kNaN, kInfinity, -kInfinity})
    for (const Three& rgb : {Three{odd, 1, 0}, Three{0.5, odd, 0}, Three{0.5, 1, odd}})
      for (const Real hue : {Convert(RGBtoHSV, rgb)[0], Convert(RGBtoHLS, rgb)[0]})
        EXPECT_FALSE(hue < 0 || hue >= 360);
  EXPECT_EQ(Convert(HLStoRGB, {-120, 0.5, 1}), (Three{0, 0, 1}));
  EXPECT_EQ(Convert(HLStoRGB, {660, 0.5, 1}), (Three{0, 0, 1}));  // 300, but its red is folded only once
}

TEST(QXColorMode, HLSDividesByZeroOnlyWhereItIsTold) {
  for (const Three& rgb : {Three{2, 0, 0}, Three{1, 0, -1}})
    EXPECT_EQ(MessageOf([&] { Convert(RGBtoHLS, rgb); }), "Division by zero");
  EXPECT_EQ(HLS(TColor{0x010101}).L, 1);
}

TEST(QXColorMode, PackingNeitherClampsNorMasks) {
  EXPECT_EQ(HSV(0, 0, 0.5) + HSV(0, 0, 2.5), 0x020202U);  // ties to even
  EXPECT_EQ(HSV(0, kNaN, kNaN), 0U);
  EXPECT_EQ(HLS(0, kInfinity, 0), 0xFFFFFFFFU);
  EXPECT_EQ(HLS(0, -1e30L, 0), 0x80000000U);
  EXPECT_EQ(HLS(0, 256, 0) + HLS(0, -1, 0), 0x1010100U - 1);
  EXPECT_EQ(HLS(THLSMode{120, 0.5, 1}), 0x000100U);
  EXPECT_EQ(HSV(THSVMode{0, 0, 1}), 0x0101FFU);  // red alone is scaled
  EXPECT_EQ(RGB(300, 0, 0) + RGB(0, -1, 256), 0xFF2CU);
}

TEST(QXColorMode, PackedColoursComeApartUnscaledAndMix) {
  const TRGBMode c = RGB(TColor{0xFF123456});
  EXPECT_EQ((Three{c.R, c.G, c.B}), (Three{0x56, 0x34, 0x12}));
  EXPECT_EQ((std::array{c.IntR, c.IntG, c.IntB}), (std::array{0x56, 0x34, 0x12}));
  const THSVMode mix = HSVAdd(HSV(TColor{0x00FFFF}), {4, 5, 6});
  EXPECT_EQ((Three{mix.H, mix.S, mix.V}), (Three{60, 1, 6}));
  EXPECT_EQ(HSV(TColor{0x0080FF}).V, 255);
  EXPECT_EQ(RGBAdd(0xFFFFFF, 0x808080), 0x010180U);
  EXPECT_EQ(RGBAdd(0x00FF00, 0xFF0000), 0x000100U);
}

TEST(QXColorMode, ChannelsAreWrittenForHTML) {
  EXPECT_EQ(HTMLRGB(255, 0, 16) + QXHTML::HTMLRGB(-1, 0xABC, 0), "#FF0010#FFFFFFFFABC00");
  EXPECT_EQ(QXHTML::HTMLColor("red", "Hi"), "<Font Color=red>Hi</Font>");
}

TEST(QXColorMode, GeometryCountsAllEdges) {
  EXPECT_EQ((std::array{AdToRd(90), AdToRd(0)}), (std::array{0.0L, std::numbers::pi_v<Real> / 2}));
  const TRect rect{0, -5, 10, 10};
  EXPECT_TRUE(PointinRect({10, 10}, rect) && PointinRect({0, -5}, rect));
  for (const TPoint& point : {TPoint{11, 0}, TPoint{-1, 0}, TPoint{0, 11}, TPoint{0, -6}})
    EXPECT_FALSE(PointinRect(point, rect));
}

}  // namespace
