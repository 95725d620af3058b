#include <qxTools/painting/Bitmap.h>
#include <qxTools/painting/SystemColors.h>
#include <qxTools/painting/TextPainter.h>

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <limits>
#include <new>
#include <utility>

namespace qxTools {

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr TColor kNoColor = 0xFFFFFFFF;

/// The same channels with red and blue changing places: from a plain colour to a pixel and back.
constexpr std::uint32_t SwapRedBlue(std::uint32_t value) {
  return (value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF);
}

constexpr std::uint32_t PixelOf(TColor plainColor) { return 0xFF000000 | SwapRedBlue(plainColor); }

/// The C library knows the widest stores of the processor; where its wide characters are as wide as a pixel
/// it fills rows half as fast again as a loop does.
void FillRun(std::uint32_t* pixels, std::size_t count, std::uint32_t pixel) {
  if constexpr (sizeof(wchar_t) == sizeof(std::uint32_t))
    std::wmemset(reinterpret_cast<wchar_t*>(pixels), static_cast<wchar_t>(pixel), count);
  else
    std::fill_n(pixels, count, pixel);
}

class BitmapCanvas final : public TCanvas {
 public:
  explicit BitmapCanvas(TBitmap& bitmap) : bitmap_(bitmap) {}

  Integer TextWidth(std::string_view text) override { return Measure(text).X; }
  Integer TextHeight(std::string_view text) override { return Measure(text).Y; }

 protected:
  TRect GetBounds() const override { return {0, 0, bitmap_.GetWidth(), bitmap_.GetHeight()}; }

  void PaintRects(std::span<const TRect> rects, TColor color) override {
    const std::uint32_t pixel = PixelOf(color);
    for (const TRect& rect : rects)
      for (Integer y = rect.Top; y < rect.Bottom; ++y)
        FillRun(bitmap_.GetRow(y) + rect.Left, static_cast<std::size_t>(rect.Right - rect.Left), pixel);
  }

  void PaintBitmap(Integer x, Integer y, const TBitmap& bitmap) override {
    const std::size_t length = static_cast<std::size_t>(bitmap.GetWidth()) * sizeof(std::uint32_t);
    // The bitmap may be this one, onto itself.
    for (Integer row = 0; row < bitmap.GetHeight(); ++row)
      std::memmove(bitmap_.GetRow(y + row) + x, bitmap.GetRow(row), length);
  }

  void PaintText(const TRect& clip, const TPoint& at, std::string_view text, TColor color) override {
    if (GetTextPainter() != nullptr) GetTextPainter()->Paint(bitmap_, clip, at, text, color);
  }

 private:
  static TPoint Measure(std::string_view text) {
    return GetTextPainter() != nullptr ? GetTextPainter()->Measure(text) : TPoint{};
  }

  TBitmap& bitmap_;
};

}  // namespace

TBitmap::TBitmap() = default;

TBitmap::TBitmap(Integer width, Integer height) { SetSize(width, height); }

TBitmap::~TBitmap() = default;

void TBitmap::Allocate(Integer width, Integer height) {
  const bool empty = width <= 0 || height <= 0;
  const std::int64_t count = empty ? 0 : std::int64_t{width} * height;
  if (count > std::numeric_limits<std::ptrdiff_t>::max() / std::int64_t{sizeof(std::uint32_t)})
    throw std::bad_alloc();
  pixels_ =
      empty ? nullptr : std::make_unique_for_overwrite<std::uint32_t[]>(static_cast<std::size_t>(count));
  width_ = empty ? 0 : width;
  height_ = empty ? 0 : height;
}

void TBitmap::Swap(TBitmap& other) {
  std::swap(width_, other.width_);
  std::swap(height_, other.height_);
  std::swap(pixels_, other.pixels_);
}

void TBitmap::SetSize(Integer width, Integer height) {
  TBitmap made;
  made.Allocate(width, height);
  const Integer kept = std::min(width_, made.width_);
  for (Integer y = 0; y < made.height_; ++y) {
    const Integer copied = y < height_ ? kept : 0;
    if (copied > 0) std::copy_n(GetRow(y), copied, made.GetRow(y));
    std::fill(made.GetRow(y) + copied, made.GetRow(y) + made.width_, kWhite);
  }
  Swap(made);
}

TColor TBitmap::GetPixel(Integer x, Integer y) const {
  const bool inside = x >= 0 && x < width_ && y >= 0 && y < height_;
  return inside ? SwapRedBlue(GetRow(y)[x]) : kNoColor;
}

void TBitmap::SetPixel(Integer x, Integer y, TColor color) {
  const bool inside = x >= 0 && x < width_ && y >= 0 && y < height_;
  if (inside) GetRow(y)[x] = PixelOf(ColorToRGB(color));
}

TCanvas& TBitmap::GetCanvas() {
  if (canvas_ == nullptr) canvas_ = std::make_unique<BitmapCanvas>(*this);
  return *canvas_;
}

}  // namespace qxTools
