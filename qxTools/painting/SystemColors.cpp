#include <qxTools/painting/SystemColors.h>

namespace qxTools {

namespace {

constexpr TColor kSystemBit = 0x80000000;

constexpr std::size_t NumberOf(TColor systemColor) { return systemColor & 0xFF; }

constexpr SystemColorTable GreyDesktop() {
  SystemColorTable colors{};
  colors[NumberOf(clBtnFace)] = 0xC0C0C0;
  colors[NumberOf(clBtnHighlight)] = 0xFFFFFF;
  colors[NumberOf(clBtnShadow)] = 0x808080;
  return colors;
}

constinit SystemColorTable table = GreyDesktop();

}  // namespace

SystemColorTable DefaultSystemColors() { return GreyDesktop(); }

void SetSystemColors(const SystemColorTable& colors) { table = colors; }

TColor ColorToRGB(TColor color) {
  if ((color & kSystemBit) == 0) return color & 0xFFFFFF;
  return NumberOf(color) < table.size() ? table[NumberOf(color)] : 0;
}

}  // namespace qxTools
