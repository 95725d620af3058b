/// @file
/// The size of the screen and the places of windows. They come from a source that a desktop host sets.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/painting/Geometry.h>

#include <cstdint>

namespace qxTools {

/// The number by which the desktop knows a window.
using WindowHandle = std::uintptr_t;

/// A source that knows the screen and its windows.
class QXTOOLS_API ScreenSource {
 public:
  /// Destroys the source, which must not be set any more.
  virtual ~ScreenSource();
  /// Returns width and height of the primary screen in pixels.
  virtual TPoint GetScreenSize() = 0;
  /// Sets `rect` to the place of a window on the screen.
  /// @return false if the window is unknown; `rect` is unchanged then.
  virtual bool GetWindowRect(WindowHandle window, TRect& rect) = 0;
};

/// Sets the source of this process, or none if it is null. The caller keeps owning it.
/// @return the source that was set before, or null.
QXTOOLS_API ScreenSource* SetScreenSource(ScreenSource* source);

/// Returns width and height of the primary screen in pixels. Without a source both are the largest integer,
/// so that the screen limits nothing.
QXTOOLS_API TPoint GetScreenSize();

/// Sets `rect` to the place of a window on the screen.
/// @return false if the window is unknown or there is no source; `rect` is unchanged then.
QXTOOLS_API bool GetWindowRect(WindowHandle window, TRect& rect);

}  // namespace qxTools
