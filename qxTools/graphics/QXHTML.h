/// @file
/// Colour text for HTML.
#pragma once

#include <qxTools/graphics/QXColorMode.h>

namespace qxTools::QXHTML {

/// The same function in both units.
using QXColorMode::HTMLRGB;

/// `<Font Color=COLOR>TEXT</Font>`.
/// On purpose: no quotes stand around the colour, and neither text is escaped.
QXTOOLS_API std::string HTMLColor(std::string_view color, std::string_view text);

}  // namespace qxTools::QXHTML
