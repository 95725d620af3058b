/// @file
/// Pictures in memory, and the Windows bitmap files that keep them.
#pragma once

#include <qxTools/painting/Canvas.h>

#include <memory>
#include <string>

namespace qxTools {

/// A picture of 32 bits a pixel. It is empty at first; one with a side of 0 is empty, and 0 x 0.
class QXTOOLS_API TBitmap : public TObject {
 public:
  TBitmap();
  /// White all over.
  TBitmap(Integer width, Integer height);
  TBitmap(const TBitmap&) = delete;
  TBitmap& operator=(const TBitmap&) = delete;
  ~TBitmap() override;

  Integer GetWidth() const { return width_; }
  Integer GetHeight() const { return height_; }
  /// Whether there is no pixel.
  bool Empty() const { return width_ == 0; }

  /// What both sizes have stays, the rest is white. A side of 0 or less makes the bitmap empty.
  /// @throws std::bad_alloc when memory is short; nothing has changed then.
  void SetSize(Integer width, Integer height);

  /// Exchanges the pictures; the canvases stay where they are. Never raises.
  void Swap(TBitmap& other);

  /// The colour of a pixel; 0xFFFFFFFF outside the bitmap.
  TColor GetPixel(Integer x, Integer y) const;
  /// Sets a pixel; outside the bitmap nothing happens.
  void SetPixel(Integer x, Integer y, TColor color);

  /// Row `y`, which must be one of the bitmap's, from left to right: 0xFFRRGGBB. The rows follow one another
  /// from the top. Good until the size changes.
  std::uint32_t* GetRow(Integer y) { return pixels_.get() + std::int64_t{y} * width_; }
  const std::uint32_t* GetRow(Integer y) const { return pixels_.get() + std::int64_t{y} * width_; }

  /// Draws on the bitmap, and lives as long. Text needs a painter (TextPainter.h): without one it measures 0
  /// and is not drawn.
  TCanvas& GetCanvas();

  /// Reads a Windows bitmap file of 1, 4, 8, 24 or 32 bits, not compressed, bottom-up or top-down; the fourth
  /// byte of 32 bits is not looked at. Sizes are checked against the file before memory is asked for.
  /// @throws EFOpenError, EReadError, or Exception "Bitmap image is not valid"; nothing has changed then.
  void LoadFromFile(const std::string& fileName);

  /// Writes a Windows bitmap file of 24 bits, bottom-up, whole or not at all (platform/Files.h); an empty
  /// bitmap is a header alone. @throws EFCreateError, EWriteError.
  void SaveToFile(const std::string& fileName) const;

 private:
  /// Takes another size; the pixels are left as memory has them.
  void Allocate(Integer width, Integer height);

  Integer width_ = 0;
  Integer height_ = 0;
  std::unique_ptr<std::uint32_t[]> pixels_;
  std::unique_ptr<TCanvas> canvas_;  // made when it is first asked for
};

}  // namespace qxTools
