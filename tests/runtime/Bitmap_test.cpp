
#include "support/Picture.h"
#include "support/Testing.h"

namespace qxTools::test {

namespace {

std::string Little(std::uint64_t value, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i, value >>= 8) bytes += static_cast<char>(value & 0xFF);
  return bytes;
}

struct FileParts {
  std::int64_t width = 3;
  std::int64_t height = 2;
  unsigned bits = 24;
  unsigned compression = 0;
  std::string between = "";  // palette or masks
  std::string rows = std::string(24, 'x');
  unsigned colorsUsed = 0;
  unsigned headerSize = 40;
  std::int64_t pixelsAt = -1;  // -1: behind what stands between
};

std::string FileOf(const FileParts& parts) {
  const std::int64_t start = parts.pixelsAt >= 0 ? parts.pixelsAt : 54 + std::int64_t(parts.between.size());
  return "BM" + Little(0, 8) + Little(static_cast<std::uint64_t>(start), 4) + Little(parts.headerSize, 4) +
         Little(static_cast<std::uint64_t>(parts.width), 4) +
         Little(static_cast<std::uint64_t>(parts.height), 4) + Little(1, 2) + Little(parts.bits, 2) +
         Little(parts.compression, 4) + Little(0, 12) + Little(parts.colorsUsed, 4) + Little(0, 4) +
         parts.between + parts.rows;
}

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += static_cast<char>(value);
  return bytes;
}

// White, red, green, black; each blue, green, red, and a byte that is not looked at.
const std::string kPalette = Bytes({255, 255, 255, 0, 0, 0, 255, 9, 0, 255, 0, 0, 0, 0, 0, 0});
const std::string kMasks = Little(0xFF0000, 4) + Little(0xFF00, 4) + Little(0xFF, 4);
const std::string kRows24 = Bytes({0,   0,   0,   0, 255, 0,   255, 255, 255, 0, 0, 0,  //
                                   255, 255, 255, 0, 0,   255, 0,   0,   255, 0, 0, 0});
const std::string kRows32 = Bytes({0,   0,   0,   7, 0, 255, 0,   7, 255, 255, 255, 7,  //
                                   255, 255, 255, 7, 0, 0,   255, 7, 0,   0,   255, 7});

}  // namespace

TEST(Bitmap, ReadsEveryDepthInBothDirections) {
  // Of 1 bit: white and red by 10 pixels; the others: "kgw" below "wrr".
  const FileParts oneBit{10, 2, 1, 0, kPalette.substr(0, 8), Bytes({0x55, 0x40, 0, 0, 0xFF, 0x80, 0, 0})};
  const FileParts fourBits{3, 2, 4, 0, kPalette, Bytes({0x32, 0x00, 0, 0, 0x01, 0x10, 0, 0}), 4};
  const FileParts eightBits{3, 2, 8, 0, kPalette, Bytes({3, 2, 0, 0, 0, 1, 1, 0}), 4};
  const FileParts plain{3, 2, 24, 0, "", kRows24};
  const FileParts words{3, 2, 32, 0, "", kRows32};
  const FileParts masked{3, 2, 32, 3, kMasks, kRows32};
  const FileParts longHeader{3, 2, 24, 0, std::string(84, '\x55'), kRows24, 0, 124};
  const TemporaryFolder folder;
  for (FileParts parts : {oneBit, fourBits, eightBits, plain, words, masked, longHeader}) {
    const bool narrow = parts.bits > 1;
    const std::string lower = narrow ? "kgw\n" : "wrwrwrwrwr\n";
    const std::string upper = narrow ? "wrr\n" : "rrrrrrrrrw\n";
    TBitmap bitmap(7, 7);
    bitmap.LoadFromFile(folder.Make("a.bmp", FileOf(parts)));
    EXPECT_EQ(TextOf(bitmap), upper + lower) << parts.bits << " bits";
    parts.height = -parts.height;
    bitmap.LoadFromFile(folder.Make("a.bmp", FileOf(parts)));
    EXPECT_EQ(TextOf(bitmap), lower + upper) << parts.bits << " bits, top-down";
  }
  TBitmap bitmap;  // colours that the palette lacks are black
  bitmap.LoadFromFile(folder.Make("a.bmp", FileOf({3, 1, 8, 0, kPalette, Bytes({1, 4, 255, 0}), 4})));
  EXPECT_EQ(TextOf(bitmap), "rkk\n");
}

TEST(Bitmap, RefusesFilesThatCannotBeWhole) {
  const TemporaryFolder folder;
  const std::string whole = FileOf({});
  const std::pair<const char*, std::string> cases[] = {
      {"nothing", ""},
      {"half a header", whole.substr(0, 53)},
      {"another signature", "MB" + whole.substr(2)},
      {"a row too few", whole.substr(0, whole.size() - 1)},
      {"below no width", FileOf({.width = -3})},
      {"the lowest height", FileOf({.height = -0x80000000LL})},
      {"sides beyond the file", FileOf({.width = 0x7FFFFFFF, .height = -0x7FFFFFFF, .between = kPalette})},
      {"16 bits", FileOf({.bits = 16})},
      {"compressed", FileOf({.bits = 8, .compression = 1, .between = std::string(1024, '\0')})},
      {"other masks", FileOf({.bits = 32, .compression = 3, .between = std::string(12, '\x7F')})},
      {"an old header", FileOf({.headerSize = 12})},
      {"a header below nothing", FileOf({.headerSize = 0x80000000})},
      {"no palette", FileOf({.width = 1, .height = 1, .bits = 8, .rows = "abcd"})},
      {"pixels in the header", FileOf({.pixelsAt = 20})},
      {"pixels behind the end", FileOf({.pixelsAt = 0xFFFFFFFF})},
  };
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
  const std::string header = "BM" + Little(78, 4) + Little(0, 4) + Little(54, 4) + Little(40, 4) +
                             Little(3, 4) + Little(2, 4) + Little(1, 2) + Little(24, 2) + Little(0, 4) +
                             Little(24, 4) + Little(0, 16);
  EXPECT_EQ(BytesOf(folder.File("a.bmp")), header + kRows24);

  TBitmap().SaveToFile(folder.File("empty.bmp"));
  EXPECT_EQ(BytesOf(folder.File("empty.bmp")).size(), 54U);
  bitmap.LoadFromFile(folder.File("empty.bmp"));
  EXPECT_TRUE(bitmap.Empty());
}

TEST(Bitmap, LargePicturesComeBack) {
  const TemporaryFolder folder;
  TBitmap bitmap(301, 401);  // more than is read or written at once
  for (Integer y = 0; y < 401; ++y)
    for (Integer x = 0; x < 301; ++x)
      bitmap.SetPixel(x, y, static_cast<TColor>(x * 7919 + y * 104729) & 0xFFFFFF);
  bitmap.SaveToFile(folder.File("a.bmp"));
  TBitmap back;
  back.LoadFromFile(folder.File("a.bmp"));
  ASSERT_EQ((TPoint{back.GetWidth(), back.GetHeight()}), (TPoint{301, 401}));
  EXPECT_TRUE(std::equal(bitmap.GetRow(0), bitmap.GetRow(0) + 301 * 401, back.GetRow(0)));
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
