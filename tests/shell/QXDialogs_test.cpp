#include <qxTools/shell/QXDialogs.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXDialogs;
using namespace qxTools::test;

using Notes = std::vector<std::string>;
Notes notes;

/// Notes what is done to it, and answers 7; without a message it fails.
class NotingDialog : public MessageDialog {
 public:
  explicit NotingDialog(std::string_view message) : message_(message) {}
  ~NotingDialog() override { notes.push_back("freed"); }
  void SetHelpContext(Integer context) override { notes.push_back("help " + std::to_string(context)); }
  void SetCaption(std::string_view caption) override { notes.push_back("caption " + std::string(caption)); }
  void CenterOnScreen() override { notes.push_back("centre"); }
  Integer ShowModal() override { return message_.empty() ? throw Exception("no window") : 7; }

 private:
  std::string message_;
};

class NotingService : public DialogService {
 public:
  NotingService() { SetDialogService(this); }
  ~NotingService() override { SetDialogService(nullptr); }
  std::unique_ptr<MessageDialog> CreateMessageDialog(std::string_view message, TDialogType type,
                                                     TDialogButtons buttons) override {
    notes = {std::string(message) + " " + std::to_string(type) + " " + std::to_string(buttons)};
    return std::make_unique<NotingDialog>(message);
  }
};

TEST(QXDialogs, ABoxIsCentredAndTitledAndFreed) {
  EXPECT_EQ(MessageOf([] { ShowMessageBox("Done", ""); }), "No dialog service");
  NotingService service;
  EXPECT_EQ(QX_MessageBox("Save?", dtConfirmation, dbYes | dbNo, "Orders"), 7);
  EXPECT_EQ(notes, (Notes{"Save? 3 3", "help 0", "centre", "caption Orders", "freed"}));
  ShowMessageBox("Done", "");  // without a title the service's caption stays
  EXPECT_EQ(notes, (Notes{"Done 4 4", "help 0", "centre", "freed"}));
  EXPECT_EQ(MessageOf([] { ShowMessageBox("", ""); }), "no window");
  EXPECT_EQ(notes.back(), "freed");
}

TEST(QXDialogs, ClosingAnswersAsTheOnlyButtonOrAsCancel) {
  // clang-format off
  Rows<TDialogButtons, Integer>(GetCloseResult)
      (dbOK, 1)(dbOK | dbHelp, 1)(dbYes | dbNo, 2)(dbYes, 6)(dbNo, 7)(dbAbort, 3)(dbRetry, 4)(dbIgnore, 5)
      (dbAll, 8)(dbHelp, 2)(0, 2)(dbNoToAll, 9)(dbYesToAll, 10);
  // clang-format on
  EXPECT_EQ(GetDialogResult(dbHelp), 0);
}

}  // namespace
