/// @file
/// The message dialogs of a desktop.
///
/// The library has no desktop of its own: the host plugs in a service that makes the dialogs. Their captions
/// and answers are the same on every desktop and stand here.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <memory>
#include <string_view>

namespace qxTools {

/// What a message is; it decides icon and caption.
enum TDialogType { dtWarning, dtError, dtInformation, dtConfirmation, dtCustom };

/// The buttons, one bit each; they combine with "|".
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
using TDialogButtons = std::uint32_t;

/// The caption that a dialog has unless it is given another: "Warning", "Error", "Information" or "Confirm";
/// "" for the custom type, which is captioned with the application's name.
QXTOOLS_API const char* GetDialogCaption(TDialogType type);

/// What a button answers: 1 ok, 2 cancel, 3 abort, 4 retry, 5 ignore, 6 yes, 7 no, 8 all, 9 no to all, 10 yes
/// to all; 0 help, which leaves the dialog open.
QXTOOLS_API Integer GetDialogResult(TDialogButton button);

/// What closing the dialog's window answers: the same as its only button, help left aside, otherwise cancel.
QXTOOLS_API Integer GetCloseResult(TDialogButtons buttons);

/// A dialog that is ready to be shown.
class QXTOOLS_API MessageDialog {
 public:
  virtual ~MessageDialog();
  virtual void SetHelpContext(Integer context) = 0;
  virtual void SetCaption(std::string_view caption) = 0;
  /// To be shown in the middle of the screen.
  virtual void CenterOnScreen() = 0;
  /// Shows the dialog until it is answered. @return the result of the button.
  virtual Integer ShowModal() = 0;
};

/// Makes dialogs. Texts are code page 950; a message is plain text, never markup.
class QXTOOLS_API DialogService {
 public:
  virtual ~DialogService();
  /// A dialog that is not yet shown.
  virtual std::unique_ptr<MessageDialog> CreateMessageDialog(std::string_view message, TDialogType type,
                                                             TDialogButtons buttons) = 0;
};

/// Plugs in a service, which the caller keeps; null takes it away.
/// @return the service plugged in before, or null.
QXTOOLS_API DialogService* SetDialogService(DialogService* service);

/// The service that is plugged in. @throws Exception "No dialog service" when there is none.
QXTOOLS_API DialogService& GetDialogService();

}  // namespace qxTools
