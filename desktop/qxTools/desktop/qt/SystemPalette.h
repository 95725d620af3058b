// The system colours of a Qt palette.
#pragma once

#include <qxTools/painting/SystemColors.h>

#include <QtGui/QPalette>

namespace qxTools::desktop {

SystemColorTable SystemColorsOf(const QPalette& palette);

}  // namespace qxTools::desktop
