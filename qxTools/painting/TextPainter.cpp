#include <qxTools/painting/TextPainter.h>

#include <utility>

namespace qxTools {

namespace {

TextPainter* pluggedIn = nullptr;

}  // namespace

TextPainter::~TextPainter() = default;

TextPainter* SetTextPainter(TextPainter* painter) { return std::exchange(pluggedIn, painter); }

TextPainter* GetTextPainter() { return pluggedIn; }

}  // namespace qxTools
