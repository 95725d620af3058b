#pragma once

#include <qxTools/graphics/qxDrawTools.h>

#include <random>

#include "support/Picture.h"

namespace qxTools::test {

constexpr char kStamp[] = "012\n345\n";

/// Random lines, polygons, fills and copies of `stamp`, the same for the same seed, under controls and a
/// frame.
inline void DrawAtRandom(TCanvas& canvas, unsigned seed, const char* stamp = kStamp) {
  std::mt19937 random(seed);
  const auto place = [&random] { return static_cast<Integer>(random() % 90) - 15; };
  const auto rect = [&place] { return TRect{place(), place(), place(), place()}; };
  TBitmap bitmap;
  Paint(bitmap, stamp);
  for (int i = 0; i < 8; ++i) {
    canvas.SetPenColor(kInks[random() % std::size(kInks)].color);
    canvas.SetBrushColor(kInks[random() % std::size(kInks)].color);
    const TPoint corners[] = {{place(), place()}, {place(), place()}, {place(), place()}};
    canvas.Polygon(corners);
    canvas.LineTo(place(), place());
    canvas.FillRect(rect());
    canvas.CopyRect(rect(), bitmap, rect());
    canvas.CopyRect(rect(), bitmap);
  }
  qxDrawTools::DrawButton(canvas, {1, 1, 20, 10}, true);
  qxDrawTools::DrawBox(canvas, {22, 1, 40, 10}, false);
  for (const auto direction : {qxDrawTools::daLeft, qxDrawTools::daTop})
    qxDrawTools::Draw3Angle(canvas, {1, 12, 20, 30}, direction, ColorOf('r'));
  qxDrawTools::DrawTabset(canvas, {22, 12, 60, 24}, ColorOf('r'), 0, "", false);
  qxDrawTools::TFrameBitmaps pieces;
  for (TBitmap& piece : pieces) Paint(piece, stamp);
  qxDrawTools::DrawFrameWithBMP(canvas, {1, 32, 60, 60}, pieces);
}

}  // namespace qxTools::test
