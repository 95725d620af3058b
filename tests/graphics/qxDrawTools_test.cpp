#include <qxTools/base/LittleEndian.h>
#include <qxTools/graphics/qxDrawTools.h>
#include <qxTools/painting/SystemColors.h>

#include "support/BoxText.h"
#include "support/Picture.h"
#include "support/Testing.h"

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

/// Nine pieces that show how each is placed and stretched. The right corners are wider than the left ones.
void MakeFrame(TFrameBitmaps& pieces) {
  const char* const texts[] = {"00\n0.\n", "1\n.\n", "22\n22\n", "3.3\n",     "44\n44\n",
                               ".5\n55\n", "666\n",  ".7\n",     "888\n8.8\n"};
  for (std::size_t k = 0; k < pieces.size(); ++k) Paint(pieces[k], texts[k]);
}

/// Expects `draw` to paint that on a paper of its size, with the text of BoxText.
template <class Draw>
void ExpectDrawn(const std::string& want, Draw&& draw) {
  const BoxText painter;
  const std::size_t width = want.find('\n');
  Paper paper(static_cast<Integer>(width), static_cast<Integer>(want.size() / (width + 1)));
  draw(paper.GetCanvas());
  EXPECT_EQ(test::TextOf(paper), want);
}

}  // namespace

TEST(qxDrawTools, RectanglesAndPoints) {
  const TRect rect{1, 2, 3, 4};
  EXPECT_EQ(RectToStr(rect), "Left:1, Top:2, Right:3, Bottom:4");
  EXPECT_EQ(RectToStr({kLowest, -1, 0, kHighest}), "Left:-2147483648, Top:-1, Right:0, Bottom:2147483647");
  for (const TPoint& inside : {TPoint{1, 4}, TPoint{3, 2}}) EXPECT_TRUE(PosInRect(inside, rect));
  for (const TPoint& outside : {TPoint{0, 3}, TPoint{4, 3}, TPoint{2, 1}, TPoint{2, 5}})
    EXPECT_FALSE(PosInRect(outside, rect));
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
  // clang-format off
  Rows<TAlignmentEx, TRect>([](TAlignmentEx alignment) { return CropRect({0, 0, 100, 50}, alignment, 10, 5); })
      (aeLeftTop, {10, 5, 100, 50})(aeLeftCenter, {10, 5, 100, 55})(aeLeftBottom, {10, 0, 100, 45})
      (aeTopCenter, {10, 5, 110, 50})(aeAllCenter, {10, 5, 110, 55})(aeBottomCenter, {10, 0, 110, 45})
      (aeRightTop, {0, 5, 90, 50})(aeRightCenter, {0, 0, 90, 55})(aeRightBottom, {0, 0, 90, 45})
      (TAlignmentEx(9), {0, 0, 100, 50});
  // clang-format on
}

TEST(qxDrawTools, PopupsAreKeptOnTheScreen) {
  EXPECT_EQ(AdjustPos({-5, kHighest}, kHighest, 100), (TPoint{0, kHighest}));  // no limit without a desktop
  TRect rect;
  EXPECT_FALSE(GetWindowRect(7, rect));
  const SmallScreen screen;
  EXPECT_EQ(AdjustPos({-5, 700}, 100, 100), (TPoint{0, 668}));
  EXPECT_EQ(AdjustPos({923, 667}, 100, 100), (TPoint{923, 667}));
  EXPECT_EQ(AdjustPos({50, -50}, 2000, 800), (TPoint{-976, -32}));
  EXPECT_EQ(GetControlPos(7), (TPoint{10, 45}));
  EXPECT_EQ(GetControlPos(8), TPoint{});
}

