#include <gtest/gtest.h>
#include <qxTools/graphics/qxDrawTools.h>
#include <qxTools/platform/SystemColors.h>
#include <qxTools/runtime/LittleEndian.h>

#include <limits>

#include "support/BoxText.h"
#include "support/GoldenPictures.h"
#include "support/MessageOf.h"
#include "support/TemporaryFolder.h"

namespace qxTools::test {

namespace {

using namespace qxDrawTools;

constexpr Integer kLowest = std::numeric_limits<Integer>::min();
constexpr Integer kHighest = std::numeric_limits<Integer>::max();

/// A screen of 1024 x 768 with window 7 on it, plugged in while it lives.
class SmallScreen : public ScreenSource {
 public:
  SmallScreen() { SetScreenSource(this); }
  ~SmallScreen() override { SetScreenSource(nullptr); }
  TPoint GetScreenSize() override { return {1024, 768}; }
  bool GetWindowRect(WindowHandle window, TRect& rect) override {
    if (window == 7) rect = {10, 20, 110, 45};
    return window == 7;
  }
};

/// The bytes of a frame file with these sizes, the others 0.
std::string FrameBytes(const std::vector<Integer>& sizes, Integer signature = 8001) {
  std::string bytes(76, '\0');
  PutLittleEndian32(&bytes[0], signature);
  for (std::size_t i = 0; i < sizes.size(); ++i) PutLittleEndian32(&bytes[4 + 4 * i], sizes[i]);
  return bytes;
}

std::string TextOf(const TFrameBitmaps& pieces) {
  std::string text;
  for (const TBitmap& piece : pieces) text += test::TextOf(piece) + "-\n";
  return text;
}

}  // namespace

TEST(qxDrawTools, RectanglesAndPoints) {
  const TRect rect{1, 2, 3, 4};
  EXPECT_EQ(RectToStr(rect), "Left:1, Top:2, Right:3, Bottom:4");
  EXPECT_EQ(RectToStr({kLowest, -1, 0, kHighest}), "Left:-2147483648, Top:-1, Right:0, Bottom:2147483647");
  EXPECT_TRUE(PosInRect(TPoint{1, 4}, rect) && PosInRect(TPoint{3, 2}, rect));
  EXPECT_FALSE(PosInRect(TPoint{0, 3}, rect) || PosInRect(TPoint{4, 3}, rect) ||
               PosInRect(TPoint{2, 1}, rect) || PosInRect(TPoint{2, 5}, rect));
  EXPECT_TRUE(PosInRect(TSmallPoint{-1, -32768}, {-1, -32768, 0, 0}));
  EXPECT_EQ(ResizeRect({0, 0, 10, 10}, 2, roIn), (TRect{2, 2, 8, 8}));
  EXPECT_EQ(ResizeRect({0, 0, 10, 10}, 2, roOut), (TRect{-2, -2, 12, 12}));
  EXPECT_EQ(ResizeRect({0, 0, 2, 2}, 2, roIn), (TRect{2, 2, 0, 0}));
  EXPECT_EQ(ResizeRect(rect, 2, static_cast<TResizeRectOption>(2)), rect);
  EXPECT_EQ(OffsetRect(rect, 10, -10), (TRect{11, -8, 13, -6}));
  EXPECT_EQ(OffsetRect({0, 0, kHighest, 0}, 1, -1), (TRect{1, -1, kLowest, -1}));  // wraps
  EXPECT_EQ(RectAdd({1, 20, 3, 40}, {10, 2, 30, 4}), (TRect{1, 2, 30, 40}));
}

TEST(qxDrawTools, CropRectMovesTheSidesOfItsTable) {
  const struct {
    TAlignmentEx alignment;
    TRect want;
  } cases[] = {
      {aeLeftTop, {10, 5, 100, 50}},    {aeLeftCenter, {10, 5, 100, 55}},
      {aeLeftBottom, {10, 0, 100, 45}}, {aeTopCenter, {10, 5, 110, 50}},
      {aeAllCenter, {10, 5, 110, 55}},  {aeBottomCenter, {10, 0, 110, 45}},
      {aeRightTop, {0, 5, 90, 50}},     {aeRightCenter, {0, 0, 90, 55}},
      {aeRightBottom, {0, 0, 90, 45}},  {TAlignmentEx(9), {0, 0, 100, 50}},
  };
  for (const auto& c : cases)
    EXPECT_EQ(RectToStr(CropRect({0, 0, 100, 50}, c.alignment, 10, 5)), RectToStr(c.want))
        << "alignment " << int{c.alignment};
}

TEST(qxDrawTools, PopupsAreKeptOnTheScreen) {
  EXPECT_EQ(AdjustPos({-5, kHighest}, kHighest, 100), (TPoint{0, kHighest}));  // no limit without a desktop
  EXPECT_EQ(GetControlPos(7), TPoint{});
  const SmallScreen screen;
  EXPECT_EQ(AdjustPos({-5, 700}, 100, 100), (TPoint{0, 668}));
  EXPECT_EQ(AdjustPos({924, 668}, 100, 100), (TPoint{924, 668}));
  EXPECT_EQ(AdjustPos({50, -50}, 2000, 800), (TPoint{-976, -32}));
  EXPECT_EQ(GetControlPos(7), (TPoint{10, 45}));
  EXPECT_EQ(GetControlPos(8), TPoint{});
}

TEST(qxDrawTools, Numbers) {
  EXPECT_TRUE(BetWeen(5, 9, 1) && BetWeen(9, 1, 9) && BetWeen(1, 9, 1));
  EXPECT_FALSE(BetWeen(0, 1, 9) || BetWeen(10, 9, 1));
  const struct {
    Integer value, step, cut, pages;
  } cases[] = {
      {17, 5, 15, 4}, {-17, 5, -15, -3}, {17, -5, 15, -2}, {0, 5, 0, 0},
      {5, 0, 0, 0},   {10, 5, 10, 2},    {11, 5, 10, 3},   {kLowest, 1, kLowest, kLowest},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CutMod(c.value, c.step), c.cut) << c.value << ", " << c.step;
    EXPECT_EQ(InPage(c.value, c.step), c.pages) << c.value << ", " << c.step;
  }
  EXPECT_EQ(MessageOf([] { CutMod(kLowest, -1); }), "Integer overflow");
  EXPECT_EQ(MessageOf([] { InPage(kLowest, -1); }), "Integer overflow");
}

