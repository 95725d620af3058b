#include <qxTools/base/CodePage950.h>
#include <qxTools/desktop/win32/Glyphs.h>

#include <algorithm>
#include <new>

namespace qxTools::desktop {

namespace {

/// The system takes no more characters at a time.
constexpr std::size_t kMost = 8000;

/// The first characters of a text that the system takes at a time; a pair of units is not separated.
std::wstring_view Piece(std::wstring_view text) {
  if (text.size() <= kMost) return text;
  return text.substr(0, IS_HIGH_SURROGATE(text[kMost - 1]) ? kMost - 1 : kMost);
}

Integer WidthOf(HDC context, std::wstring_view piece) {
  SIZE size{};
  ::GetTextExtentPoint32W(context, piece.data(), static_cast<int>(piece.size()), &size);
  return size.cx;
}

}  // namespace

std::wstring ToWide(std::string_view text) {
  const WideString units = BytesToWide(text);
  return {units.begin(), units.end()};
}

TPoint MeasureGlyphs(HDC context, std::string_view text) {
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(context, &metrics);
  const std::wstring wide = ToWide(text);
  TPoint size{0, metrics.tmHeight};
  for (std::wstring_view left = wide; !left.empty(); left.remove_prefix(Piece(left).size()))
    size.X += WidthOf(context, Piece(left));
  return size;
}

void PaintGlyphs(HDC context, const TRect& clip, const TPoint& at, std::string_view text, TColor color) {
  ::SetBkMode(context, TRANSPARENT);
  ::SetTextAlign(context, TA_LEFT | TA_TOP);
  ::SetTextColor(context, color);
  const RECT sides = ToRect(clip);
  const std::wstring wide = ToWide(text);
  Integer x = at.X;
  for (std::wstring_view left = wide; !left.empty(); left.remove_prefix(Piece(left).size())) {
    const std::wstring_view piece = Piece(left);
    ::ExtTextOutW(context, x, at.Y, ETO_CLIPPED, &sides, piece.data(), static_cast<UINT>(piece.size()),
                  nullptr);
    x += WidthOf(context, piece);
  }
}

MemoryContext::MemoryContext() : context_(::CreateCompatibleDC(nullptr)) {
  if (context_ == nullptr) throw std::bad_alloc();
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  font_ = ::CreateFontIndirectW(&metrics.lfMessageFont);
  ::SelectObject(context_, font_);
}

MemoryContext::~MemoryContext() {
  ::DeleteDC(context_);
  ::DeleteObject(font_);
}

}  // namespace qxTools::desktop
