// Text as GDI measures and paints it, in the font that a device context has.
#pragma once

#include <qxTools/painting/Geometry.h>
#include <windows.h>

#include <string>
#include <string_view>

namespace qxTools::desktop {

/// The wide form of text in code page 950, by the library's own table.
std::wstring ToWide(std::string_view text);

inline RECT ToRect(const TRect& rect) { return {rect.Left, rect.Top, rect.Right, rect.Bottom}; }

/// Width and height of one line of text.
TPoint MeasureGlyphs(HDC context, std::string_view text);

/// Paints nothing outside `clip`; `at` is the top left of the text.
void PaintGlyphs(HDC context, const TRect& clip, const TPoint& at, std::string_view text, TColor color);

/// A device context in memory that has the font of message boxes.
class MemoryContext {
 public:
  MemoryContext();
  MemoryContext(const MemoryContext&) = delete;
  MemoryContext& operator=(const MemoryContext&) = delete;
  ~MemoryContext();
  HDC Get() const { return context_; }
  HFONT Font() const { return font_; }

 private:
  HFONT font_;
  HDC context_;
};

}  // namespace qxTools::desktop
