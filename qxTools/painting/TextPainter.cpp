#include <qxTools/painting/TextPainter.h>

#include <utility>

namespace qxTools {

namespace {

TextPainter* pluggedInPainter = nullptr;

}  // namespace

TextPainter::~TextPainter() = default;

TextPainter* SetTextPainter(TextPainter* painter) { return std::exchange(pluggedInPainter, painter); }

TextPainter* GetTextPainter() { return pluggedInPainter; }

}  // namespace qxTools
