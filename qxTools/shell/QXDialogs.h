/// @file
/// Message boxes: modal, centred on the screen, with a title of the caller's choice.
///
/// The dialogs are those of the service that the host has plugged in (runtime/MessageDialog.h). For the user
/// interface's thread.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>
#include <qxTools/painting/MessageDialog.h>

#include <string_view>

namespace qxTools::QXDialogs {

/// Shows a message. With an empty title the box keeps the caption of its type.
/// @return the result of the button that was pressed (GetDialogResult).
/// @throws Exception "No dialog service" when none is plugged in; the service's errors pass.
QXTOOLS_API Integer QX_MessageBox(std::string_view message, TDialogType type, TDialogButtons buttons,
                                  std::string_view title);

/// The same without an icon and with an OK button alone; the answer is dropped.
QXTOOLS_API void ShowMessageBox(std::string_view message, std::string_view title);

}  // namespace qxTools::QXDialogs
