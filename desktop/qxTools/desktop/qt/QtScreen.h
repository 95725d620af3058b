// The screen and its windows as Qt knows them, in logical pixels.
#pragma once

#include <qxTools/painting/Screen.h>

namespace qxTools::desktop {

class QtScreen final : public ScreenSource {
 public:
  TPoint GetScreenSize() override;
  bool GetWindowRect(WindowHandle window, TRect& rect) override;
};

}  // namespace qxTools::desktop
