#include <qxTools/base/Exceptions.h>
#include <qxTools/desktop/ButtonCaptions.h>
#include <qxTools/desktop/win32/Glyphs.h>
#include <qxTools/desktop/win32/Win32Dialogs.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace qxTools::desktop {

namespace {

// Controls by their numbers; a button that closes the dialog has its result.
constexpr int kHelp = 100;
constexpr int kText = 101;
constexpr int kIcon = 102;

/// Whether the user reads Chinese, by the language of the user interface or the thread's locale, which is the
/// user's unless it was set.
bool IsChinese() {
  return PRIMARYLANGID(::GetThreadUILanguage()) == LANG_CHINESE ||
         PRIMARYLANGID(LANGIDFROMLCID(::GetThreadLocale())) == LANG_CHINESE;
}

/// The lines of a message, which may end as on any system, with the ends that the system wants. A byte of
/// zeros would end the text.
std::wstring LinesOf(std::string_view message) {
  std::wstring lines;
  const std::wstring wide = ToWide(message);
  for (std::size_t i = 0; i < wide.size(); ++i) {
    const bool isPair = wide[i] == L'\r' && i + 1 < wide.size() && wide[i + 1] == L'\n';
    if (wide[i] == L'\n' || (wide[i] == L'\r' && !isPair))
      lines += L"\r\n";
    else if (!isPair)
      lines += wide[i] != L'\0' ? wide[i] : L' ';
  }
  return lines;
}

/// The name of the program's file, without its folder and extension.
std::wstring ApplicationName() {
  wchar_t path[MAX_PATH];
  std::wstring name(path, ::GetModuleFileNameW(nullptr, path, MAX_PATH));
  name.erase(0, name.find_last_of(L"\\/") + 1);
  return name.substr(0, name.rfind(L'.'));
}

LPCSTR IconOf(TDialogType type) {
  const LPCSTR icons[] = {IDI_WARNING, IDI_ERROR, IDI_INFORMATION, IDI_QUESTION};
  return icons[type];
}

RECT WorkArea() {
  RECT area{};
  ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  return area;
}

SIZE SizeOf(const RECT& rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

/// While it lives, no other window of this thread takes input.
class OthersDisabled {
 public:
  OthersDisabled() { ::EnumThreadWindows(::GetCurrentThreadId(), Disable, reinterpret_cast<LPARAM>(this)); }
  OthersDisabled(const OthersDisabled&) = delete;
  OthersDisabled& operator=(const OthersDisabled&) = delete;
  ~OthersDisabled() {
    for (HWND const window : windows_) ::EnableWindow(window, TRUE);
  }

 private:
  static BOOL CALLBACK Disable(HWND window, LPARAM self) {
    if (::IsWindowVisible(window) == FALSE || ::IsWindowEnabled(window) == FALSE) return TRUE;
    reinterpret_cast<OthersDisabled*>(self)->windows_.push_back(window);
    ::EnableWindow(window, FALSE);
    return TRUE;
  }

  std::vector<HWND> windows_;
};

class Dialog final : public MessageDialog {
 public:
  Dialog(std::string_view message, TDialogType type, TDialogButtons buttons)
      : text_(LinesOf(message)),
        type_(type),
        buttons_(buttons),
        caption_(type < dtCustom ? ToWide(GetDialogCaption(type)) : ApplicationName()) {}
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;
  ~Dialog() override { ::DestroyWindow(window_); }

  /// A message has no help of its own, whatever the context.
  void SetHelpContext(Integer) override {}
  void SetCaption(std::string_view caption) override { caption_ = ToWide(caption); }
  void CenterOnScreen() override { isCentered_ = true; }

  Integer ShowModal() override {
    HWND const owner = ::GetActiveWindow();
    {
      // Until just before the window is destroyed: one of the others becomes active then.
      const OthersDisabled others;
      MakeWindow(owner);
      ::ShowWindow(window_, SW_SHOW);
      while (result_ == 0 && window_ != nullptr) HandleMessage();
    }
    ::DestroyWindow(window_);
    return std::exchange(result_, 0);
  }

 private:
  // --- Size and place -----------------------------------------------------------
  SIZE Measure(std::wstring_view text, int width, UINT flags) const {
    RECT rect{0, 0, width, 0};
    ::DrawTextW(context_.Get(), text.data(), static_cast<int>(text.size()), &rect, flags | DT_CALCRECT);
    return SizeOf(rect);
  }

  /// The width that shows the whole caption between the window's icon and its button.
  int CaptionWidth() const {
    return Measure(caption_, 0, DT_NOPREFIX).cx + 4 * ::GetSystemMetrics(SM_CYCAPTION);
  }

  /// In the middle of the screen or of the window that it is over.
  void Place(HWND owner, int width, int height) const {
    RECT outer{0, 0, width, height};
    ::AdjustWindowRectEx(&outer, static_cast<DWORD>(::GetWindowLongW(window_, GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongW(window_, GWL_EXSTYLE)));
    RECT around = WorkArea();
    if (!isCentered_ && owner != nullptr) ::GetWindowRect(owner, &around);
    const SIZE size = SizeOf(outer);
    const SIZE room = SizeOf(around);
    ::SetWindowPos(window_, nullptr, around.left + (room.cx - size.cx) / 2,
                   around.top + (room.cy - size.cy) / 2, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  }

  // --- The window -----------------------------------------------------------------
  void MakeWindow(HWND owner) {
    const struct {
      DLGTEMPLATE head{
          WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, WS_EX_DLGMODALFRAME, 0, 0, 0, 0, 0};
      WORD menuClassCaption[3]{};
    } blank;
    ::CreateDialogIndirectParamW(::GetModuleHandleW(nullptr), &blank.head, owner, Handle,
                                 reinterpret_cast<LPARAM>(this));
    if (window_ == nullptr) throw Exception("The message cannot be shown");
    ::SetWindowTextW(window_, caption_.c_str());
    const SIZE icon = MakeIcon();
    const SIZE text = MakeText(margin_ + icon.cx);
    const int buttons = ButtonsWidth();
    const int most = SizeOf(WorkArea()).cx * 3 / 4;
    const int content = std::max(
        {icon.cx + text.cx, static_cast<LONG>(buttons), static_cast<LONG>(std::min(CaptionWidth(), most))});
    const int top = 2 * margin_ + std::max(icon.cy, text.cy);
    MakeButtons(margin_ + content - buttons, top);
    Place(owner, content + 2 * margin_, top + buttonHeight_ + margin_);
  }

  HWND MakeControl(int id, const wchar_t* kind, const std::wstring& text, DWORD style,
                   const RECT& place) const {
    const SIZE size = SizeOf(place);
    HWND const control = ::CreateWindowExW(
        0, kind, text.c_str(), WS_CHILD | WS_VISIBLE | style, place.left, place.top, size.cx, size.cy,
        window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(context_.Font()), FALSE);
    return control;
  }

  /// Returns the room that it takes.
  SIZE MakeIcon() const {
    if (type_ >= dtCustom) return {0, 0};
    const SIZE size{::GetSystemMetrics(SM_CXICON), ::GetSystemMetrics(SM_CYICON)};
    const RECT place{margin_, margin_, margin_ + size.cx, margin_ + size.cy};
    HWND const icon = MakeControl(kIcon, L"STATIC", L"", SS_ICON, place);
    ::SendMessageW(icon, STM_SETICON, reinterpret_cast<WPARAM>(::LoadIconA(nullptr, IconOf(type_))), 0);
    return {size.cx + margin_, size.cy};
  }

  /// Wraps the text at half the screen's width, and lets it scroll above three quarters of its height.
  /// Returns the room that it takes.
  SIZE MakeText(int left) const {
    const SIZE screen = SizeOf(WorkArea());
    const int natural = Measure(text_, 0, DT_NOPREFIX | DT_EXPANDTABS).cx + line_;
    SIZE size{std::min<LONG>(natural, screen.cx / 2), line_};
    HWND const text =
        MakeControl(kText, L"EDIT", L"", ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_TABSTOP,
                    {left, margin_, left + size.cx, margin_ + size.cy});
    ::SendMessageW(text, EM_SETLIMITTEXT, 0, 0);
    ::SetWindowTextW(text, text_.c_str());
    const LRESULT lines = ::SendMessageW(text, EM_GETLINECOUNT, 0, 0);
    const LONG most = screen.cy * 3 / 4;
    size.cy = static_cast<LONG>(std::min<LRESULT>((lines + 1) * line_, most));
    if (lines * line_ > most) {
      ::ShowScrollBar(text, SB_VERT, TRUE);
      size.cx += ::GetSystemMetrics(SM_CXVSCROLL);
    }
    ::SetWindowPos(text, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    return size;
  }

  // --- Buttons --------------------------------------------------------------------
  std::vector<TDialogButton> Buttons() const {
    std::vector<TDialogButton> all;
    for (TDialogButtons button = dbYes; button <= dbHelp; button <<= 1)
      if ((buttons_ & button) != 0) all.push_back(static_cast<TDialogButton>(button));
    return all;
  }

  static std::wstring TextOf(TDialogButton button) {
    const ButtonCaption& caption = CaptionOf(button);
    return ToWide(IsChinese() ? caption.chinese : caption.english);
  }

  int WidthOf(TDialogButton button) const {
    return std::max<int>(Measure(TextOf(button), 0, 0).cx + 2 * line_, 5 * line_);
  }

  int ButtonsWidth() const {
    int width = 0;
    for (const TDialogButton button : Buttons()) width += WidthOf(button) + (width > 0 ? gap_ : 0);
    return width;
  }

  void MakeButtons(int left, int top) const {
    const TDialogButtons chosen = DefaultButton(buttons_);
    for (const TDialogButton button : Buttons()) {
      const int id = button == dbHelp ? kHelp : GetDialogResult(button);
      const RECT place{left, top, left + WidthOf(button), top + buttonHeight_};
      const DWORD style = WS_TABSTOP | (button == chosen ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
      HWND const made = MakeControl(id, L"BUTTON", TextOf(button), style, place);
      if (button == chosen) ::SetFocus(made);
      left = place.right + gap_;
    }
    if (chosen != 0)
      ::SendMessageW(window_, DM_SETDEFID,
                     static_cast<WPARAM>(GetDialogResult(static_cast<TDialogButton>(chosen))), 0);
  }

  // --- Answering ------------------------------------------------------------------
  void HandleMessage() {
    MSG message{};
    if (::GetMessageW(&message, nullptr, 0, 0) <= 0) {  // the program ends
      ::PostQuitMessage(static_cast<int>(message.wParam));
      result_ = closeResult_;
    } else if (IsCopyKey(message)) {
      CopyText();
    } else if (::IsDialogMessageW(window_, &message) == FALSE) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
  }

  bool IsCopyKey(const MSG& message) const {
    return message.message == WM_KEYDOWN && (message.wParam == 'C' || message.wParam == VK_INSERT) &&
           ::GetKeyState(VK_CONTROL) < 0 && ::IsChild(window_, message.hwnd) != FALSE;
  }

  bool HasSelection() const {
    DWORD from = 0;
    DWORD to = 0;
    ::SendDlgItemMessageW(window_, kText, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                          reinterpret_cast<LPARAM>(&to));
    return from != to;
  }

  /// The keys for copying take the whole message, unless a part of it is selected.
  void CopyText() const {
    const bool isWhole = !HasSelection();
    if (isWhole) ::SendDlgItemMessageW(window_, kText, EM_SETSEL, 0, -1);
    ::SendDlgItemMessageW(window_, kText, WM_COPY, 0, 0);
    if (isWhole) ::SendDlgItemMessageW(window_, kText, EM_SETSEL, 0, 0);
  }

  void Click(int id) {
    if (id == IDCANCEL)
      result_ = closeResult_;
    else if (id < kHelp && ::GetDlgItem(window_, id) != nullptr)
      result_ = id;
  }

  static INT_PTR CALLBACK Handle(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
      ::SetWindowLongPtrW(window, DWLP_USER, second);
      reinterpret_cast<Dialog*>(second)->window_ = window;
      return FALSE;
    }
    auto* const dialog = reinterpret_cast<Dialog*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) return FALSE;
    if (message == WM_COMMAND && HIWORD(first) == BN_CLICKED) dialog->Click(LOWORD(first));
    if (message == WM_DESTROY) dialog->Forget();
    return FALSE;
  }

  /// The window is destroyed with the one that it is over, too.
  void Forget() {
    window_ = nullptr;
    if (result_ == 0) result_ = closeResult_;
  }

  const std::wstring text_;
  const TDialogType type_;
  const TDialogButtons buttons_;
  const Integer closeResult_ = GetCloseResult(buttons_);
  std::wstring caption_;
  bool isCentered_ = false;
  const MemoryContext context_;
  const Integer line_ = MeasureGlyphs(context_.Get(), "").Y;
  const Integer margin_ = line_;
  const Integer gap_ = line_ / 2;
  const Integer buttonHeight_ = line_ * 7 / 4;
  HWND window_ = nullptr;
  Integer result_ = 0;
};

}  // namespace

std::unique_ptr<MessageDialog> Win32Dialogs::CreateMessageDialog(std::string_view message, TDialogType type,
                                                                 TDialogButtons buttons) {
  return std::make_unique<Dialog>(message, type, buttons);
}

}  // namespace qxTools::desktop
