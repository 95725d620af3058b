#include <qxTools/base/LittleEndian.h>

#include "support/Picture.h"
#include "support/Testing.h"

namespace qxTools::test {

namespace {

/// Places of words in a file.
enum Place : unsigned { kStart = 10, kHeaderSize = 14, kWidth = 18, kHeight = 22, kDepth = 26 };
constexpr auto kPacking = Place(30), kUsed = Place(46), kMasks = Place(54);

/// The bytes with other words at some places.
std::string With(std::string bytes, std::initializer_list<std::pair<Place, std::int64_t>> words) {
  for (const auto& [place, value] : words) PutLittleEndian32(&bytes[place], static_cast<Integer>(value));
  return bytes;
}

constexpr Integer DepthOf(Integer bits) { return bits << 16 | 1; }

/// "wrr" above "kgw", 24 bits a pixel.
const std::string kWhole(
    "BM\x4E\0\0\0\0\0\0\0\x36\0\0\0"                                       // the size; where rows start
    "\x28\0\0\0\3\0\0\0\2\0\0\0\1\0\x18\0\0\0\0\0\x18\0\0\0"               // sides, depth, size of all rows
    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"                                     //
    "\0\0\0\0\xFF\0\xFF\xFF\xFF\0\0\0\xFF\xFF\xFF\0\0\xFF\0\0\xFF\0\0\0",  // the lower row first
    78);

}  // namespace

// Each depth is read pixel by pixel by the fuzz target.
TEST(Bitmap, ReadsTopDownBehindALongerHeader) {
  const std::string header =
      With(kWhole.substr(0, 54),
           {{kStart, 146}, {kHeaderSize, 124}, {kHeight, -1}, {kDepth, DepthOf(8)}, {kUsed, 2}});
  // White, and red with a byte that is not looked at; a colour that the palette lacks is black.
  const std::string palette("\xFF\xFF\xFF\0\0\0\xFF\t", 8);
  const std::string row("\1\0\2\0", 4);
  const TemporaryFolder folder;
  TBitmap bitmap;
  bitmap.LoadFromFile(folder.Make("a.bmp", header + std::string(84, '\x55') + palette + row));
  EXPECT_EQ(TextOf(bitmap), "rwk\n");
}

TEST(Bitmap, RefusesFilesThatCannotBeWhole) {
  const TemporaryFolder folder;
  // clang-format off
  const std::string masked = With(kWhole, {{kDepth, DepthOf(32)}, {kPacking, 3}, {kMasks, 0xFF0000},
                                           {Place(kMasks + 4), 0xFF00}, {Place(kMasks + 8), 0xFF}});
  const std::pair<const char*, std::string> cases[] = {
    {"nothing", ""}, {"half a header", kWhole.substr(0, 53)}, {"another signature", "MB" + kWhole.substr(2)},
    {"a row too few", kWhole.substr(0, kWhole.size() - 1)}, {"below no width", With(kWhole, {{kWidth, -3}})},
    {"the lowest height", With(kWhole, {{kHeight, 0x80000000}})},
    {"sides beyond the file", With(kWhole, {{kWidth, 0x7FFFFFFF}, {kHeight, -0x7FFFFFFF}})},
    {"16 bits", With(kWhole, {{kDepth, DepthOf(16)}})}, {"packed", With(masked, {{kPacking, 1}})},
    {"masks of 24 bits", With(masked, {{kDepth, DepthOf(24)}})},
    {"other masks", With(masked, {{kMasks, 0xFF}})}, {"an old header", With(kWhole, {{kHeaderSize, 12}})},
    {"a header below nothing", With(kWhole, {{kHeaderSize, 0x80000000}})},
    {"no palette", With(kWhole, {{kDepth, DepthOf(8)}})},
    {"pixels in the header", With(kWhole, {{kStart, 20}})},
    {"pixels behind the end", With(kWhole, {{kStart, 0xFFFFFFFF}})}};
  // clang-format on
  TBitmap bitmap;
  Paint(bitmap, "12\n");
  for (const auto& [what, bytes] : cases) {
    const std::string name = folder.Make("a.bmp", bytes);
    EXPECT_EQ(MessageOf([&] { bitmap.LoadFromFile(name); }), "Bitmap image is not valid") << what;
  }
  EXPECT_EQ(TextOf(bitmap), "12\n") << "a bitmap stays as it was";
  EXPECT_THROW(bitmap.LoadFromFile(folder.File("none.bmp")), EFOpenError);
}

TEST(Bitmap, WritesTwentyFourBitsBottomUp) {
  const TemporaryFolder folder;
  TBitmap bitmap;
  Paint(bitmap, "wrr\nkgw\n");
  bitmap.SaveToFile(folder.File("a.bmp"));
  EXPECT_EQ(BytesOf(folder.File("a.bmp")), kWhole);
  TBitmap().SaveToFile(folder.File("empty.bmp"));
  EXPECT_EQ(BytesOf(folder.File("empty.bmp")).size(), 54U);
  bitmap.LoadFromFile(folder.File("empty.bmp"));
  EXPECT_TRUE(bitmap.Empty());
}

TEST(Bitmap, LargePicturesComeBack) {
  const TemporaryFolder folder;
  TBitmap bitmap(301, 401), back;  // more than is read or written at once
  std::uint32_t* const pixels = bitmap.GetRow(0);
  for (unsigned i = 0; i < 301 * 401; ++i) pixels[i] = 0xFF000000 | (i * 7919 & 0xFFFFFF);
  bitmap.SaveToFile(folder.File("a.bmp"));
  back.LoadFromFile(folder.File("a.bmp"));
  ASSERT_EQ((TPoint{back.GetWidth(), back.GetHeight()}), (TPoint{301, 401}));
  EXPECT_TRUE(std::equal(pixels, pixels + 301 * 401, back.GetRow(0)));
}

TEST(Bitmap, ANewSizeKeepsWhatBothHave) {
  TBitmap bitmap;
  Paint(bitmap, "123\n456\n");
  bitmap.SetSize(2, 3);
  EXPECT_EQ(TextOf(bitmap), "12\n45\nww\n");
  bitmap.SetSize(4, 1);
  for (const TPoint& outside : {TPoint{-1, 0}, TPoint{4, 0}, TPoint{0, -1}, TPoint{0, 1}}) {
    bitmap.SetPixel(outside.X, outside.Y, 0);
    EXPECT_EQ(bitmap.GetPixel(outside.X, outside.Y), 0xFFFFFFFFU);
  }
  EXPECT_EQ(TextOf(bitmap), "12ww\n");
  for (const TPoint& size : {TPoint{0, 5}, TPoint{5, 0}, TPoint{-1, 5}}) {
    bitmap.SetSize(size.X, size.Y);
    EXPECT_TRUE(bitmap.Empty() && bitmap.GetWidth() == 0 && bitmap.GetHeight() == 0);
  }
}

}  // namespace qxTools::test