TEST(qxDrawTools, Numbers) {
  EXPECT_TRUE(BetWeen(5, 9, 1) && BetWeen(9, 1, 9) && BetWeen(1, 9, 1));
  EXPECT_FALSE(BetWeen(0, 1, 9) || BetWeen(10, 9, 1));
  const std::array<Integer, 4> cases[] = {
      {17, 5, 15, 4}, {-17, 5, -15, -3}, {17, -5, 15, -2}, {0, 5, 0, 0},
      {5, 0, 0, 0},   {10, 5, 10, 2},    {11, 5, 10, 3},   {kLowest, 1, kLowest, kLowest}};
  for (const auto& [value, step, cut, pages] : cases) {
    EXPECT_EQ(CutMod(value, step), cut) << value << ", " << step;
    EXPECT_EQ(InPage(value, step), pages) << value << ", " << step;
  }
  for (const auto function : {CutMod, InPage})
    EXPECT_EQ(MessageOf([&] { function(kLowest, -1); }), "Integer overflow");
}

TEST(qxDrawTools, BevelsAreRingsInTheirColours) {
  ExpectDrawn(
      "wwwwwwws.fffffffd.sssssssw.sssssssw.sssssssw.sssssssw.\n"
      "wffffffs.fwwwwwsd.s......w.sdddddfw.srrrrrrw.sdddddfw.\n"
      "wffffffs.fwffffsd.s......w.sd....fw.srrrrrrw.sdrrrrfw.\n"
      "wffffffs.fwsssssd.s......w.sdfffffw.srrrrrrw.sdfffffw.\n"
      "wsssssss.fddddddd.swwwwwww.swwwwwww.swwwwwww.swwwwwww.\n",
      [](TCanvas& canvas) {
        const auto at = [](Integer column) { return TRect{9 * column, 0, 9 * column + 7, 4}; };
        DrawButton(canvas, at(0), false);
        DrawButton(canvas, at(1), true);
        DrawBox(canvas, at(2), false);
        DrawBox(canvas, at(3), true);
        DrawFrame(canvas, at(4), false, ColorOf('r'));
        DrawFrame(canvas, at(5), true, ColorOf('r'));
      });
  Paper paper(9, 9);  // the pen keeps the last ring's second colour
  for (const auto& [isDouble, pen] : {std::pair(false, clBtnHighlight), {true, clBtnFace}}) {
    DrawBox(paper.GetCanvas(), {0, 0, 7, 7}, isDouble);
    EXPECT_EQ(paper.GetCanvas().GetPenColor(), pen);
  }
}

TEST(qxDrawTools, TrianglesPointInFourDirections) {
  ExpectDrawn(
      "......rrr......r......rrr........rrrrrrrrr..\n"
      "..rrrrrrr.....rrr.....rrrrrrr.....rrrrrrr...\n"
      "rrrrrrrrr....rrrrr....rrrrrrrrr....rrrrr....\n"
      "...rrrrrr...rrrrrrr...rrrrrr........rrr.....\n"
      ".......rr..rrrrrrrrr..rr.............r......\n",
      [](TCanvas& canvas) {
        for (Integer i = 0; i < 5; ++i)  // the fifth is no direction, and nothing is drawn
          Draw3Angle(canvas, {11 * i % 44, 0, 11 * i % 44 + 8, 4}, static_cast<TDrawAngleType>(i),
                     ColorOf("rrrrk"[i]));
      });
}

TEST(qxDrawTools, TabsAreSlantedOrNotchedWithACaptionInACellOfTheirColour) {
  ExpectDrawn(
      "kkkkkkkkkkkkkkkkkkkkkkkk..kkkkkkkkkkkkkkkkkkkkkkkk\n"
      ".krrrrrrrrrrrrrrrrrrrrk....krrrrrrrrrrrrrrrrrkkk..\n"
      "..krrrrggrggrggrrrrrrk......krrrrrrrrrrrrrrkkkk...\n"
      "...krrrggrggrggrrrrrk........krrrrrrrrrrrrrrrrrkkk\n"
      "...krrrrrrrrrrrrrrrrk........krrrrrrrrrrrrrrrkkk..\n"
      "....krrrrrrrrrrrrrrk..........krrrrrrrrrrrrkk.....\n"
      ".....krrrrrrrrrrrrk............krrrrrrrrrrrrrkkk..\n"
      "......kkkkkkkkkkkk..............kkkkkkkkkkkkkkkkkk\n",
      [](TCanvas& canvas) {
        DrawTabset(canvas, {0, 0, 23, 7}, ColorOf('r'), ColorOf('g'), "abc", true);
        DrawTabset(canvas, {26, 0, 49, 7}, ColorOf('r'), 0, "", false);
      });
}

