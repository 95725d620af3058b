/// @file
/// The colours of the user's desktop, by their numbers.
///
/// A colour with the top bit set names a system colour by its low byte. The table starts with a grey desktop:
/// button face C0C0C0, highlight FFFFFF, shadow 808080, all others black. A desktop fills in its own.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <array>

namespace qxTools {

/// Face, shadow and highlight of buttons.
inline constexpr TColor clBtnFace = 0x8000000F;
inline constexpr TColor clBtnShadow = 0x80000010;
inline constexpr TColor clBtnHighlight = 0x80000014;

/// Plain colours by system colour number, 0 to 30.
using SystemColorTable = std::array<TColor, 31>;

/// The table that a program starts with.
QXTOOLS_API SystemColorTable DefaultSystemColors();

/// Fills in the table of a desktop. What is painted already keeps its colours.
QXTOOLS_API void SetSystemColors(const SystemColorTable& colors);

/// A system colour as the plain colour that it stands for, black beyond the table; a plain colour as it is,
/// without its highest byte.
QXTOOLS_API TColor ColorToRGB(TColor color);

}  // namespace qxTools
