// DrawText by the names that windows.h makes of it, for programs that include windows.h. Not here.
#include <qxTools/graphics/qxDrawTools.h>

namespace qxTools::qxDrawTools {

void DrawTextA(TCanvas& canvas, const TRect& rect, std::string_view text, TAlignmentEx alignment) {
  DrawText(canvas, rect, text, alignment);
}

void DrawTextW(TCanvas& canvas, const TRect& rect, std::string_view text, TAlignmentEx alignment) {
  DrawText(canvas, rect, text, alignment);
}

}  // namespace qxTools::qxDrawTools