TEST(qxDrawTools, FramesAreTiledFromNinePieces) {
  ExpectDrawn(
      ".............................888....\n"
      ".003..3..3..3.666....0666.3..8.8....\n"
      ".0..............7....28885....0.....\n"
      ".1..............7....28.85..........\n"
      "................7...................\n"
      ".1..............7...................\n"
      "................7...................\n"
      ".22...........888...................\n"
      ".22555555555558.8...................\n",
      [](TCanvas& canvas) {
        TFrameBitmaps pieces;
        MakeFrame(pieces);
        DrawFrameWithBMP(canvas, {1, 1, 17, 9}, pieces);
        DrawFrameWithBMP(canvas, {21, 1, 25, 4}, pieces);  // one tile a side, under the corners
        DrawFrameWithBMP(canvas, {30, 1, 32, 2}, pieces);  // no room for a tile of the top edge
      });
}

TEST(qxDrawTools, TheBrushPatternIsACheckerboard) {
  TBitmap bitmap(3, 20);
  CreateBrushPattern(ColorOf('r'), bitmap);
  std::string want;
  for (int i = 0; i < 4; ++i) want += "wrwrwrwr\nrwrwrwrw\n";
  EXPECT_EQ(test::TextOf(bitmap), want);
}

TEST(qxDrawTools, TextStandsInAllNinePlaces) {
  ExpectDrawn(
      ".00..33..66..99.......\n"
      ".00..33..66..99.......\n"
      ".................99...\n"
      ".11..44..77...........\n"
      ".11..44..77...........\n"
      "......................\n"
      ".22..55..88...........\n"
      ".22..55..88...........\n",
      [](TCanvas& canvas) {
        for (int i = 0; i < 10; ++i) {  // the tenth is no place
          canvas.SetBrushStyle(i < 5 ? bsClear : bsSolid);
          canvas.SetFontColor(ColorOf("0123456789"[i]));
          const Integer left = i < 9 ? 1 : 13;
          DrawText(canvas, {left, 0, left + 11, 8}, "a", static_cast<TAlignmentEx>(i));
          EXPECT_EQ(canvas.GetBrushStyle(), i < 5 ? bsClear : bsSolid);
        }
        DrawText(canvas, {16, 2, 20, 3}, "abc", aeAllCenter);  // too large: halves go towards zero
      });
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
  for (const auto& [file, folderName] : {std::pair("a.dw1", "a.bmp"), {"a.bmp", "a.dw1"}, {"b", "a.bmp"}}) {
    const TemporaryFolder folder;
    folder.Make(file, "old");
    std::filesystem::create_directory(folder.File(folderName));
    EXPECT_THROW(SaveDWF(folder.File("a.dw1"), TFrameBitmaps()), EFCreateError);
    EXPECT_EQ(BytesOf(folder.File(file)), "old");
    EXPECT_EQ(std::filesystem::exists(folder.File("a.dw1")), file[0] == 'a');
  }
}

// That they leave every piece as it was is checked by the fuzz target.
TEST(qxDrawTools, BadPairsAreRefused) {
  const TemporaryFolder folder;
  const std::string name = folder.File("frame.dw1");
  TFrameBitmaps pieces;
  const auto load = [&](const std::string& bytes) {
    folder.Make("frame.dw1", bytes);
    return MessageOf([&] { LoadDWF(name, pieces); });
  };
  EXPECT_EQ(MessageOf([&] { LoadDWF(name, pieces); }), name + " File not found!");
  EXPECT_EQ(load(""), folder.File("frame.bmp") + " File not found!");
  TBitmap(2, 2).SaveToFile(folder.File("frame.bmp"));
  // clang-format off
  Rows(load)
      ("", "Stream read error")
      (FrameBytes({1, 1}, 8002).substr(0, 4), name + " is a Draw of Frame(DW1) File.")
      (FrameBytes({1, 1}).substr(0, 75), "Stream read error")(FrameBytes({4096, 4097}), name + " is damaged.")
      (FrameBytes({1, 1, kHighest, kHighest}), name + " is damaged.");
  // clang-format on
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
