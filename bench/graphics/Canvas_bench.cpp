// Drawing on a bitmap of the core beside a raster painter on an image of the same size, without antialiasing:
// fills, lines, stretched copies, and reading a bitmap file. Then what owner-drawn controls do.
#include <benchmark/benchmark.h>
#include <qxTools/graphics/qxDrawTools.h>
#ifdef QXTOOLS_BENCH_QT
#include <QImage>
#include <QPainter>
#endif

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace qxTools;

constexpr TColor kRed = 0x0000FF;

// --- Both surfaces by one set of names ---

class Ours {
 public:
  Ours(Integer width, Integer height) : bitmap_(width, height), canvas_(bitmap_.GetCanvas()) {
    canvas_.SetPenColor(kRed);
    canvas_.SetBrushColor(kRed);
  }
  void Fill(const TRect& rect) { canvas_.FillRect(rect); }
  void Line(const TPoint& from, const TPoint& to) {
    canvas_.MoveTo(from.X, from.Y);
    canvas_.LineTo(to.X, to.Y);
  }
  void Triangle(const TPoint (&corners)[3]) { canvas_.Polygon(corners); }
  void Load(const std::string& fileName) { bitmap_.LoadFromFile(fileName); }
  TColor Pixel(Integer x, Integer y) const { return bitmap_.GetPixel(x, y); }

 private:
  TBitmap bitmap_;
  TCanvas& canvas_;
};

#ifdef QXTOOLS_BENCH_QT
class Raster {
 public:
  Raster(Integer width, Integer height) : image_(width, height, QImage::Format_RGB32) {
    image_.fill(Qt::white);
    painter_.begin(&image_);
    painter_.setPen(QColor(255, 0, 0));
    painter_.setBrush(QColor(255, 0, 0));
  }
  ~Raster() { painter_.end(); }
  void Fill(const TRect& r) {
    painter_.fillRect(r.Left, r.Top, r.Right - r.Left, r.Bottom - r.Top, painter_.brush());
  }
  void Line(const TPoint& from, const TPoint& to) { painter_.drawLine(from.X, from.Y, to.X, to.Y); }
  void Triangle(const TPoint (&corners)[3]) {
    const QPoint points[] = {
        {corners[0].X, corners[0].Y}, {corners[1].X, corners[1].Y}, {corners[2].X, corners[2].Y}};
    painter_.drawPolygon(points, 3);
  }
  void Load(const std::string& fileName) {
    painter_.end();
    image_ = QImage(QString::fromStdString(fileName), "bmp").convertToFormat(QImage::Format_RGB32);
  }
  TColor Pixel(Integer x, Integer y) const {
    const QRgb pixel = image_.pixel(x, y);
    return static_cast<TColor>(qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16);
  }

 private:
  QImage image_;
  QPainter painter_;
};
#endif

// --- Rows against the peer ---

template <class Surface>
void Fill(benchmark::State& state) {
  const auto side = static_cast<Integer>(state.range(0));
  Surface surface(side, side);
  for (auto _ : state) surface.Fill({1, 1, side, side});
  if (surface.Pixel(side - 1, side - 1) != kRed) return state.SkipWithError("not filled");
  state.SetBytesProcessed(state.iterations() * side * side * 4);
}

// Lines of all directions across the picture; some begin or end outside.
template <class Surface>
void Lines(benchmark::State& state) {
  const auto side = static_cast<Integer>(state.range(0));
  std::mt19937 random;
  const auto draw = [&] {
    return static_cast<Integer>(random() % static_cast<unsigned>(side + side / 4)) - side / 8;
  };
  std::vector<TPoint> points(1001);
  for (TPoint& point : points) point = {draw(), draw()};
  Surface surface(side, side);
  for (auto _ : state)
    for (std::size_t i = 1; i < points.size(); ++i) surface.Line(points[i - 1], points[i]);
  surface.Line({side / 2, 3}, {side / 2 + 5, 3});
  if (surface.Pixel(side / 2, 3) != kRed) return state.SkipWithError("no line");
  state.SetItemsProcessed(state.iterations() * 1000);
}

template <class Surface>
void Triangles(benchmark::State& state) {
  const auto side = static_cast<Integer>(state.range(0));
  Surface surface(1000, 1000);
  for (auto _ : state)
    for (Integer i = 0; i < 1000; ++i) {
      const Integer x = i * 7 % (1000 - side), y = i * 13 % (1000 - side);
      const TPoint corners[] = {{x, y + side / 2}, {x + side, y}, {x + side, y + side}};
      surface.Triangle(corners);
    }
  if (surface.Pixel(side - 2, side / 2) != kRed) return state.SkipWithError("no triangle");
  state.SetItemsProcessed(state.iterations() * 1000);
}

