#include <qxTools/graphics/QXHTML.h>

namespace qxTools::QXHTML {

std::string HTMLColor(std::string_view color, std::string_view text) {
  return std::string("<Font Color=").append(color).append(">").append(text).append("</Font>");
}

}  // namespace qxTools::QXHTML
