#include <qxTools/desktop/win32/Win32Screen.h>
#include <windows.h>

namespace qxTools::desktop {

TPoint Win32Screen::GetScreenSize() {
  return {::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
}

bool Win32Screen::GetWindowRect(WindowHandle window, TRect& rect) {
  RECT place{};
  if (::GetWindowRect(reinterpret_cast<HWND>(window), &place) == FALSE) return false;
  rect = {place.left, place.top, place.right, place.bottom};
  return true;
}

}  // namespace qxTools::desktop
