#include <qxTools/platform/Locale.h>
#include <qxTools/platform/windows/WideText.h>
#include <windows.h>

namespace qxTools {

namespace {

std::wstring Format(LCTYPE what) {
  wchar_t text[128];
  const int length = ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, what, text, 128);
  return length > 0 ? std::wstring(text, static_cast<std::size_t>(length) - 1) : L"";
}

/// What strftime has for a run of `count` letters of the system's pattern.
std::string Directive(wchar_t letter, std::size_t count) {
  if (letter == L'd') return count > 2 ? "%a" : "%d";
  if (letter == L'M') return count > 2 ? "%b" : "%m";
  if (letter == L'y') return count > 2 ? "%Y" : "%y";
  return "";
}

/// A date pattern of the system, "yyyy/M/d", as strftime takes it, "%Y/%m/%d".
std::string DatePattern(std::wstring_view pattern) {
  std::string result;
  bool isQuoted = false;
  for (std::size_t i = 0; i < pattern.size();) {
    const wchar_t c = pattern[i];
    const std::size_t end = std::min(pattern.find_first_not_of(c, i), pattern.size());
    const std::string directive = isQuoted ? "" : Directive(c, end - i);
    if (c == L'\'') {
      isQuoted = !isQuoted;
    } else if (!directive.empty()) {
      result += directive;
      i = end - 1;
    } else {
      result += c == L'%' ? "%%" : FromWide({&c, 1});
    }
    ++i;
  }
  return result;
}

}  // namespace

LocaleFormats CurrentLocaleFormats() {
  return {DatePattern(Format(LOCALE_SSHORTDATE)), FromWide(Format(LOCALE_SDECIMAL))};
}

}  // namespace qxTools
