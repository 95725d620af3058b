#include <windows.h>
// After windows.h, whose macros they must survive.
#include <qxTools/desktop/Desktop.h>
#include <qxTools/graphics/qxDrawTools.h>

#include "desktop/Checks.h"

namespace qxTools::test {

namespace {

TEST(Desktop, TextOnBitmapsIsPaintedInsideTheClip) {
  const desktop::Desktop desktop;
  ExpectTextInsideTheClip();
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
  ExpectNoDesktop();
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
