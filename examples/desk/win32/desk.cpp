// The library on Windows: an order form whose bevels, triangles, tabs, text and frame the library paints. The
// frame file is beside the program.
#include <windows.h>
// After windows.h, whose macros they must survive.
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/desktop/Desktop.h>
#include <qxTools/desktop/win32/GdiCanvas.h>

#include "../OrderForm.h"

namespace {

/// The name of a file beside the program.
std::string Beside(const char* name) {
  wchar_t path[MAX_PATH];
  const std::wstring program(path, ::GetModuleFileNameW(nullptr, path, MAX_PATH));
  const std::wstring folder = program.substr(0, program.find_last_of(L'\\') + 1);
  return qxTools::WideToBytes(std::u16string(folder.begin(), folder.end())) + name;
}

/// A font of so many points.
class Font {
 public:
  explicit Font(double points) : font_(Make(points)) {}
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;
  ~Font() { ::DeleteObject(font_); }
  HFONT Get() const { return font_; }

 private:
  static HFONT Make(double points) {
    const HDC screen = ::GetDC(nullptr);
    const int height = static_cast<int>(points * ::GetDeviceCaps(screen, LOGPIXELSY) / 72);
    ::ReleaseDC(nullptr, screen);
    return ::CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, CHINESEBIG5_CHARSET,
                         OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH,
                         L"Microsoft JhengHei UI");
  }

  HFONT font_;
};

/// The form as a window.
class Window {
 public:
  Window() {
    WNDCLASSW kind{};
    kind.lpfnWndProc = Handle;
    kind.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
    kind.lpszClassName = L"Order";
    ::RegisterClassW(&kind);
    constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
    RECT size{0, 0, desk::kWidth, desk::kHeight};
    ::AdjustWindowRect(&size, kStyle, FALSE);
    window_ =
        ::CreateWindowW(L"Order", L"qxTools", kStyle, CW_USEDEFAULT, CW_USEDEFAULT, size.right - size.left,
                        size.bottom - size.top, nullptr, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::ShowWindow(window_, SW_SHOW);
  }

 private:
  void Paint() {
    PAINTSTRUCT paint;
    PaintOn(::BeginPaint(window_, &paint));
    ::EndPaint(window_, &paint);
  }

  void PaintOn(HDC context) const {
    qxTools::desktop::GdiCanvas canvas(context);  // gives the context its font back
    const auto setLargeText = [&](bool isLarge) {
      ::SelectObject(context, (isLarge ? large_ : normal_).Get());
    };
    setLargeText(false);
    form_.Paint(canvas, setLargeText);
  }

  void Click(LPARAM place) {
    const bool ends = form_.Click({static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))});
    ::InvalidateRect(window_, nullptr, FALSE);
    if (ends) ::DestroyWindow(window_);
  }

  static LRESULT CALLBACK Handle(HWND handle, UINT message, WPARAM first, LPARAM second) {
    auto* const window = reinterpret_cast<Window*>(::GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (message == WM_DESTROY) ::PostQuitMessage(0);
    if (window != nullptr && message == WM_PAINT) return window->Paint(), 0;
    if (window != nullptr && message == WM_LBUTTONUP) return window->Click(second), 0;
    return ::DefWindowProcW(handle, message, first, second);
  }

  desk::OrderForm form_{Beside("frame.dw1")};
  const Font normal_{11};
  const Font large_{16.5};
  HWND window_;
};

void Run() {
  const qxTools::desktop::Desktop desktop;
  Window window;  // receives messages by its address
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  try {
    Run();
    return 0;
  } catch (const qxTools::Exception& e) {
    ::MessageBoxA(nullptr, e.what(), "desk", MB_ICONERROR);
    return 1;
  }
}
