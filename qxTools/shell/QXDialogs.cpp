#include <qxTools/shell/QXDialogs.h>

namespace qxTools::QXDialogs {

Integer QX_MessageBox(std::string_view message, TDialogType type, TDialogButtons buttons,
                      std::string_view title) {
  const std::unique_ptr<MessageDialog> dialog =
      GetDialogService().CreateMessageDialog(message, type, buttons);
  dialog->SetHelpContext(0);
  dialog->CenterOnScreen();
  if (!title.empty()) dialog->SetCaption(title);
  return dialog->ShowModal();
}

void ShowMessageBox(std::string_view message, std::string_view title) {
  QX_MessageBox(message, dtCustom, dbOK, title);
}

}  // namespace qxTools::QXDialogs
