// What drawing gives, pixel for pixel, on every canvas. Each picture starts on paper; letters are those of
// Picture.h, and text is that of BoxText.h.
#pragma once

#include <qxTools/graphics/qxDrawTools.h>

#include "support/Picture.h"

namespace qxTools::test {

struct GoldenPicture {
  const char* name;
  Integer width;
  Integer height;
  void (*draw)(TCanvas& canvas);
  const char* text;
};

/// Nine pieces that show how each is placed and stretched. The right corners are wider than the left ones.
inline void MakeFrame(qxDrawTools::TFrameBitmaps& pieces) {
  const char* const texts[] = {"00\n0.\n", "1\n.\n", "22\n22\n", "3.3\n",     "44\n44\n",
                               ".5\n55\n", "666\n",  ".7\n",     "888\n8.8\n"};
  for (std::size_t k = 0; k < pieces.size(); ++k) Paint(pieces[k], texts[k]);
}

inline void DrawFrames(TCanvas& canvas) {
  qxDrawTools::TFrameBitmaps pieces;
  MakeFrame(pieces);
  qxDrawTools::DrawFrameWithBMP(canvas, {1, 1, 17, 9}, pieces);
  qxDrawTools::DrawFrameWithBMP(canvas, {21, 1, 25, 4}, pieces);  // one tile a side, under the corners
  qxDrawTools::DrawFrameWithBMP(canvas, {30, 1, 32, 2}, pieces);  // no room for a tile of the top edge
}

inline void DrawBevels(TCanvas& canvas) {
  using namespace qxDrawTools;
  const auto at = [](Integer column) { return TRect{1 + 9 * column, 1, 8 + 9 * column, 6}; };
  DrawButton(canvas, at(0), false);
  DrawButton(canvas, at(1), true);
  DrawBox(canvas, at(2), false);
  DrawBox(canvas, at(3), true);
  DrawFrame(canvas, at(4), false, ColorOf('r'));
  DrawFrame(canvas, at(5), true, ColorOf('r'));
}

inline void DrawTriangles(TCanvas& canvas) {
  using namespace qxDrawTools;
  for (Integer i = 0; i < 4; ++i)
    Draw3Angle(canvas, {1 + 11 * i, 1, 9 + 11 * i, 7}, static_cast<TDrawAngleType>(i), ColorOf('r'));
  Draw3Angle(canvas, {45, 1, 51, 4}, daBottom, ColorOf('g'));
  Draw3Angle(canvas, {0, 0, 53, 8}, static_cast<TDrawAngleType>(4), ColorOf('k'));  // no direction: nothing
}

inline void DrawTabs(TCanvas& canvas) {
  qxDrawTools::DrawTabset(canvas, {1, 1, 23, 13}, ColorOf('r'), 0, "", true);
  qxDrawTools::DrawTabset(canvas, {27, 1, 49, 13}, ColorOf('r'), 0, "", false);
}

inline void DrawAlignments(TCanvas& canvas) {
  using namespace qxDrawTools;
  canvas.SetBrushColor(ColorOf('g'));
  for (Integer i = 0; i < 9; ++i) {
    const Integer left = 1 + i / 3 * 11;
    const Integer top = 1 + i % 3 * 6;
    DrawText(canvas, {left, top, left + 9, top + 5}, "ab", static_cast<TAlignmentEx>(i));
  }
  DrawText(canvas, {34, 1, 42, 5}, "ab", TAlignmentEx(9));
  DrawText(canvas, {35, 9, 40, 10}, "ab", aeAllCenter);  // too large: the halves go towards zero
}

inline void DrawCaption(TCanvas& canvas) {
  qxDrawTools::DrawTabset(canvas, {0, 0, 23, 6}, ColorOf('r'), ColorOf('g'), "abc", true);
}

// clang-format off
inline constexpr GoldenPicture kGoldenPictures[] = {
    {"bevels", 56, 8, DrawBevels,
     "........................................................\n"
     ".wwwwwwws.fffffffd.sssssssw.sssssssw.sssssssw.sssssssw..\n"
     ".wffffffs.fwwwwwsd.s......w.sdddddfw.srrrrrrw.sdddddfw..\n"
     ".wffffffs.fwffffsd.s......w.sd....fw.srrrrrrw.sdrrrrfw..\n"
     ".wffffffs.fwffffsd.s......w.sd....fw.srrrrrrw.sdrrrrfw..\n"
     ".wffffffs.fwsssssd.s......w.sdfffffw.srrrrrrw.sdfffffw..\n"
     ".wsssssss.fddddddd.swwwwwww.swwwwwww.swwwwwww.swwwwwww..\n"
     "........................................................\n"},
    {"triangles", 54, 9, DrawTriangles,
     "......................................................\n"
     "........rr......r......rr.........rrrrrrrrr..ggggggg..\n"
     ".....rrrrr.....rrr.....rrrrr.......rrrrrrr....ggggg...\n"
     "...rrrrrrr.....rrr.....rrrrrrr.....rrrrrrr.....ggg....\n"
     ".rrrrrrrrr....rrrrr....rrrrrrrrr....rrrrr.......g.....\n"
     "...rrrrrrr...rrrrrrr...rrrrrrr.......rrr..............\n"
     "......rrrr...rrrrrrr...rrrr..........rrr..............\n"
     "........rr..rrrrrrrrr..rr.............r...............\n"
     "......................................................\n"},
    {"tabs", 52, 15, DrawTabs,
     "....................................................\n"
     ".kkkkkkkkkkkkkkkkkkkkkkk...kkkkkkkkkkkkkkkkkkkkkkk..\n"
     ".krrrrrrrrrrrrrrrrrrrrk....krrrrrrrrrrrrrrrrrrrkk...\n"
     "..krrrrrrrrrrrrrrrrrrrk.....krrrrrrrrrrrrrrrrrk.....\n"
     "..krrrrrrrrrrrrrrrrrrk......krrrrrrrrrrrrrrrkk......\n"
     "...krrrrrrrrrrrrrrrrrk.......krrrrrrrrrrrrrkk.......\n"
     "...krrrrrrrrrrrrrrrrk........krrrrrrrrrrrrrrrkkk....\n"
     "....krrrrrrrrrrrrrrrk.........krrrrrrrrrrrrrrrrrkk..\n"
     "....krrrrrrrrrrrrrrk..........krrrrrrrrrrrrrrkkk....\n"
     ".....krrrrrrrrrrrrrk...........krrrrrrrrrrrkk.......\n"
     ".....krrrrrrrrrrrrk............krrrrrrrrrrrrkk......\n"
     "......krrrrrrrrrrrk.............krrrrrrrrrrrrrk.....\n"
     "......krrrrrrrrrrk..............krrrrrrrrrrrrrrkk...\n"
     ".......kkkkkkkkkkk...............kkkkkkkkkkkkkkkkk..\n"
     "....................................................\n"},
    {"frames", 36, 11, DrawFrames,
     ".............................888....\n"
     ".003..3..3..3.666....0666.3..8.8....\n"
     ".0..............7....28885....0.....\n"
     ".1..............7....28.85..........\n"
     "................7...................\n"
     ".1..............7...................\n"
     "................7...................\n"
     ".22...........888...................\n"
     ".22555555555558.8...................\n"
     "....................................\n"
     "....................................\n"},
    {"alignments", 44, 19, DrawAlignments,
     "............................................\n"
     ".kk.kk.......kk.kk........kk.kk...kk.kk.....\n"
     ".kk.kk.......kk.kk........kk.kk...kk.kk.....\n"
     "............................................\n"
     "............................................\n"
     "............................................\n"
     "............................................\n"
     "............................................\n"
     ".kk.kk.......kk.kk........kk.kk.............\n"
     ".kk.kk.......kk.kk........kk.kk....kk.kk....\n"
     "............................................\n"
     "............................................\n"
     "............................................\n"
     "............................................\n"
     "............................................\n"
     "............................................\n"
     ".kk.kk.......kk.kk........kk.kk.............\n"
     ".kk.kk.......kk.kk........kk.kk.............\n"
     "............................................\n"},
    {"caption", 24, 7, DrawCaption,
     "kkkkkkkkkkkkkkkkkkkkkkkk\n"
     ".krrrrrrrrrrrrrrrrrrrrk.\n"
     "..krrrrggrggrggrrrrrrk..\n"
     "...krrrggrggrggrrrrrk...\n"
     "....krrrrrrrrrrrrrrk....\n"
     ".....krrrrrrrrrrrrk.....\n"
     "......kkkkkkkkkkkk......\n"},
};
// clang-format on

}  // namespace qxTools::test
