/// @file
/// Connects the library to the desktop: one object sets everything that the library needs of it.
///
/// While the object exists, text on bitmaps is painted in the desktop's font, system colours are the
/// desktop's (and follow its changes), the screen and its windows are known, and message dialogs can be
/// shown. Use it only on the thread of the user interface, whose messages or events must be dispatched.
///
/// Over Qt, font and colours are those of the application object, and a window's handle is QWidget::winId().
/// On Windows the font is that of message boxes, and a window's handle is its HWND as a number.
#pragma once

#include <qxTools/desktop/Export.h>

#include <memory>

namespace qxTools::desktop {

/// The connection to the desktop. Over Qt, make one after the program's QApplication and destroy it before
/// that. The library never makes one itself.
class QXTOOLS_DESKTOP_API Desktop {
 public:
  /// Connects the library to the desktop.
  /// @throws Exception over Qt "No application object" if there is no QApplication.
  Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  /// Disconnects the library, which is then as it was without a desktop.
  ~Desktop();

 private:
  class Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace qxTools::desktop
