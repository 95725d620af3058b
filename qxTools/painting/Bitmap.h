/// @file
/// Pictures in memory, and Windows bitmap files.
#pragma once

#include <qxTools/painting/Canvas.h>

#include <memory>
#include <string>

namespace qxTools {

/// A picture of 32 bits a pixel. If one side is 0, both are: the bitmap is empty.
class QXTOOLS_API TBitmap : public TObject {
 public:
  /// Makes an empty bitmap.
  TBitmap();
  /// Makes a white bitmap. A side of 0 or less makes it empty.
  /// @throws std::bad_alloc if memory runs out.
  TBitmap(Integer width, Integer height);
  TBitmap(const TBitmap&) = delete;
  TBitmap& operator=(const TBitmap&) = delete;
  ~TBitmap() override;

  /// Returns the width in pixels.
  Integer GetWidth() const { return width_; }
  /// Returns the height in pixels.
  Integer GetHeight() const { return height_; }
  /// Returns whether there are no pixels.
  bool Empty() const { return width_ == 0; }

  /// Changes the size. Pixels that both sizes have are kept; new ones are white. A side of 0 or less makes
  /// the bitmap empty.
  /// @throws std::bad_alloc if memory runs out; the bitmap is unchanged then.
  void SetSize(Integer width, Integer height);

  /// Exchanges the pictures of two bitmaps. Each canvas stays with its bitmap. Never throws.
  void Swap(TBitmap& other);

  /// Returns the colour of a pixel, or 0xFFFFFFFF outside the bitmap.
  TColor GetPixel(Integer x, Integer y) const;
  /// Sets the colour of a pixel, which may be a system colour. A place outside the bitmap is ignored.
  void SetPixel(Integer x, Integer y, TColor color);

  /// Returns the pixels of row `y` from left to right, as 0xFFRRGGBB. `y` must be a row of the bitmap. Each
  /// row follows the one above it in memory. The pointer is valid until the size changes.
  std::uint32_t* GetRow(Integer y) { return pixels_.get() + std::int64_t{y} * width_; }
  /// Returns the pixels of row `y` from left to right, as 0xFFRRGGBB. `y` must be a row of the bitmap. Each
  /// row follows the one above it in memory. The pointer is valid until the size changes.
  const std::uint32_t* GetRow(Integer y) const { return pixels_.get() + std::int64_t{y} * width_; }

  /// Returns the canvas that draws on this bitmap. It is valid as long as the bitmap. Without a text painter
  /// (TextPainter.h) the size of text is 0 and no text is drawn.
  TCanvas& GetCanvas();

  /// Reads a Windows bitmap file of 1, 4, 8, 24 or 32 bits a pixel, not compressed, bottom-up or top-down.
  /// The fourth byte of 32 bits is ignored. The sizes in the file are checked before memory is allocated.
  /// @throws EFOpenError if the file cannot be opened, EReadError if it cannot be read, Exception "Bitmap
  /// image is not valid" if it is not such a file, std::bad_alloc if memory runs out. The bitmap is unchanged
  /// then.
  void LoadFromFile(const std::string& fileName);

  /// Writes a Windows bitmap file of 24 bits a pixel, bottom-up. The file of an empty bitmap has only a
  /// header. The file is replaced only when all of it has been written.
  /// @throws EFCreateError if the file cannot be created, EWriteError if it cannot be written.
  void SaveToFile(const std::string& fileName) const;

 private:
  /// Changes the size without setting any pixel.
  void Allocate(Integer width, Integer height);

  Integer width_ = 0;
  Integer height_ = 0;
  std::unique_ptr<std::uint32_t[]> pixels_;
  std::unique_ptr<TCanvas> canvas_;  // made by the first GetCanvas
};

}  // namespace qxTools
