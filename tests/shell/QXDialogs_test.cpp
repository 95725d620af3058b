#include <qxTools/shell/QXDialogs.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXDialogs;
using namespace qxTools::test;

/// Dialogs that note what is done to them, and answer or fail.
class NotingService : public DialogService {
 public:
  NotingService() { SetDialogService(this); }
  ~NotingService() override { SetDialogService(nullptr); }
  std::unique_ptr<MessageDialog> CreateMessageDialog(std::string_view message, TDialogType type,
                                                     TDialogButtons buttons) override {
    Note("create " + std::string(message) + " " + std::to_string(type) + " " + std::to_string(buttons));
    return std::make_unique<Dialog>(*this);
  }
  void Note(const std::string& line) { notes.push_back(line); }

  std::vector<std::string> notes;
  bool fails = false;

 private:
  class Dialog : public MessageDialog {
   public:
    explicit Dialog(NotingService& service) : service_(service) {}
    ~Dialog() override { service_.Note("freed"); }
    void SetHelpContext(Integer context) override { service_.Note("help " + std::to_string(context)); }
    void SetCaption(std::string_view caption) override { service_.Note("caption " + std::string(caption)); }
    void CenterOnScreen() override { service_.Note("centre"); }
    Integer ShowModal() override {
      if (service_.fails) throw Exception("no window");
      return 7;
    }

   private:
    NotingService& service_;
  };
};

using Notes = std::vector<std::string>;

TEST(QXDialogs, ABoxIsCentredAndTitledAndFreed) {
  NotingService service;
  EXPECT_EQ(QX_MessageBox("Save?", dtConfirmation, dbYes | dbNo, "Orders"), 7);
  EXPECT_EQ(service.notes, (Notes{"create Save? 3 3", "help 0", "centre", "caption Orders", "freed"}));
  service.notes.clear();
  ShowMessageBox("Done", "");  // without a title the service's caption stays
  EXPECT_EQ(service.notes, (Notes{"create Done 4 4", "help 0", "centre", "freed"}));
}

TEST(QXDialogs, ErrorsPassAndTheDialogIsFreed) {
  EXPECT_EQ(MessageOf([] { ShowMessageBox("Done", ""); }), "No dialog service");
  NotingService service;
  service.fails = true;
  EXPECT_EQ(MessageOf([] { ShowMessageBox("Done", ""); }), "no window");
  EXPECT_EQ(service.notes.back(), "freed");
}

TEST(QXDialogs, ClosingAnswersAsTheOnlyButtonOrAsCancel) {
  const std::pair<TDialogButtons, Integer> rows[] = {
      {dbOK, 1},    {dbOK | dbHelp, 1}, {dbYes | dbNo, 2}, {dbYes, 6}, {dbNo, 7},
      {dbAbort, 3}, {dbRetry, 4},       {dbIgnore, 5},     {dbAll, 8}, {dbHelp, 2},
      {0, 2},       {dbNoToAll, 9},     {dbYesToAll, 10}};
  ExpectEach(GetCloseResult, rows);
  EXPECT_EQ(GetDialogResult(dbHelp), 0);
}

}  // namespace
