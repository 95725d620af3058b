/// @file
/// Coloured text for HTML.
#pragma once

#include <qxTools/graphics/QXColorMode.h>

namespace qxTools::QXHTML {

/// Returns "#" and three channels in hexadecimal: QXColorMode::HTMLRGB under this unit's name.
using QXColorMode::HTMLRGB;

/// Returns `<Font Color=COLOR>TEXT</Font>`.
/// On purpose: the colour has no quotes around it, and neither text is escaped.
QXTOOLS_API std::string HTMLColor(std::string_view color, std::string_view text);

}  // namespace qxTools::QXHTML
