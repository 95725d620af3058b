// Bitmap files: a picture is read pixel by pixel as its bytes have it, or refused, and reads the same when it
// was saved.
#include <qxTools/painting/Bitmap.h>

#include "Target.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace qxTools;

/// The bytes of a bitmap file, and what they say.
class Bytes {
 public:
  explicit Bytes(const std::string& bytes) : bytes_(bytes) {}

  std::uint64_t At(std::uint64_t place, std::size_t count) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value |= std::uint64_t{Byte(place + i)} << 8 * i;
    return value;
  }
  std::int64_t Width() const { return static_cast<std::int32_t>(At(18, 4)); }
  std::int64_t Height() const { return static_cast<std::int32_t>(At(22, 4)); }

  std::uint32_t Pixel(std::int64_t x, std::int64_t y) const {
    const std::uint64_t bits = At(28, 2);
    const std::uint64_t row = static_cast<std::uint64_t>(Height() < 0 ? y : Height() - 1 - y);
    const std::uint64_t start =
        At(10, 4) + row * ((static_cast<std::uint64_t>(Width()) * bits + 31) / 32 * 4);
    const std::uint64_t bit = static_cast<std::uint64_t>(x) * bits;
    if (bits > 8) return 0xFF000000 | static_cast<std::uint32_t>(At(start + bit / 8, 3));
    const std::uint64_t index = At(start + bit / 8, 1) >> (8 - bits - bit % 8) & ((1U << bits) - 1);
    const auto used = static_cast<std::int32_t>(At(46, 4));
    if (used > 0 && index >= static_cast<std::uint64_t>(used)) return 0xFF000000;
    return 0xFF000000 | static_cast<std::uint32_t>(At(14 + At(14, 4) + 4 * index, 3));
  }

 private:
  std::uint8_t Byte(std::uint64_t place) const {
    FUZZ_CHECK(place < bytes_.size());
    return static_cast<std::uint8_t>(bytes_[static_cast<std::size_t>(place)]);
  }

  const std::string& bytes_;
};

}  // namespace

FUZZ_TARGET(BitmapFile) {
  static const test::TemporaryFolder folder;
  const std::string bytes = input.Rest();
  const std::string name = folder.Make("picture.bmp", bytes);
  TBitmap picture(3, 2);
  std::string error;
  if (!fuzz::Completes([&] { picture.LoadFromFile(name); }, &error)) {
    FUZZ_CHECK(error == "Bitmap image is not valid");
    return FUZZ_CHECK(picture.GetWidth() == 3 && picture.GetHeight() == 2 &&
                      picture.GetPixel(2, 1) == 0xFFFFFF);
  }
  const Bytes plain(bytes);
  const std::int64_t height = plain.Height() < 0 ? -plain.Height() : plain.Height();
  const bool empty = plain.Width() == 0 || height == 0;
  FUZZ_CHECK(picture.GetWidth() == (empty ? 0 : plain.Width()) &&
             picture.GetHeight() == (empty ? 0 : height));
  picture.SaveToFile(folder.File("saved.bmp"));
  TBitmap again;
  again.LoadFromFile(folder.File("saved.bmp"));
  FUZZ_CHECK(again.GetWidth() == picture.GetWidth() && again.GetHeight() == picture.GetHeight());
  for (Integer y = 0; y < picture.GetHeight(); ++y)
    for (Integer x = 0; x < picture.GetWidth(); ++x)
      FUZZ_CHECK(picture.GetRow(y)[x] == plain.Pixel(x, y) && again.GetRow(y)[x] == picture.GetRow(y)[x]);
}