TEST(qxDrawTools, PicturesAreThoseOfTheGoldenTexts) {
  const BoxText painter;
  for (const GoldenPicture& golden : kGoldenPictures) {
    Paper paper(golden.width, golden.height);
    golden.draw(paper.GetCanvas());
    EXPECT_EQ(test::TextOf(paper), golden.text) << golden.name;
  }
}

TEST(qxDrawTools, BevelsTakeTheDesktopsColours) {
  SystemColorTable colors{};
  colors[0x0F] = ColorOf('1');
  colors[0x14] = ColorOf('2');
  colors[0x10] = ColorOf('3');
  SetSystemColors(colors);
  Paper paper(4, 4);
  DrawButton(paper.GetCanvas(), {0, 0, 3, 3}, false);
  SetSystemColors(DefaultSystemColors());
  EXPECT_EQ(test::TextOf(paper), "2223\n2113\n2113\n2333\n");
}

TEST(qxDrawTools, TheBrushPatternIsACheckerboard) {
  TBitmap bitmap(3, 20);
  CreateBrushPattern(ColorOf('r'), bitmap);
  std::string want;
  for (int i = 0; i < 4; ++i) want += "wrwrwrwr\nrwrwrwrw\n";
  EXPECT_EQ(test::TextOf(bitmap), want);
}

TEST(qxDrawTools, TextStandsInAllNinePlaces) {
  const BoxText painter;
  Paper paper(44, 12);
  TCanvas& canvas = paper.GetCanvas();
  canvas.SetBrushColor(ColorOf('g'));
  for (int i = 0; i < 9; ++i) {
    const Integer left = 1 + i / 3 * 11;
    const Integer top = i % 3 * 4;
    DrawText(canvas, {left, top, left + 9, top + 4}, "ab", static_cast<TAlignmentEx>(i));
    EXPECT_EQ(canvas.GetBrushStyle(), bsSolid);
  }
  DrawText(canvas, {34, 0, 42, 4}, "ab", TAlignmentEx(9));
  DrawText(canvas, {35, 5, 40, 6}, "ab", aeAllCenter);  // too large: the halves go towards zero
  EXPECT_EQ(test::TextOf(paper),
            ".kk.kk.......kk.kk........kk.kk...kk.kk.....\n"
            ".kk.kk.......kk.kk........kk.kk...kk.kk.....\n"
            "............................................\n"
            "............................................\n"
            "............................................\n"
            ".kk.kk.......kk.kk........kk.kk....kk.kk....\n"
            ".kk.kk.......kk.kk........kk.kk.............\n"
            "............................................\n"
            "............................................\n"
            "............................................\n"
            ".kk.kk.......kk.kk........kk.kk.............\n"
            ".kk.kk.......kk.kk........kk.kk.............\n");
}

TEST(qxDrawTools, TheTabsCaptionStandsInACellOfItsColour) {
  const BoxText painter;
  Paper paper(24, 7);
  DrawTabset(paper.GetCanvas(), {0, 0, 23, 6}, ColorOf('r'), ColorOf('g'), "abc", true);
  EXPECT_EQ(test::TextOf(paper),
            "kkkkkkkkkkkkkkkkkkkkkkkk\n"
            ".krrrrrrrrrrrrrrrrrrrrk.\n"
            "..krrrrggrggrggrrrrrrk..\n"
            "...krrrggrggrggrrrrrk...\n"
            "....krrrrrrrrrrrrrrk....\n"
            ".....krrrrrrrrrrrrk.....\n"
            "......kkkkkkkkkkkk......\n");
}

