/// @file
/// Message boxes: modal, centred on the screen, with a title of the caller's choice.
///
/// The host supplies the dialogs by a service (qxTools/painting/MessageDialog.h). To be called by the thread
/// of the user interface. Texts are in code page 950.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>
#include <qxTools/painting/MessageDialog.h>

#include <string_view>

namespace qxTools::QXDialogs {

/// Shows a message and waits for the answer. If `title` is empty, the caption is that of `type`
/// (GetDialogCaption).
/// @return the result of the button that was pressed (GetDialogResult).
/// @throws Exception "No dialog service" if the host has set none. What the service throws is let through.
QXTOOLS_API Integer QX_MessageBox(std::string_view message, TDialogType type, TDialogButtons buttons,
                                  std::string_view title);

/// Shows a message without an icon, with an OK button alone, and waits until it is closed. If `title` is
/// empty, the caption is the application's name.
/// @throws Exception "No dialog service" if the host has set none. What the service throws is let through.
QXTOOLS_API void ShowMessageBox(std::string_view message, std::string_view title);

}  // namespace qxTools::QXDialogs
