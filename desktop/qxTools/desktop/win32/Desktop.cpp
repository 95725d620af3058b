#include <qxTools/desktop/Desktop.h>
#include <qxTools/desktop/Services.h>
#include <qxTools/desktop/win32/BitmapText.h>
#include <qxTools/desktop/win32/Win32Dialogs.h>
#include <qxTools/desktop/win32/Win32Screen.h>
#include <windows.h>

namespace qxTools::desktop {

namespace {

SystemColorTable ReadSystemColors() {
  SystemColorTable table;
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = ::GetSysColor(static_cast<int>(i));
  return table;
}

LRESULT CALLBACK FollowColors(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_SYSCOLORCHANGE) SetSystemColors(ReadSystemColors());
  return ::DefWindowProcW(window, message, first, second);
}

}  // namespace

class Desktop::Parts {
 public:
  Parts() {
    SetSystemColors(ReadSystemColors());
    ::SetWindowLongPtrW(listener_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(FollowColors));
  }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;
  ~Parts() { ::DestroyWindow(listener_); }

 private:
  BitmapText text_;
  Win32Screen screen_;
  Win32Dialogs dialogs_;
  const Services services_{text_, screen_, dialogs_};
  // Never shown. The system reports changed colours to windows.
  HWND const listener_ =
      ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
};

Desktop::Desktop() : parts_(std::make_unique<Parts>()) {}

Desktop::~Desktop() = default;

}  // namespace qxTools::desktop