class Files {
 public:
  Files() : folder_((std::filesystem::temp_directory_path() / "qxtools-bench-XXXXXX").string()) {
    if (mkdtemp(folder_.data()) == nullptr) std::abort();
  }
  ~Files() { std::filesystem::remove_all(folder_); }
  std::string Bitmap(Integer side) const {
    std::string name = folder_ + "/" + std::to_string(side) + ".bmp";
    if (std::filesystem::exists(name)) return name;
    TBitmap bitmap(side, side);
    bitmap.GetCanvas().SetBrushColor(0x332211);
    bitmap.GetCanvas().FillRect({1, 1, side, side});
    bitmap.SaveToFile(name);
    return name;
  }

 private:
  std::string folder_;
};

template <class Surface>
void Load(benchmark::State& state) {
  static const Files files;
  const auto side = static_cast<Integer>(state.range(0));
  const std::string name = files.Bitmap(side);
  for (auto _ : state) {
    Surface surface(1, 1);
    surface.Load(name);
    if (surface.Pixel(0, side - 1) != 0xFFFFFF || surface.Pixel(side - 1, 1) != 0x332211)
      return state.SkipWithError("wrong pixel");
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(name)));
}

// --- What controls do ---

void Frame(benchmark::State& state) {
  const auto width = static_cast<Integer>(state.range(0));
  const Integer height = width * 9 / 16;
  qxDrawTools::TFrameBitmaps pieces;
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    pieces[k].SetSize(16, 16);
    pieces[k].GetCanvas().SetBrushColor(static_cast<TColor>(k + 1));
    pieces[k].GetCanvas().FillRect({0, 0, 16, 16});
  }
  TBitmap screen(width, height);
  for (auto _ : state) qxDrawTools::DrawFrameWithBMP(screen.GetCanvas(), {0, 0, width, height}, pieces);
  if (screen.GetPixel(width / 2, 15) != 4 || screen.GetPixel(width - 1, height - 1) != 9 ||
      screen.GetPixel(width / 2, height / 2) != 0xFFFFFF)
    return state.SkipWithError("wrong frame");
}

void Controls(benchmark::State& state) {
  TBitmap screen(1920, 1080);
  TCanvas& canvas = screen.GetCanvas();
  for (auto _ : state)
    for (Integer i = 0; i < state.range(0); ++i) {
      const Integer x = i * 37 % 1800, y = i * 53 % 1050;
      qxDrawTools::DrawButton(canvas, {x, y, x + 75, y + 25}, true);
      qxDrawTools::Draw3Angle(canvas, {x + 80, y + 5, x + 95, y + 20}, qxDrawTools::daBottom, kRed);
    }
  qxDrawTools::Draw3Angle(canvas, {80, 5, 95, 20}, qxDrawTools::daBottom, kRed);
  if (screen.GetPixel(87, 19) != kRed || screen.GetPixel(1919, 1079) != 0xFFFFFF)
    return state.SkipWithError("not drawn");
}

[[maybe_unused]] const bool registered = [] {
  const auto add = [](const char* name, auto run, std::initializer_list<std::int64_t> sizes) {
    auto* const row = benchmark::RegisterBenchmark(name, run);
    for (const std::int64_t size : sizes) row->Arg(size);
  };
  add("canvas.fill/qxTools", Fill<Ours>, {64, 512, 2048});
  add("canvas.line/qxTools", Lines<Ours>, {64, 512, 2048});
  add("canvas.triangle/qxTools", Triangles<Ours>, {8, 32, 128});
  add("bitmap.load/qxTools", Load<Ours>, {256, 1024, 4096});
  add("frame.draw/qxTools", Frame, {480, 960, 1920});
  add("canvas.controls/qxTools", Controls, {500, 1000, 2000});
#ifdef QXTOOLS_BENCH_QT
  add("canvas.fill/Qt", Fill<Raster>, {64, 512, 2048});
  add("canvas.line/Qt", Lines<Raster>, {64, 512, 2048});
  add("canvas.triangle/Qt", Triangles<Raster>, {8, 32, 128});
  add("bitmap.load/Qt", Load<Raster>, {256, 1024, 4096});
#endif
  return true;
}();

}  // namespace
