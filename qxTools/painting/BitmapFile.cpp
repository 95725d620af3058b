// Windows bitmap files: a file header of 14 bytes, a picture header of 40 or more, a palette up to 8 bits,
// then the rows, each padded to a multiple of four bytes.
#include <qxTools/base/Exceptions.h>
#include <qxTools/base/LittleEndian.h>
#include <qxTools/painting/Bitmap.h>
#include <qxTools/platform/FileStream.h>
#include <qxTools/platform/Files.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace qxTools {

namespace {

constexpr std::int64_t kFileHeaderSize = 14;
constexpr std::int64_t kPieceSize = std::int64_t{1}
                                    << 18;  // read and written at once, or a row where that is more
constexpr std::uint32_t kOpaque = 0xFF000000;

/// Both headers: "BM", then these words.
enum Word {
  kFileSize,
  kReserved,
  kPixelsAt,
  kHeaderSize,
  kWidth,
  kHeight,  // below 0: the rows go from the top down
  kPlanesAndBits,
  kCompression,
  kPixelBytes,
  kAcrossPerMetre,
  kDownPerMetre,
  kColorsUsed,
  kColorsNeeded,
  kWordCount
};
using Header = std::array<char, 2 + 4 * kWordCount>;
static_assert(sizeof(Header) == 54);

enum Compression { kPlain = 0, kMasks = 3 };

Integer Get(const Header& header, Word word) { return GetLittleEndian32(&header[2 + 4 * std::size_t{word}]); }

void Put(Header& header, Word word, Integer value) {
  PutLittleEndian32(&header[2 + 4 * std::size_t{word}], value);
}

std::int64_t RowBytes(std::int64_t width, std::int64_t bits) { return (width * bits + 31) / 32 * 4; }

[[noreturn]] void RaiseNotValid() { throw Exception("Bitmap image is not valid"); }

void Check(bool valid) {
  if (!valid) RaiseNotValid();
}

/// Reads bytes that a valid file has.
void ReadPart(TFileStream& file, std::int64_t position, char* bytes, std::size_t count) {
  Check(file.Seek(position, soBeginning) == position && file.Read(bytes, count) == count);
}

// --- Rows --------------------------------------------------------------------------------------------

using Palette = std::array<std::uint32_t, 256>;

template <unsigned kBits>
void DecodeIndices(const unsigned char* bytes, std::uint32_t* pixels, Integer width, const Palette& palette) {
  constexpr unsigned kPerByte = 8 / kBits;
  constexpr unsigned kMask = (1U << kBits) - 1;
  for (unsigned x = 0; x < static_cast<unsigned>(width); ++x) {
    const unsigned shift = (kPerByte - 1 - x % kPerByte) * kBits;
    pixels[x] = palette[bytes[x / kPerByte] >> shift & kMask];
  }
}

template <std::size_t kBytes>
void DecodeColors(const unsigned char* bytes, std::uint32_t* pixels, Integer width, const Palette&) {
  for (Integer x = 0; x < width; ++x, bytes += kBytes)
    pixels[x] = kOpaque | std::uint32_t{bytes[2]} << 16 | std::uint32_t{bytes[1]} << 8 | bytes[0];
}

struct Format {
  Integer bits;
  void (*decode)(const unsigned char* bytes, std::uint32_t* pixels, Integer width, const Palette& palette);
};
constexpr Format kFormats[] = {
    {1, DecodeIndices<1>}, {4, DecodeIndices<4>}, {8, DecodeIndices<8>},
    {24, DecodeColors<3>}, {32, DecodeColors<4>},
};

const Format& FormatOf(Integer bits) {
  const auto* const format = std::find_if(std::begin(kFormats), std::end(kFormats),
                                          [bits](const Format& known) { return known.bits == bits; });
  Check(format != std::end(kFormats));
  return *format;
}

// --- Headers -----------------------------------------------------------------------------------------

Header ReadHeader(TFileStream& file) {
  Header header;
  ReadPart(file, 0, header.data(), header.size());
  Check(header[0] == 'B' && header[1] == 'M' && Get(header, kHeaderSize) >= 40);
  Check(Get(header, kWidth) >= 0 && Get(header, kHeight) != std::numeric_limits<Integer>::min());
  return header;
}

/// Only files of 32 bits may have masks, and the masks must be the usual ones.
void CheckCompression(TFileStream& file, const Header& header, Integer bits) {
  if (Get(header, kCompression) == kPlain) return;
  Check(Get(header, kCompression) == kMasks && bits == 32);
  std::array<char, 12> masks;
  ReadPart(file, static_cast<std::int64_t>(header.size()), masks.data(), masks.size());
  Check(GetLittleEndian32(&masks[0]) == 0xFF0000 && GetLittleEndian32(&masks[4]) == 0xFF00 &&
        GetLittleEndian32(&masks[8]) == 0xFF);
}

/// The colours by number; black beyond those that the file has.
Palette ReadPalette(TFileStream& file, const Header& header, Integer bits) {
  Palette palette;
  palette.fill(kOpaque);
  if (bits > 8) return palette;
  const Integer most = 1 << bits;
  const Integer used = Get(header, kColorsUsed);
  const std::size_t count = static_cast<std::size_t>(used > 0 && used < most ? used : most);
  std::array<char, 4 * std::tuple_size_v<Palette>> bytes;
  ReadPart(file, kFileHeaderSize + Get(header, kHeaderSize), bytes.data(), 4 * count);
  for (std::size_t i = 0; i < count; ++i)
    palette[i] = kOpaque | static_cast<std::uint32_t>(GetLittleEndian32(&bytes[4 * i]));
  return palette;
}

struct Picture {
  Integer width;
  Integer height;
  bool topDown;
  const Format* format;
  std::int64_t rowBytes;
  Palette palette;
};

/// Reads everything before the rows, checks that the file has all rows, and moves to the first one.
Picture ReadPicture(TFileStream& file) {
  const Header header = ReadHeader(file);
  const Integer height = Get(header, kHeight);
  Picture picture{
      Get(header, kWidth), std::abs(height), height < 0, &FormatOf(Get(header, kPlanesAndBits) >> 16), 0, {}};
  picture.rowBytes = RowBytes(picture.width, picture.format->bits);
  CheckCompression(file, header, picture.format->bits);
  picture.palette = ReadPalette(file, header, picture.format->bits);
  const std::int64_t start = static_cast<std::uint32_t>(Get(header, kPixelsAt));
  const std::int64_t room = file.GetSize() - start;
  Check(start >= kFileHeaderSize + Get(header, kHeaderSize) && room >= 0);
  Check(picture.width == 0 || picture.height <= room / picture.rowBytes);
  file.SetPosition(start);
  return picture;
}

/// Hands out the rows of a file one by one, and reads several at once.
class RowReader {
 public:
  RowReader(TFileStream& file, std::int64_t rowBytes, Integer rowCount)
      : file_(file), rowBytes_(rowBytes), bytesLeft_(rowBytes * rowCount) {}

