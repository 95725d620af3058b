// What every host sets: one object sets it and takes it out again.
#pragma once

#include <qxTools/painting/MessageDialog.h>
#include <qxTools/painting/Screen.h>
#include <qxTools/painting/SystemColors.h>
#include <qxTools/painting/TextPainter.h>

namespace qxTools::desktop {

/// While it lives, the library uses these services. Afterwards it is as it was without a desktop.
class Services {
 public:
  Services(TextPainter& text, ScreenSource& screen, DialogService& dialogs) {
    SetTextPainter(&text);
    SetScreenSource(&screen);
    SetDialogService(&dialogs);
  }
  Services(const Services&) = delete;
  Services& operator=(const Services&) = delete;
  ~Services() {
    SetSystemColors(DefaultSystemColors());
    SetDialogService(nullptr);
    SetScreenSource(nullptr);
    SetTextPainter(nullptr);
  }
};

}  // namespace qxTools::desktop
