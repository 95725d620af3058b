// The screen and its windows as the system knows them.
#pragma once

#include <qxTools/painting/Screen.h>

namespace qxTools::desktop {

class Win32Screen final : public ScreenSource {
 public:
  TPoint GetScreenSize() override;
  bool GetWindowRect(WindowHandle window, TRect& rect) override;
};

}  // namespace qxTools::desktop
