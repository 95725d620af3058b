#include "desktop/win32/Surface.h"
// After windows.h, whose macros they must survive.
#include <qxTools/desktop/Desktop.h>
#include <qxTools/graphics/qxDrawTools.h>
#include <qxTools/painting/Screen.h>
#include <qxTools/painting/SystemColors.h>
#include <qxTools/painting/TextPainter.h>
#include <qxTools/shell/QXDialogs.h>

#include "support/Picture.h"
#include "support/Testing.h"

namespace qxTools::test {

namespace {

constexpr char kOrder[] = "\xAD\x71\xB3\xE6";  // 訂單

TEST(Desktop, TextOnBitmapsIsPaintedInsideTheClip) {
  const desktop::Desktop desktop;
  const Paper empty(60, 40);
  Paper paper(60, 40);
  TCanvas& canvas = paper.GetCanvas();
  EXPECT_GT(canvas.TextWidth(kOrder), 0);
  EXPECT_EQ(canvas.TextHeight(kOrder), canvas.TextHeight(""));
  canvas.SetBrushStyle(bsClear);
  canvas.TextRect({10, 12, 20, 18}, 8, 8, kOrder);
  EXPECT_GT(Differences(paper, empty), 0);
  EXPECT_EQ(paper.GetRow(13)[12] >> 24, 0xFFU);
  canvas.SetBrushColor(ColorOf('.'));
  canvas.FillRect({10, 12, 20, 18});
  EXPECT_EQ(Differences(paper, empty), 0);
}

TEST(Desktop, SystemColorsAreTheSystemsAndFollowIt) {
  const int face = COLOR_BTNFACE;
  const COLORREF before = ::GetSysColor(face);
  {
    const desktop::Desktop desktop;
    EXPECT_EQ(ColorToRGB(clBtnFace), before);
    EXPECT_EQ(ColorToRGB(clBtnShadow), ::GetSysColor(COLOR_BTNSHADOW));
    const COLORREF changed = 0x010203;
    ::SetSysColors(1, &face, &changed);
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
    EXPECT_EQ(ColorToRGB(clBtnFace), changed);
    ::SetSysColors(1, &face, &before);
  }
  // Everything is taken out again.
  EXPECT_EQ(ColorToRGB(clBtnFace), 0xC0C0C0U);
  EXPECT_EQ(GetTextPainter(), nullptr);
  EXPECT_EQ(GetScreenSize().X, 2147483647);
  EXPECT_EQ(MessageOf([] { QXDialogs::ShowMessageBox("a", ""); }), "No dialog service");
}

TEST(Desktop, TheScreenAndItsWindowsAreKnown) {
  const desktop::Desktop desktop;
  EXPECT_EQ(GetScreenSize().X, ::GetSystemMetrics(SM_CXSCREEN));
  EXPECT_EQ(GetScreenSize().Y, ::GetSystemMetrics(SM_CYSCREEN));
  HWND const window =
      ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 40, 50, 200, 100, nullptr, nullptr, nullptr, nullptr);
  HWND const control =
      ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 10, 20, 80, 25, window, nullptr, nullptr, nullptr);
  const auto handle = reinterpret_cast<WindowHandle>(control);
  TRect rect;
  ASSERT_TRUE(GetWindowRect(handle, rect));
  EXPECT_EQ(rect, (TRect{50, 70, 130, 95}));
  EXPECT_EQ(qxDrawTools::GetControlPos(handle), (TPoint{50, 95}));
  ::DestroyWindow(window);
  EXPECT_FALSE(GetWindowRect(handle, rect));
}

}  // namespace

}  // namespace qxTools::test
