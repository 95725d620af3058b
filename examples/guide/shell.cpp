// A message box over a service that the host plugs in, and what registering a file type would store.
#include <qxTools/base/Exceptions.h>
#include <qxTools/shell/QXDialogs.h>
#include <qxTools/shell/QXRegFileType.h>

#include <iostream>

using namespace qxTools;

namespace {

// A host without windows: it prints the question and answers yes.
class PrintedDialog : public MessageDialog {
 public:
  explicit PrintedDialog(std::string_view message) : message_(message) {}
  void SetHelpContext(Integer) override {}
  void SetCaption(std::string_view caption) override { caption_ = caption; }
  void CenterOnScreen() override {}
  Integer ShowModal() override {
    std::cout << caption_ << ": " << message_ << "\n";
    return GetDialogResult(dbYes);
  }

 private:
  std::string message_;
  std::string caption_;
};

class PrintedDialogs : public DialogService {
 public:
  std::unique_ptr<MessageDialog> CreateMessageDialog(std::string_view message, TDialogType,
                                                     TDialogButtons) override {
    return std::make_unique<PrintedDialog>(message);
  }
};

}  // namespace

int main() {
  try {
    QXDialogs::ShowMessageBox("Saved.", "Orders");
  } catch (const Exception& e) {
    std::cout << e.what() << "\n";
  }

  PrintedDialogs dialogs;
  SetDialogService(&dialogs);
  const Integer answer =
      QXDialogs::QX_MessageBox("Delete the order?", dtConfirmation, dbYes | dbNo, "Orders");
  std::cout << "answer " << answer << "\n";
  SetDialogService(nullptr);

  // Only looked at here; RegFileType writes the values and tells the desktop.
  for (const auto& value : QXRegFileType::GetFileTypeValues(".ord", "Orders.File", "/opt/orders", "Order", 0))
    std::cout << value.Key << " = " << value.Value << "\n";
}
