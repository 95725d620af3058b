#pragma once

#include <gtest/gtest.h>
#include <qxTools/painting/Screen.h>
#include <qxTools/painting/SystemColors.h>
#include <qxTools/painting/TextPainter.h>
#include <qxTools/shell/QXDialogs.h>

#include "support/MessageOf.h"
#include "support/Picture.h"

namespace qxTools::test {

/// The desktop paints text on bitmaps, and inside the clip.
inline void ExpectTextInsideTheClip() {
  const char* const order = "\xAD\x71\xB3\xE6";  // 訂單
  Paper paper(60, 40);
  const std::string empty = TextOf(paper);
  TCanvas& canvas = paper.GetCanvas();
  EXPECT_GT(canvas.TextWidth(order), 0);
  EXPECT_EQ(canvas.TextHeight(order), canvas.TextHeight(""));
  canvas.SetBrushStyle(bsClear);
  canvas.TextRect({10, 12, 20, 18}, 8, 8, order);
  EXPECT_NE(TextOf(paper), empty);
  EXPECT_EQ(paper.GetRow(13)[12] >> 24, 0xFFU);
  canvas.SetBrushColor(ColorOf('.'));
  canvas.FillRect({10, 12, 20, 18});
  EXPECT_EQ(TextOf(paper), empty);
}

/// Everything that the desktop plugged in is taken out again.
inline void ExpectNoDesktop() {
  EXPECT_EQ(ColorToRGB(clBtnFace), 0xC0C0C0U);
  EXPECT_EQ(GetTextPainter(), nullptr);
  EXPECT_EQ(GetScreenSize().X, 2147483647);
  EXPECT_EQ(MessageOf([] { QXDialogs::ShowMessageBox("a", ""); }), "No dialog service");
}

}  // namespace qxTools::test