TEST(qxDrawTools, FramesComeBackFromTheirFiles) {
  const TemporaryFolder folder;
  TFrameBitmaps pieces, back;
  MakeFrame(pieces);
  pieces[4].SetSize(0, 0);
  const std::string name = folder.File("frame.dw1");
  SaveDWF(name, pieces);
  EXPECT_EQ(BytesOf(name).substr(0, 5), std::string("\x41\x1F\0\0\x02", 5));
  EXPECT_EQ(BytesOf(name), FrameBytes({2, 2, 1, 2, 2, 2, 3, 1, 0, 0, 2, 2, 3, 1, 2, 1, 3, 2}));
  TBitmap strip;
  strip.LoadFromFile(folder.File("frame.bmp"));
  EXPECT_EQ(test::TextOf(strip), "001223.3.5666.7888\n0..22www55wwwww8.8\n");
  Paint(back[4], "9\n");
  LoadDWF(name, back);
  EXPECT_EQ(TextOf(back), TextOf(pieces));

  folder.Make("frame.dw1", std::string(80, 'x') + "kept");
  SaveDWF(name, TFrameBitmaps());
  EXPECT_EQ(BytesOf(name), FrameBytes({}) + "xxxxkept");
  EXPECT_EQ(BytesOf(folder.File("frame.bmp")).size(), 54U);
  LoadDWF(name, back);
  EXPECT_EQ(TextOf(back), TextOf(TFrameBitmaps()));
}

TEST(qxDrawTools, OnlyTheNamesOwnExtensionIsReplaced) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.File("a.b"));
  // The last one ends up as the bitmap.
  for (const char* name : {"a.b/frame", "a.b/frame.x.dw1", "a.b/.dw1", "a.b/same.bmp"})
    SaveDWF(folder.File(name), TFrameBitmaps());
  for (const char* name : {"a.b/frame.bmp", "a.b/frame.x.bmp", "a.b/.bmp", "a.b/same.bmp"})
    EXPECT_EQ(BytesOf(folder.File(name)).substr(0, 2), "BM") << name;
}

TEST(qxDrawTools, SavingThatFailsLeavesThePairAsItWas) {
  const TemporaryFolder folder;
  const std::string name = folder.Make("frame.dw1", "old");
  std::filesystem::create_directory(folder.File("frame.bmp"));
  EXPECT_THROW(SaveDWF(name, TFrameBitmaps()), EFCreateError);
  EXPECT_EQ(BytesOf(name), "old");
  folder.Make("other.bmp", "old");
  std::filesystem::create_directory(folder.File("other.dw1"));
  EXPECT_THROW(SaveDWF(folder.File("other.dw1"), TFrameBitmaps()), EFCreateError);
  EXPECT_EQ(BytesOf(folder.File("other.bmp")), "old");
}

TEST(qxDrawTools, BadPairsAreRefusedBeforeAPieceIsTouched) {
  const TemporaryFolder folder;
  const std::string name = folder.File("frame.dw1");
  const std::string stripName = folder.File("frame.bmp");
  TFrameBitmaps pieces;
  Paint(pieces[0], "9\n");
  const auto message = [&] { return MessageOf([&] { LoadDWF(name, pieces); }); };
  EXPECT_EQ(message(), name + " File not found!");
  folder.Make("frame.dw1", "");
  EXPECT_EQ(message(), stripName + " File not found!");
  TBitmap(2, 2).SaveToFile(stripName);
  const struct {
    std::string bytes;
    std::string want;
  } cases[] = {
      {"", "Stream read error"},
      {FrameBytes({1, 1}, 8002), name + " is a Draw of Frame(DW1) File."},
      {FrameBytes({1, 1}, 8002).substr(0, 4), name + " is a Draw of Frame(DW1) File."},
      {FrameBytes({1, 1}).substr(0, 75), "Stream read error"},
      {FrameBytes({4096, 4097}), name + " is damaged."},
      {FrameBytes({1, 1, kHighest, kHighest}), name + " is damaged."},
  };
  for (const auto& c : cases) {
    folder.Make("frame.dw1", c.bytes);
    EXPECT_EQ(message(), c.want);
  }
  folder.Make("frame.dw1", FrameBytes({1, 1}));
  folder.Make("frame.bmp", BytesOf(stripName).substr(0, 60));
  EXPECT_EQ(message(), "Bitmap image is not valid");
  EXPECT_EQ(test::TextOf(pieces[0]), "9\n");
}

TEST(qxDrawTools, PiecesThatTheStripLacksAreWhite) {
  const TemporaryFolder folder;
  TBitmap strip;
  Paint(strip, "123\n456\n");
  strip.SaveToFile(folder.File("frame.bmp"));
  // Covered; empty for a side of 0 or below, which takes no room; half covered; not at all; the largest.
  const std::string name =
      folder.Make("frame.dw1", FrameBytes({2, 1, 0, 5, 5, 0, -5, 5, 5, kLowest, 3, 3, 1, 1, 4096, 4096}));
  TFrameBitmaps pieces;
  LoadDWF(name, pieces);
  EXPECT_EQ(pieces[7].GetWidth(), 4096);
  pieces[7].SetSize(1, 1);
  EXPECT_EQ(TextOf(pieces), "12\n-\n-\n-\n-\n-\n3ww\n6ww\nwww\n-\nw\n-\nw\n-\n-\n");
}

}  // namespace qxTools::test
