// Frame files and their bitmap: any pair loads with the sizes that it records, or is refused with no piece
// touched, and reads the same when it was saved.
#include <qxTools/graphics/qxDrawTools.h>

#include "Target.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace qxTools;
using qxDrawTools::TFrameBitmaps;

constexpr std::size_t kFrameSize = 76;

bool IsStated(const std::string& error) {
  return error == "Stream read error" || error == "Bitmap image is not valid" ||
         error.ends_with(" is a Draw of Frame(DW1) File.") || error.ends_with(" is damaged.");
}

/// The sizes at their places in the frame file.
TPoint SizeOf(const std::string& frame, std::size_t piece) {
  fuzz::Input bytes(std::string_view(frame).substr(4 + 8 * piece));
  const Integer width = bytes.Number();
  const Integer height = bytes.Number();
  return width > 0 && height > 0 ? TPoint{width, height} : TPoint{0, 0};
}

/// Sizes that load whatever the bitmap has, and take long to.
bool AreHuge(const std::string& frame) {
  std::int64_t pixels = 0;
  for (std::size_t k = 0; k < 9 && frame.size() == kFrameSize; ++k) {
    const TPoint size = SizeOf(frame, k);
    const std::int64_t piece = std::int64_t{size.X} * size.Y;
    if (piece > 16777216) return false;
    pixels += piece;
  }
  return pixels > 1 << 21;
}

bool IsSmall(const TFrameBitmaps& pieces) {
  std::int64_t width = 0;
  std::int64_t height = 0;
  for (const TBitmap& piece : pieces) {
    width += piece.GetWidth();
    height = std::max<std::int64_t>(height, piece.GetHeight());
  }
  return width * height < 1 << 20;
}

void CheckSaved(const std::string& name, const TFrameBitmaps& pieces) {
  qxDrawTools::SaveDWF(name, pieces);
  TFrameBitmaps again;
  qxDrawTools::LoadDWF(name, again);
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    FUZZ_CHECK(again[k].GetWidth() == pieces[k].GetWidth() && again[k].GetHeight() == pieces[k].GetHeight());
    for (Integer y = 0; y < pieces[k].GetHeight(); ++y)
      FUZZ_CHECK(
          std::equal(pieces[k].GetRow(y), pieces[k].GetRow(y) + pieces[k].GetWidth(), again[k].GetRow(y)));
  }
}

}  // namespace

FUZZ_TARGET(FrameFile) {
  static const test::TemporaryFolder folder;
  const bool cut = input.Byte() % 16 == 0;
  const std::string frame = input.Rest(cut ? 60 : kFrameSize);
  if (AreHuge(frame)) return;
  const std::string name = folder.Make("frame.dwf", frame);
  folder.Make("frame.bmp", input.Rest());
  TFrameBitmaps pieces;
  for (TBitmap& piece : pieces) piece.SetSize(3, 2);
  std::string error;
  if (!fuzz::Completes([&] { qxDrawTools::LoadDWF(name, pieces); }, &error)) {
    FUZZ_CHECK(IsStated(error));
    for (const TBitmap& piece : pieces) FUZZ_CHECK(piece.GetWidth() == 3 && piece.GetHeight() == 2);
    return;
  }
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    const TPoint size = SizeOf(frame, k);
    FUZZ_CHECK(pieces[k].GetWidth() == size.X && pieces[k].GetHeight() == size.Y);
  }
  if (IsSmall(pieces)) CheckSaved(folder.File("saved.dwf"), pieces);
}
