// What a system brings for Clock.h.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

/// The system's local date and time.
TDateTime SystemNow();

}  // namespace qxTools
