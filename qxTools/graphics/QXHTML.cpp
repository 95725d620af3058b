#include <qxTools/graphics/QXHTML.h>

namespace qxTools::QXHTML {

std::string HTMLColor(std::string_view color, std::string_view text) {
  std::string html = "<Font Color=";
  html.append(color).append(">").append(text).append("</Font>");
  return html;
}

}  // namespace qxTools::QXHTML
