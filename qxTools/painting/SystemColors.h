/// @file
/// The colours of the user's desktop by their numbers.
///
/// A TColor whose highest bit is set is a system colour; its low byte is the number. At first the table has
/// the colours of a grey desktop: button face C0C0C0, highlight FFFFFF, shadow 808080, all others black. A
/// desktop host replaces them.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <array>

namespace qxTools {

inline constexpr TColor clBtnFace = 0x8000000F;       ///< The face of buttons.
inline constexpr TColor clBtnShadow = 0x80000010;     ///< The shadow of buttons.
inline constexpr TColor clBtnHighlight = 0x80000014;  ///< The highlight of buttons.

/// The plain colours of the system colours 0 to 30.
using SystemColorTable = std::array<TColor, 31>;

/// Returns the table that a program starts with.
QXTOOLS_API SystemColorTable DefaultSystemColors();

/// Replaces the table. What has been painted is not changed.
QXTOOLS_API void SetSystemColors(const SystemColorTable& colors);

/// Returns the plain colour of a system colour; black if the table does not have its number. Any other colour
/// is returned without its highest byte.
QXTOOLS_API TColor ColorToRGB(TColor color);

}  // namespace qxTools
