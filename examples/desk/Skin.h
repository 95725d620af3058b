#pragma once

#include <qxTools/graphics/qxDrawTools.h>

namespace desk {

/// Width of the frame's border.
inline constexpr qxTools::Integer kBorder = 14;

/// Paints the nine pieces of the form's frame: a blue moulding with a gold stud in each corner.
void PaintSkin(qxTools::qxDrawTools::TFrameBitmaps& pieces);

}  // namespace desk
