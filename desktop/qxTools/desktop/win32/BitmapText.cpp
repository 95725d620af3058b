#include <qxTools/desktop/win32/BitmapText.h>
#include <qxTools/desktop/win32/Glyphs.h>
#include <qxTools/desktop/win32/Pixels.h>
#include <qxTools/painting/Bitmap.h>

#include <algorithm>
#include <new>

namespace qxTools::desktop {

namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;

/// A block of pixels that a device context paints on.
class Block {
 public:
  Block(HDC context, Integer width, Integer height) : context_(context), width_(width) {
    const BITMAPINFO info = PixelsOf(width, height);
    void* pixels = nullptr;
    bitmap_ = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (bitmap_ == nullptr) throw std::bad_alloc();
    pixels_ = static_cast<std::uint32_t*>(pixels);
    before_ = ::SelectObject(context, bitmap_);
  }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;
  ~Block() {
    ::SelectObject(context_, before_);
    ::DeleteObject(bitmap_);
  }

  std::uint32_t* Row(Integer y) const { return pixels_ + std::ptrdiff_t{y} * width_; }

 private:
  HDC const context_;
  const Integer width_;
  HBITMAP bitmap_;
  HGDIOBJ before_;
  std::uint32_t* pixels_;
};

}  // namespace

TPoint BitmapText::Measure(std::string_view text) { return MeasureGlyphs(context_.Get(), text); }

void BitmapText::Paint(TBitmap& bitmap, const TRect& clip, const TPoint& at, std::string_view text,
                       TColor color) {
  const Integer width = clip.Right - clip.Left;
  const Integer height = clip.Bottom - clip.Top;
  const Block block(context_.Get(), width, height);
  for (Integer y = 0; y < height; ++y)
    std::copy_n(bitmap.GetRow(clip.Top + y) + clip.Left, width, block.Row(y));
  PaintGlyphs(context_.Get(), {0, 0, width, height}, {at.X - clip.Left, at.Y - clip.Top}, text, color);
  ::GdiFlush();
  for (Integer y = 0; y < height; ++y)
    std::transform(block.Row(y), block.Row(y) + width, bitmap.GetRow(clip.Top + y) + clip.Left,
                   [](std::uint32_t pixel) { return pixel | kOpaque; });
}

}  // namespace qxTools::desktop
