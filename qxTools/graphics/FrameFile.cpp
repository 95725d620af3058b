// The frame file: a signature and the nine sizes, 32 bits each. Its pictures stand side by side in a bitmap
// file.
#include <qxTools/base/Exceptions.h>
#include <qxTools/base/LittleEndian.h>
#include <qxTools/graphics/Wrapping.h>
#include <qxTools/graphics/qxDrawTools.h>
#include <qxTools/platform/FileHold.h>
#include <qxTools/platform/FileNames.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/Files.h>

#include <algorithm>

namespace qxTools::qxDrawTools {

namespace {

constexpr Integer kSignature = 8001;
constexpr std::size_t kPieceCount = std::tuple_size_v<TFrameBitmaps>;
constexpr std::int64_t kMaxUncovered = 16777216;

using FrameBytes = std::array<char, 4 + 8 * kPieceCount>;
static_assert(sizeof(FrameBytes) == 76);

using Sizes = std::array<TPoint, kPieceCount>;

enum Piece { kLeftTop, kLeft, kLeftBottom, kTop, kCentre, kBottom, kRightTop, kRight, kRightBottom };

std::string StripName(const std::string& fileName) { return FileNameWithExtension(fileName, ".bmp"); }

bool IsFile(const std::string& fileName) { return FileExists(fileName) && !FolderExists(fileName); }

void CheckExists(const std::string& fileName) {
  if (!IsFile(fileName)) throw Exception(fileName + " File not found!");
}

// --- Saving ----------------------------------------------------------------------------------------

FrameBytes BytesOf(const TFrameBitmaps& bitmaps) {
  FrameBytes bytes;
  char* next = bytes.data();
  const auto put = [&next](Integer value) {
    PutLittleEndian32(next, value);
    next += 4;
  };
  put(kSignature);
  for (const TBitmap& bitmap : bitmaps) {
    put(bitmap.GetWidth());
    put(bitmap.GetHeight());
  }
  return bytes;
}

void SaveStrip(const std::string& fileName, const TFrameBitmaps& bitmaps) {
  Integer width = 0;
  Integer height = 0;
  for (const TBitmap& bitmap : bitmaps) {
    width = WrapAdd(width, bitmap.GetWidth());
    height = std::max(height, bitmap.GetHeight());
  }
  TBitmap strip(width, height);
  Integer x = 0;
  for (const TBitmap& bitmap : bitmaps) {
    const Integer right = WrapAdd(x, bitmap.GetWidth());
    strip.GetCanvas().CopyRect({x, 0, right, bitmap.GetHeight()}, bitmap);
    x = right;
  }
  strip.SaveToFile(fileName);
}

// --- Loading ---------------------------------------------------------------------------------------

Sizes ReadSizes(const std::string& fileName) {
  TFileStream file(fileName, fmOpenRead);
  FrameBytes bytes;
  file.ReadBuffer(bytes.data(), 4);
  if (GetLittleEndian32(bytes.data()) != kSignature)
    throw Exception(fileName + " is a Draw of Frame(DW1) File.");
  file.ReadBuffer(bytes.data() + 4, bytes.size() - 4);
  Sizes sizes;
  for (std::size_t k = 0; k < sizes.size(); ++k) {
    const TPoint size{GetLittleEndian32(&bytes[4 + 8 * k]), GetLittleEndian32(&bytes[8 + 8 * k])};
    if (size.X > 0 && size.Y > 0) sizes[k] = size;
  }
  return sizes;
}

/// A size is believed as far as the strip has its pixels, and a little beyond.
void CheckSizes(const std::string& fileName, const Sizes& sizes, const TBitmap& strip) {
  std::int64_t x = 0;
  for (const TPoint& size : sizes) {
    x += size.X;
    const bool covered = x <= strip.GetWidth() && size.Y <= strip.GetHeight();
    if (!covered && std::int64_t{size.X} * size.Y > kMaxUncovered) throw Exception(fileName + " is damaged.");
  }
}

/// All of them, or none when memory runs out.
void CutPieces(const TBitmap& strip, const Sizes& sizes, TFrameBitmaps& bitmaps) {
  TFrameBitmaps cut;
  Integer x = 0;
  for (std::size_t k = 0; k < sizes.size(); ++k) {
    const TPoint& size = sizes[k];
    cut[k].SetSize(size.X, size.Y);
    const Integer next = WrapAdd(x, size.X);
    cut[k].GetCanvas().CopyRect({0, 0, size.X, size.Y}, strip, {x, 0, next, size.Y});
    x = next;
  }
  for (std::size_t k = 0; k < sizes.size(); ++k) bitmaps[k].Swap(cut[k]);
}

// --- Painting --------------------------------------------------------------------------------------

/// The tiles of `size` between two corners; 0 or less when these overlap by a tile or more.
Integer TileCount(Integer low, Integer high, Integer lowCorner, Integer highCorner, Integer size) {
  const Integer room = WrapSubtract(WrapSubtract(WrapSubtract(high, low), lowCorner), highCorner);
  return WrapAdd(room / size, 1);
}

/// Tiles from left to right, between two corners that may differ in width.
void PaintRow(TCanvas& canvas, const TRect& rect, Integer top, const TBitmap& tile, const TBitmap& leftCorner,
              const TBitmap& rightCorner) {
  const Integer width = tile.GetWidth();
  if (width == 0) return;
  const Integer count =
      TileCount(rect.Left, rect.Right, leftCorner.GetWidth(), rightCorner.GetWidth(), width);
  const Integer bottom = WrapAdd(top, tile.GetHeight());
  Integer place = rect.Left;
  for (Integer i = 0; i < count; ++i) {
    const Integer next = WrapAdd(place, width);
    canvas.CopyRect(
        {WrapAdd(place, leftCorner.GetWidth()), top, WrapAdd(next, rightCorner.GetWidth()), bottom}, tile);
    place = next;
  }
}

/// Tiles from the top down, between two corners.
void PaintColumn(TCanvas& canvas, const TRect& rect, Integer left, const TBitmap& tile,
                 const TBitmap& topCorner, const TBitmap& bottomCorner) {
  const Integer height = tile.GetHeight();
  if (height == 0) return;
  const Integer count =
      TileCount(rect.Top, rect.Bottom, topCorner.GetHeight(), bottomCorner.GetHeight(), height);
  const Integer right = WrapAdd(left, tile.GetWidth());
  Integer place = WrapAdd(rect.Top, topCorner.GetHeight());
  for (Integer i = 0; i < count; ++i) {
    const Integer next = WrapAdd(place, height);
    canvas.CopyRect({left, place, right, next}, tile);
    place = next;
  }
}

void PaintCorner(TCanvas& canvas, Integer left, Integer top, const TBitmap& corner) {
  canvas.CopyRect({left, top, WrapAdd(left, corner.GetWidth()), WrapAdd(top, corner.GetHeight())}, corner);
}

}  // namespace

void SaveDWF(const std::string& fileName, const TFrameBitmaps& bitmaps) {
  const std::string stripName = StripName(fileName);
  if (stripName == fileName) return SaveStrip(stripName, bitmaps);
  FileHold frame(fileName, IfMissing::kMake, 0);
  SaveStrip(stripName, bitmaps);
  const FrameBytes bytes = BytesOf(bitmaps);
  // On purpose: what an older, longer file has behind these bytes is kept.
  frame.Save(frame.Read().replace(0, bytes.size(), bytes.data(), bytes.size()));
}

void LoadDWF(const std::string& fileName, TFrameBitmaps& bitmaps) {
  const std::string stripName = StripName(fileName);
  CheckExists(fileName);
  CheckExists(stripName);
  const Sizes sizes = ReadSizes(fileName);
  TBitmap strip;
  strip.LoadFromFile(stripName);
  CheckSizes(fileName, sizes, strip);
  CutPieces(strip, sizes, bitmaps);
}

void DrawFrameWithBMP(TCanvas& canvas, const TRect& rect, const TFrameBitmaps& bitmaps) {
  const TFrameBitmaps& b = bitmaps;
  PaintRow(canvas, rect, rect.Top, b[kTop], b[kLeftTop], b[kRightTop]);
  PaintRow(canvas, rect, WrapSubtract(rect.Bottom, b[kBottom].GetHeight()), b[kBottom], b[kLeftBottom],
           b[kRightBottom]);
  PaintColumn(canvas, rect, rect.Left, b[kLeft], b[kLeftTop], b[kLeftBottom]);
  PaintColumn(canvas, rect, WrapSubtract(rect.Right, b[kRight].GetWidth()), b[kRight], b[kRightTop],
              b[kRightBottom]);
  const auto right = [&](Piece piece) { return WrapSubtract(rect.Right, b[piece].GetWidth()); };
  const auto bottom = [&](Piece piece) { return WrapSubtract(rect.Bottom, b[piece].GetHeight()); };
  PaintCorner(canvas, rect.Left, rect.Top, b[kLeftTop]);
  PaintCorner(canvas, right(kRightTop), rect.Top, b[kRightTop]);
  PaintCorner(canvas, rect.Left, bottom(kLeftBottom), b[kLeftBottom]);
  PaintCorner(canvas, right(kRightBottom), bottom(kRightBottom), b[kRightBottom]);
}

}  // namespace qxTools::qxDrawTools
