#include <windows.h>
// After windows.h, whose macros they must survive.
#include <qxTools/desktop/Desktop.h>
#include <qxTools/shell/QXDialogs.h>

#include "support/Testing.h"

namespace qxTools::test {

namespace {

using QXDialogs::QX_MessageBox;

constexpr TDialogButtons kAllButtons = (1U << 11) - 1;
constexpr int kText = 101;

struct Box {
  TDialogButtons buttons = dbOK;
  TDialogType type = dtConfirmation;
  std::string_view title = "";
  std::string_view message = "<b>A&B</b>\n\xAD\x71\xB3\xE6\r\nC";  // 訂單
};

std::function<void(HWND)> action;

void CALLBACK Act(HWND, UINT, UINT_PTR timer, DWORD) {
  HWND const window = ::FindWindowW(L"#32770", nullptr);
  if (window == nullptr || ::IsWindowVisible(window) == FALSE) return;
  ::KillTimer(nullptr, timer);
  action(window);
  ::PostMessageW(window, WM_CLOSE, 0, 0);
}

/// Shows a dialog, does something with its window once it is open, and closes it if that does not.
Integer Answer(const Box& box, std::function<void(HWND)> wanted) {
  const desktop::Desktop desktop;
  action = std::move(wanted);
  ::SetTimer(nullptr, 0, 10, Act);
  return QX_MessageBox(box.message, box.type, box.buttons, box.title);
}

void Click(HWND window, int id) { ::PostMessageW(::GetDlgItem(window, id), BM_CLICK, 0, 0); }

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

SIZE SizeOf(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  return {rect.right - rect.left, rect.bottom - rect.top};
}

std::wstring Clipboard() {
  if (::OpenClipboard(nullptr) == FALSE) return L"(cannot be opened)";
  const auto* const text = static_cast<const wchar_t*>(::GlobalLock(::GetClipboardData(CF_UNICODETEXT)));
  const std::wstring copy = text != nullptr ? text : L"(no text)";
  ::CloseClipboard();
  return copy;
}

void Press(HWND window, WPARAM key, bool control = false) {
  BYTE keys[256]{};
  keys[VK_CONTROL] = control ? 0x80 : 0;
  ::SetKeyboardState(keys);
  ::PostMessageW(window, WM_KEYDOWN, key, 1);
}

TEST(Win32Dialogs, EveryButtonHasItsResultAndHelpLeavesTheDialogOpen) {
  for (Integer result = 1; result <= 10; ++result)
    EXPECT_EQ(Answer({kAllButtons},
                     [result](HWND window) {
                       ::SendMessageW(::GetDlgItem(window, 100), BM_CLICK, 0, 0);
                       Click(window, result);
                     }),
              result);
  Answer({dbYes | dbHelp}, [](HWND window) {
    EXPECT_EQ(TextOf(::GetDlgItem(window, IDYES)), L"&Yes");
    for (const int id : {IDOK, IDCANCEL, IDNO, 10}) EXPECT_EQ(::GetDlgItem(window, id), nullptr);
  });
}

TEST(Win32Dialogs, ClosingAnswersAsTheOnlyButtonOrAsCancelAndEnterAsTheDefault) {
  const auto nothing = [](HWND) {};
  const auto enter = [](HWND) { Press(::GetFocus(), VK_RETURN); };
  const auto escape = [](HWND) { Press(::GetFocus(), VK_ESCAPE); };
  // clang-format off
  const std::tuple<int, TDialogButtons, std::function<void(HWND)>, Integer> rows[] = {
    {__LINE__, dbYes | dbNo, nothing, 2}, {__LINE__, dbOK | dbHelp, nothing, 1},
    {__LINE__, dbOK | dbHelp, escape, 1}, {__LINE__, dbYes | dbNo, escape, 2},
    {__LINE__, dbNo | dbYes, enter, 6}, {__LINE__, dbCancel | dbOK | dbYes, enter, 1},
    {__LINE__, dbAbort | dbRetry | dbIgnore, enter, 4}, {__LINE__, 0, escape, 2}};
  // clang-format on
  for (const auto& [line, buttons, act, want] : rows) EXPECT_EQ(Answer({buttons}, act), want) << line;
}

TEST(Win32Dialogs, CaptionsAreThoseOfTheTypeUnlessGiven) {
  const auto expect = [](TDialogType type, const char* title, const std::wstring& caption) {
    Answer({dbOK, type, title}, [&](HWND window) {
      EXPECT_EQ(TextOf(window), caption);
      EXPECT_EQ(::GetDlgItem(window, 102) != nullptr, type != dtCustom);
    });
  };
  // In the types' order.
  const wchar_t* const captions[] = {L"Warning", L"Error", L"Information", L"Confirm"};
  for (int i = dtWarning; i <= dtConfirmation; ++i) expect(static_cast<TDialogType>(i), "", captions[i]);
  expect(dtCustom, "", L"Win32Dialogs_test");
  expect(dtWarning, "\xAD\x71&\xB3\xE6", L"\x8A02&\x55AE");
}

TEST(Win32Dialogs, TextIsPlainAndIsCopiedWholeOrInPart) {
  const std::wstring whole = L"<b>A&B</b>\r\n\x8A02\x55AE\r\nC";
  Answer({}, [&](HWND window) {
    HWND const text = ::GetDlgItem(window, kText);
    EXPECT_EQ(TextOf(text), whole);
    EXPECT_EQ(::SendMessageW(text, EM_GETLINECOUNT, 0, 0), 3);
    Press(::GetFocus(), 'C', true);
    Click(window, IDOK);
  });
  EXPECT_EQ(Clipboard(), whole);
  Answer({}, [](HWND window) {
    HWND const text = ::GetDlgItem(window, kText);
    ::SendMessageW(text, EM_SETSEL, 3, 6);
    Press(::GetFocus(), 'C', true);
    Click(window, IDOK);
  });
  EXPECT_EQ(Clipboard(), L"A&B");
}

TEST(Win32Dialogs, LongTextWrapsOrScrolls) {
  const int screenWidth = ::GetSystemMetrics(SM_CXSCREEN);
  const int screenHeight = ::GetSystemMetrics(SM_CYSCREEN);
  std::string words;
  std::string lines;
  for (int i = 0; i < 200; ++i) words += "\xAD\x71\xB3\xE6 ", lines += "line\n";
  for (const auto& [message, scrolls] :
       {std::pair(words, false), {lines, true}, {std::string(9000, 'x'), true}})
    Answer({dbOK, dtError, "", message}, [&, scrolls = scrolls](HWND window) {
      HWND const text = ::GetDlgItem(window, kText);
      EXPECT_EQ((::GetWindowLongW(text, GWL_STYLE) & WS_VSCROLL) != 0, scrolls) << TextOf(text).substr(0, 9);
      EXPECT_TRUE(SizeOf(window).cx < screenWidth && SizeOf(window).cy < screenHeight);
      EXPECT_GT(::SendMessageW(text, EM_GETLINECOUNT, 0, 0), 1);
      EXPECT_EQ(TextOf(text).find(L'\0'), std::wstring::npos);
    });
}

TEST(Win32Dialogs, ButtonsAreChineseOnAChineseDesktop) {
  const LCID before = ::GetThreadLocale();
  ::SetThreadLocale(MAKELCID(MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL), SORT_DEFAULT));
  Answer({kAllButtons}, [](HWND window) {
    EXPECT_EQ(TextOf(::GetDlgItem(window, IDYES)), L"\x662F(&Y)");
    EXPECT_EQ(TextOf(::GetDlgItem(window, 8)), L"\x5168\x90E8(&A)");
  });
  ::SetThreadLocale(before);
}

TEST(Win32Dialogs, TheEndOfTheProgramClosesTheDialogAndIsPassedOn) {
  EXPECT_EQ(Answer({dbYes | dbNo}, [](HWND) { ::PostQuitMessage(7); }), 2);
  MSG message;
  EXPECT_NE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), FALSE);
  EXPECT_EQ(message.wParam, 7U);
}

TEST(Win32Dialogs, OtherWindowsAreDisabledMeanwhileAndMayBeDestroyed) {
  const auto makeWindow = [](DWORD style) {
    return ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | style, 0, 0, 300, 200, nullptr,
                             nullptr, nullptr, nullptr);
  };
  HWND const windows[] = {makeWindow(0), makeWindow(0), makeWindow(WS_DISABLED)};
  const auto enabled = [&windows] {
    int count = 0;
    for (HWND const window : windows) count += ::IsWindowEnabled(window);
    return count;
  };
  for (HWND const active : {windows[0], HWND{nullptr}}) {
    ::SetActiveWindow(active);
    EXPECT_EQ(Answer({dbYes}, [&](HWND) { EXPECT_EQ(enabled(), 0); }), 6);
    EXPECT_EQ(enabled(), 2);
  }
  ::SetActiveWindow(windows[0]);
  EXPECT_EQ(Answer({dbYes | dbNo}, [&](HWND) { ::DestroyWindow(windows[0]); }), 2);
  EXPECT_EQ(enabled(), 1);
  for (HWND const window : windows) ::DestroyWindow(window);
}

}  // namespace

}  // namespace qxTools::test
