// The system colours that a Qt palette stands for.
#pragma once

#include <qxTools/painting/SystemColors.h>

#include <QtGui/QPalette>

namespace qxTools::desktop {

SystemColorTable SystemColorsOf(const QPalette& palette);

}  // namespace qxTools::desktop
