/// @file
/// Message dialogs.
///
/// The library cannot show a window: a desktop host sets a service that makes the dialogs. Their captions and
/// results are the same on every desktop and are defined here.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <memory>
#include <string_view>

namespace qxTools {

/// The kind of a message, which determines icon and caption.
enum TDialogType {
  dtWarning,       ///< Caption "Warning".
  dtError,         ///< Caption "Error".
  dtInformation,   ///< Caption "Information".
  dtConfirmation,  ///< Caption "Confirm".
  dtCustom         ///< No icon; the caption is the application's name.
};

/// The buttons, one bit each. They are combined with "|".
enum TDialogButton : std::uint32_t {
  dbYes = 1U << 0,
  dbNo = 1U << 1,
  dbOK = 1U << 2,
  dbCancel = 1U << 3,
  dbAbort = 1U << 4,
  dbRetry = 1U << 5,
  dbIgnore = 1U << 6,
  dbAll = 1U << 7,
  dbNoToAll = 1U << 8,
  dbYesToAll = 1U << 9,
  dbHelp = 1U << 10,
};
/// A set of buttons.
using TDialogButtons = std::uint32_t;

/// Returns the caption of a dialog that is given no other: "Warning", "Error", "Information" or "Confirm".
/// Returns "" for the custom type, whose caption is the application's name.
QXTOOLS_API const char* GetDialogCaption(TDialogType type);

/// Returns the result of a button: 1 ok, 2 cancel, 3 abort, 4 retry, 5 ignore, 6 yes, 7 no, 8 all, 9 no to
/// all, 10 yes to all. Returns 0 for help, which does not close the dialog.
QXTOOLS_API Integer GetDialogResult(TDialogButton button);

/// Returns the result of a dialog whose window is closed: that of its only button (help is not counted),
/// otherwise 2, cancel.
QXTOOLS_API Integer GetCloseResult(TDialogButtons buttons);

/// A message dialog that has not been shown yet.
class QXTOOLS_API MessageDialog {
 public:
  /// Destroys the dialog.
  virtual ~MessageDialog();
  /// Sets the number of the help page. A host without help ignores it.
  virtual void SetHelpContext(Integer context) = 0;
  /// Replaces the caption. The window's caption is exactly this text.
  virtual void SetCaption(std::string_view caption) = 0;
  /// Makes the dialog appear in the middle of the screen.
  virtual void CenterOnScreen() = 0;
  /// Shows the dialog and returns when the user has answered it.
  /// @return the result of the button, as GetDialogResult and GetCloseResult define it.
  virtual Integer ShowModal() = 0;
};

/// A service that makes dialogs. Texts are in code page 950. A message is plain text; nothing in it is
/// markup.
class QXTOOLS_API DialogService {
 public:
  /// Destroys the service, which must not be set any more.
  virtual ~DialogService();
  /// Makes a dialog with these buttons and the caption of its type. It is not shown yet.
  virtual std::unique_ptr<MessageDialog> CreateMessageDialog(std::string_view message, TDialogType type,
                                                             TDialogButtons buttons) = 0;
};

/// Sets the service of this process, or none if it is null. The caller keeps owning it.
/// @return the service that was set before, or null.
QXTOOLS_API DialogService* SetDialogService(DialogService* service);

/// Returns the service that is set.
/// @throws Exception "No dialog service" if there is none.
QXTOOLS_API DialogService& GetDialogService();

}  // namespace qxTools
