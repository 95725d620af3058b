// qxtool frame: what a frame file holds, how it looks, and its pieces from and to bitmap files.
#include <qxTools/base/Exceptions.h>
#include <qxTools/graphics/qxDrawTools.h>

#include <filesystem>
#include <memory>

#include "Commands.h"
#include "PathOf.h"
#include "TextIo.h"
#include "TextTable.h"

namespace qxtool {

namespace {

using namespace qxTools;
using qxDrawTools::TFrameBitmaps;

constexpr const char* kPieceNames[] = {"top-left", "left",      "bottom-left", "top",         "centre",
                                       "bottom",   "top-right", "right",       "bottom-right"};
static_assert(std::size(kPieceNames) == std::tuple_size_v<TFrameBitmaps>, "one name a piece");

struct Options {
  std::string frame;
  std::string folder;
  std::string picture;
  Integer width = 320;
  Integer height = 200;
  TColor fill = 0xFFFFFF;
  bool json = false;
};

void Load(const std::string& fileName, TFrameBitmaps& pieces) {
  WithSubject(fileName, [&] {
    try {
      qxDrawTools::LoadDWF(fileName, pieces);
    } catch (const Exception& e) {
      // The library's words say the opposite.
      if (e.what() == fileName + " is a Draw of Frame(DW1) File.")
        throw Exception("This is not a frame file");
      if (std::string_view(e.what()).starts_with(fileName)) throw Failure(Visible(e.what()));
      throw;
    }
  });
}

std::string PieceFile(const Options& options, std::size_t piece) {
  return options.folder + "/" + kPieceNames[piece] + ".bmp";
}

void Info(const Options& options) {
  TFrameBitmaps pieces;
  Load(options.frame, pieces);
  std::vector<TextRow> rows;
  for (std::size_t k = 0; k < pieces.size(); ++k)
    rows.push_back(
        {kPieceNames[k], std::to_string(pieces[k].GetWidth()), std::to_string(pieces[k].GetHeight())});
  PrintList({{"Piece", "Width", "Height"}, RowsOf(rows), {1, 2}}, options.json);
}

void Render(const Options& options) {
  TFrameBitmaps pieces;
  Load(options.frame, pieces);
  TBitmap picture(options.width, options.height);
  const TRect whole{0, 0, options.width, options.height};
  picture.GetCanvas().SetBrushColor(options.fill);
  picture.GetCanvas().FillRect(whole);
  qxDrawTools::DrawFrameWithBMP(picture.GetCanvas(), whole, pieces);
  WithSubject(options.picture, [&] { picture.SaveToFile(options.picture); });
}

/// A piece without a file is empty.
void Pack(const Options& options) {
  TFrameBitmaps pieces;
  std::size_t found = 0;
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    const std::string name = PieceFile(options, k);
    std::error_code ignored;
    if (!std::filesystem::exists(PathOf(name), ignored)) continue;
    WithSubject(name, [&] { pieces[k].LoadFromFile(name); });
    ++found;
  }
  if (found == 0) throw Failure(Visible(options.folder) + ": holds none of the pieces");
  WithSubject(options.frame, [&] { qxDrawTools::SaveDWF(options.frame, pieces); });
}

/// Empty pieces are written too, so that none is left over from another frame.
void Unpack(const Options& options) {
  TFrameBitmaps pieces;
  Load(options.frame, pieces);
  WithSubject(options.folder, [&] { std::filesystem::create_directories(PathOf(options.folder)); });
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    const std::string name = PieceFile(options, k);
    WithSubject(name, [&] { pieces[k].SaveToFile(name); });
  }
}

/// RRGGBB as a colour, whose lowest byte is red.
TColor ColorOf(const std::string& text) {
  const bool valid =
      text.size() == 6 && text.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos;
  if (!valid) throw Failure("is RRGGBB, six hexadecimal digits");
  const auto value = static_cast<TColor>(std::stoul(text, nullptr, 16));
  return (value & 0xFF) << 16 | (value & 0xFF00) | value >> 16;
}

Command AddAction(Command& frame, const std::string& name, const std::string& help,
                  void (*run)(const Options&), const std::shared_ptr<Options>& options) {
  Command action = frame.Add(name, help, options, run);
  action.Text("FRAME", options->frame, "Frame file; its bitmap file is in the same folder").Required();
  return action;
}

}  // namespace

void AddFrameCommand(Command program) {
  constexpr int kWidest = 32767;
  const auto options = std::make_shared<Options>();
  Command frame = program.Add("frame", "Look into frame files, paint, pack and unpack them");
  frame.Example("frame info panel.dwf");
  Command info = AddAction(frame, "info", "Show the sizes of the pieces", Info, options);
  info.Example("frame info panel.dwf");
  info.Json(options->json);

  Command render = AddAction(frame, "render", "Paint the frame into a bitmap file", Render, options);
  render.Example("frame render panel.dwf panel.bmp --width 400 --fill C0C0C0");
  render.Text("PICTURE", options->picture, "Bitmap file to be written").Required();
  render.Number("--width", options->width, "Width in pixels").Between(1, kWidest).ShowDefault();
  render.Number("--height", options->height, "Height in pixels").Between(1, kWidest).ShowDefault();
  const auto readFill = [options](const std::string& text) { options->fill = ColorOf(text); };
  render.Parsed("--fill", readFill, "Colour of the inside, white unless given").Placeholder("RRGGBB");

  const char* const folderHelp = "Folder of the pieces: top-left.bmp, left.bmp ... bottom-right.bmp";
  Command pack = AddAction(frame, "pack", "Make a frame of bitmap files", Pack, options);
  pack.Example("frame pack panel.dwf pieces");
  pack.Text("FOLDER", options->folder, folderHelp).Required();
  Command unpack = AddAction(frame, "unpack", "Write the pieces into bitmap files", Unpack, options);
  unpack.Example("frame unpack panel.dwf pieces");
  unpack.Text("FOLDER", options->folder, folderHelp).Required();
}

}  // namespace qxtool