  const unsigned char* Next() {
    if (position_ == static_cast<std::int64_t>(piece_.size())) Refill();
    const char* const row = piece_.data() + position_;
    position_ += rowBytes_;
    return reinterpret_cast<const unsigned char*>(row);
  }

 private:
  void Refill() {
    const std::int64_t wholeRows = std::max(kPieceSize / rowBytes_, std::int64_t{1}) * rowBytes_;
    piece_.resize(static_cast<std::size_t>(std::min(wholeRows, bytesLeft_)));
    file_.ReadBuffer(piece_.data(), piece_.size());
    bytesLeft_ -= static_cast<std::int64_t>(piece_.size());
    position_ = 0;
  }

  TFileStream& file_;
  std::int64_t rowBytes_;
  std::int64_t bytesLeft_;
  std::int64_t position_ = 0;
  std::string piece_;
};

// --- Writing -----------------------------------------------------------------------------------------

Header MakeHeader(Integer width, Integer height) {
  constexpr Integer kBits = 24;
  // Beyond 4 GB these two do not fit; readers go by the sides.
  const auto bytes = static_cast<Integer>(RowBytes(width, kBits) * height);
  const auto fileSize = static_cast<Integer>(RowBytes(width, kBits) * height + std::int64_t{sizeof(Header)});
  Header header{'B', 'M'};
  Put(header, kFileSize, fileSize);
  Put(header, kPixelsAt, Integer{sizeof(Header)});
  Put(header, kHeaderSize, Integer{sizeof(Header)} - Integer{kFileHeaderSize});
  Put(header, kWidth, width);
  Put(header, kHeight, height);
  Put(header, kPlanesAndBits, kBits << 16 | 1);
  Put(header, kPixelBytes, bytes);
  return header;
}

void EncodeColors(const std::uint32_t* pixels, Integer width, char* bytes) {
  for (Integer x = 0; x < width; ++x, bytes += 3) {
    bytes[0] = static_cast<char>(pixels[x] & 0xFF);
    bytes[1] = static_cast<char>(pixels[x] >> 8 & 0xFF);
    bytes[2] = static_cast<char>(pixels[x] >> 16 & 0xFF);
  }
}

}  // namespace

void TBitmap::LoadFromFile(const std::string& fileName) {
  TFileStream file(fileName, fmOpenRead);
  const Picture picture = ReadPicture(file);
  TBitmap loaded;
  loaded.Allocate(picture.width, picture.height);
  RowReader rows(file, picture.rowBytes, loaded.height_);
  for (Integer y = 0; y < loaded.height_; ++y) {
    const Integer row = picture.topDown ? y : loaded.height_ - 1 - y;
    picture.format->decode(rows.Next(), loaded.GetRow(row), loaded.width_, picture.palette);
  }
  Swap(loaded);
}

void TBitmap::SaveToFile(const std::string& fileName) const {
  WholeFileWriter file(fileName);
  const Header header = MakeHeader(width_, height_);
  file.Write({header.data(), header.size()});
  const auto rowBytes = static_cast<std::size_t>(RowBytes(width_, 24));
  std::string piece;
  for (Integer y = height_; y-- > 0;) {
    piece.resize(piece.size() + rowBytes);
    EncodeColors(GetRow(y), width_, piece.data() + piece.size() - rowBytes);
    if (y != 0 && piece.size() < std::size_t{kPieceSize}) continue;
    file.Write(piece);
    piece.clear();
  }
  file.Commit();
}

}  // namespace qxTools
