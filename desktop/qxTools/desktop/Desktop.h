/// @file
/// The library on a real desktop: one object that plugs everything in.
///
/// While it lives, text on bitmaps is painted in the application's font, system colours are those of the
/// application's palette (and follow its changes), and the screen and its windows are known. A window's
/// handle is its QWidget::winId(). For the user interface's thread.
#pragma once

#include <qxTools/desktop/Export.h>

#include <memory>

namespace qxTools::desktop {

/// Made once, after the program's QApplication, and gone before it; the library never makes one itself.
class QXTOOLS_DESKTOP_API Desktop {
 public:
  /// @throws Exception "No application object" unless there is a QApplication.
  Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  /// Takes everything out again: the library is then as without a desktop.
  ~Desktop();

 private:
  class Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace qxTools::desktop
