#pragma once

#include <windows.h>
// After windows.h, whose macros they must survive.
#include <qxTools/painting/Bitmap.h>

#include <algorithm>

namespace qxTools::test {

/// A bitmap in memory that GDI paints on, at first with the pixels of the library's own.
class Surface {
 public:
  explicit Surface(const TBitmap& picture) : width_(picture.GetWidth()), height_(picture.GetHeight()) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width_, -height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    bitmap_ = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    pixels_ = static_cast<std::uint32_t*>(pixels);
    before_ = ::SelectObject(context_, bitmap_);
    std::copy_n(picture.GetRow(0), width_ * height_, pixels_);
  }
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  ~Surface() {
    ::SelectObject(context_, before_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(context_);
  }

  HDC Context() const { return context_; }

  /// Puts the picture into the library's own bitmap.
  void CopyTo(TBitmap& picture) const {
    ::GdiFlush();
    picture.SetSize(width_, height_);
    std::transform(pixels_, pixels_ + width_ * height_, picture.GetRow(0),
                   [](std::uint32_t pixel) { return pixel | 0xFF000000; });
  }

 private:
  const Integer width_;
  const Integer height_;
  HDC const context_ = ::CreateCompatibleDC(nullptr);
  HBITMAP bitmap_;
  HGDIOBJ before_;
  std::uint32_t* pixels_;
};

/// How many pixels differ.
inline int Differences(const TBitmap& a, const TBitmap& b) {
  int count = 0;
  for (Integer y = 0; y < a.GetHeight(); ++y)
    for (Integer x = 0; x < a.GetWidth(); ++x)
      if (a.GetPixel(x, y) != b.GetPixel(x, y)) ++count;
  return count;
}

}  // namespace qxTools::test
