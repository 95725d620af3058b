/// @file
/// Connects the library to the desktop: one object sets everything that the library needs of it.
///
/// While the object exists, text on bitmaps is painted in the application's font, system colours are those of
/// the application's palette (and follow its changes), the screen and its windows are known, and message
/// dialogs can be shown. A window's handle is its QWidget::winId(). Use it only on the thread of the user
/// interface.
#pragma once

#include <qxTools/desktop/Export.h>

#include <memory>

namespace qxTools::desktop {

/// The connection to the desktop. Make one after the program's QApplication, and destroy it before that. The
/// library never makes one itself.
class QXTOOLS_DESKTOP_API Desktop {
 public:
  /// Connects the library to the desktop.
  /// @throws Exception "No application object" if there is no QApplication.
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
