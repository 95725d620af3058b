/// @file
/// The screen and the windows on it, from a replaceable source. A desktop plugs in its own.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/painting/Geometry.h>

#include <cstdint>

namespace qxTools {

/// A window, as the desktop numbers it.
using WindowHandle = std::uintptr_t;

/// A screen and its windows.
class QXTOOLS_API ScreenSource {
 public:
  virtual ~ScreenSource();
  /// Width and height of the primary screen, in pixels.
  virtual TPoint GetScreenSize() = 0;
  /// Where the window stands on the screen. @return false for an unknown window; `rect` is as it was then.
  virtual bool GetWindowRect(WindowHandle window, TRect& rect) = 0;
};

/// Plugs in a source, which the caller keeps; null takes it away.
/// @return the source plugged in before, or null.
QXTOOLS_API ScreenSource* SetScreenSource(ScreenSource* source);

/// The size by the plugged-in source; without one the screen has no limit: the largest numbers.
QXTOOLS_API TPoint GetScreenSize();

/// Asks the plugged-in source; without one every window is unknown.
QXTOOLS_API bool GetWindowRect(WindowHandle window, TRect& rect);

}  // namespace qxTools
