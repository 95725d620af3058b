// Needs Qt's offscreen platform.
#include <qxTools/desktop/Desktop.h>
#include <qxTools/shell/QXDialogs.h>

#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include "desktop/Application.h"
#include "support/Testing.h"

namespace qxTools::test {

namespace {

using desktop::Desktop;
using QXDialogs::QX_MessageBox;

constexpr TDialogButtons kAllButtons = (1U << 11) - 1;

/// Shows a dialog and does something with its window once it is open.
template <class Action>
Integer Answer(TDialogButtons buttons, Action&& action, TDialogType type = dtConfirmation,
               std::string_view title = "") {
  const Desktop desktop;
  QTimer::singleShot(0, [&] { action(*QApplication::activeModalWidget()); });
  return QX_MessageBox("<b>A&B</b>\r\n\xAD\x71\xB3\xE6", type, buttons, title);  // 訂單
}

void Click(const QWidget& window, const char* name) { window.findChild<QPushButton*>(name)->click(); }

class QtDialogsTest : public WithApplication {};

/// Puts its own word for every text of one context.
class Words : public QTranslator {
 public:
  Words(const char* context, const QString& word) : context_(context), word_(word) {
    QCoreApplication::installTranslator(this);
  }
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char*, const char*, int) const override {
    return std::string_view(context) == context_ ? word_ : QString();
  }

 private:
  const std::string context_;
  const QString word_;
};

}  // namespace

TEST_F(QtDialogsTest, EveryButtonHasItsResult) {
  const char* const names[] = {"OK",  "Cancel", "Abort", "Retry",   "Ignore",
                               "Yes", "No",     "All",   "NoToAll", "YesToAll"};
  for (Integer i = 0; i < 10; ++i)
    EXPECT_EQ(Answer(kAllButtons, [&](QWidget& window) { Click(window, names[i]); }), i + 1) << names[i];
}

TEST_F(QtDialogsTest, OnlyTheAskedButtonsAreThereAndHelpLeavesTheDialogOpen) {
  const Integer result = Answer(dbYes | dbHelp, [](QWidget& window) {
    EXPECT_EQ(window.findChildren<QPushButton*>().size(), 2);
    EXPECT_TRUE(window.findChild<QPushButton*>("Yes")->isDefault());
    Click(window, "Help");
    EXPECT_TRUE(window.isVisible());
    Click(window, "Yes");
  });
  EXPECT_EQ(result, 6);
}

TEST_F(QtDialogsTest, ClosingAnswersAsTheOnlyButtonOrAsCancel) {
  const auto close = [](QWidget& window) { window.close(); };
  EXPECT_EQ(Answer(dbYes | dbNo, close), 2);
  EXPECT_EQ(Answer(dbIgnore, close), 5);
  const auto escape = [](QWidget& window) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &key);
  };
  EXPECT_EQ(Answer(dbOK | dbHelp, escape), 1);
}

TEST_F(QtDialogsTest, CaptionsAreThoseOfTheTypeUnlessGiven) {
  QGuiApplication::setApplicationDisplayName("Orders");
  const struct {
    TDialogType type;
    const char* title;
    const char* caption;
    int labels;  // the text, and the icon
  } cases[] = {
      {dtWarning, "", "Warning", 2},         {dtError, "", "Error", 2},
      {dtInformation, "", "Information", 2}, {dtConfirmation, "", "Confirm", 2},
      {dtCustom, "", "Orders", 1},           {dtError, "\xAD\x71\xB3\xE6", "\xE8\xA8\x82\xE5\x96\xAE", 2}};
  for (const auto& c : cases)
    Answer(
        dbOK,
        [&](QWidget& window) {
          EXPECT_EQ(window.windowTitle().toStdString(), c.caption);
          EXPECT_EQ(window.findChildren<QLabel*>().size(), c.labels) << c.caption;
          window.close();
        },
        c.type, c.title);
}

TEST_F(QtDialogsTest, TheMessageIsPlainTextInTheMiddleOfTheScreen) {
  Answer(dbOK, [](QWidget& window) {
    const auto* const label = window.findChild<QLabel*>("Message");
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(label->text(), QString::fromUtf16(u"<b>A&B</b>\n\u8A02\u55AE"));
    const QPoint off =
        window.frameGeometry().center() - QGuiApplication::primaryScreen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    window.close();
  });
}

TEST_F(QtDialogsTest, LongMessagesAreWrappedAndLargeOnesScroll) {
  std::string words, lines;
  for (int i = 0; i < 300; ++i) words += "word ", lines += "line\r\n";
  const std::string longWord(3000, 'x');
  for (const auto& [message, across, down] :
       {std::tuple(words, false, false), {lines, false, true}, {longWord, true, false}}) {
    const Desktop desktop;
    QTimer::singleShot(0, [across = across, down = down] {
      QWidget* const window = QApplication::activeModalWidget();
      const QSize screen = QGuiApplication::primaryScreen()->availableSize();
      EXPECT_EQ(window->frameSize(), window->frameSize().boundedTo(screen));
      const auto* const area = window->findChild<QScrollArea*>();
      EXPECT_EQ(area != nullptr && area->horizontalScrollBar()->maximum() > 0, across);
      EXPECT_EQ(area != nullptr && area->verticalScrollBar()->maximum() > 0, down);
      const auto* const text = window->findChild<QLabel*>("Message");
      EXPECT_GE(text->height(), text->heightForWidth(text->width()));
      window->close();
    });
    QXDialogs::ShowMessageBox(message, "");
  }
}

// In UTF-8: 是, 全部.
TEST_F(QtDialogsTest, ButtonTextsFollowTheTranslator) {
  const auto expect = [](const char* yes, const char* all) {
    Answer(kAllButtons, [&](QWidget& window) {
      EXPECT_EQ(window.findChild<QPushButton*>("Yes")->text().toStdString(), yes);
      EXPECT_EQ(window.findChild<QPushButton*>("All")->text().toStdString(), all);
      window.close();
    });
  };
  expect("&Yes", "&All");
  const Words qt("QPlatformTheme", QString::fromUtf16(u"\u662F(&Y)"));
  expect("\xE6\x98\xAF(&Y)", "\xE5\x85\xA8\xE9\x83\xA8(&A)");
  const Words own("qxTools", "*");
  expect("\xE6\x98\xAF(&Y)", "*");
}

}  // namespace qxTools::test
