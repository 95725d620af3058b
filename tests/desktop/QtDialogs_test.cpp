// Needs Qt's offscreen platform.
#include <qxTools/desktop/Desktop.h>
#include <qxTools/shell/QXDialogs.h>

#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtGui/QClipboard>
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

struct Box {
  TDialogButtons buttons = dbOK;
  TDialogType type = dtConfirmation;
  std::string_view title = "";
  std::string_view message = "<b>A&B</b>\r\n\xAD\x71\xB3\xE6";  // 訂單
};

/// Shows a dialog, does something with its window once it is open, and closes it if that does not.
template <class Action>
Integer Answer(const Box& box, Action&& action) {
  const Desktop desktop;
  QTimer::singleShot(0, [&] {
    QWidget& window = *QApplication::activeModalWidget();
    action(window);
    window.close();
  });
  return QX_MessageBox(box.message, box.type, box.buttons, box.title);
}

void Click(const QWidget& window, const char* name) { window.findChild<QPushButton*>(name)->click(); }

class QtDialogsTest : public WithApplication {};

/// Puts its own word for every text of one context.
struct Words : QTranslator {
  Words(const char* ofContext, const char16_t* ofWord)
      : theirContext(ofContext), word(QString::fromUtf16(ofWord)) {
    QCoreApplication::installTranslator(this);
  }
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char*, const char*, int) const override {
    return context == theirContext ? word : QString();
  }
  const std::string theirContext;
  const QString word;
};

}  // namespace

TEST_F(QtDialogsTest, EveryButtonHasItsResult) {
  const char* const names[] = {"OK",  "Cancel", "Abort", "Retry",   "Ignore",
                               "Yes", "No",     "All",   "NoToAll", "YesToAll"};
  for (Integer i = 0; i < 10; ++i)
    EXPECT_EQ(Answer({kAllButtons}, [&](QWidget& window) { Click(window, names[i]); }), i + 1) << names[i];
}

TEST_F(QtDialogsTest, OnlyTheAskedButtonsAreThereAndHelpLeavesTheDialogOpen) {
  const Integer result = Answer({dbYes | dbHelp}, [](QWidget& window) {
    EXPECT_EQ(window.findChildren<QPushButton*>().size(), 2);
    EXPECT_TRUE(window.findChild<QPushButton*>("Yes")->isDefault());
    Click(window, "Help");
    EXPECT_TRUE(window.isVisible());
    Click(window, "Yes");
  });
  EXPECT_EQ(result, 6);
}

TEST_F(QtDialogsTest, ClosingAnswersAsTheOnlyButtonOrAsCancel) {
  EXPECT_EQ(Answer({dbYes | dbNo}, [](QWidget&) {}), 2);
  const auto escape = [](QWidget& window) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &key);
  };
  EXPECT_EQ(Answer({dbOK | dbHelp}, escape), 1);
}

TEST_F(QtDialogsTest, CaptionsAreThoseOfTheTypeUnlessGiven) {
  QGuiApplication::setApplicationDisplayName("Orders");
  const auto expect = [](TDialogType type, const char* title, const QString& caption) {
    Answer({dbOK, type, title}, [&](QWidget& window) {
      EXPECT_EQ(window.windowTitle(), caption);
      EXPECT_EQ(window.findChildren<QLabel*>().size(), type == dtCustom ? 1 : 2)
          << "text and icon of " << type;
    });
  };
  const char* const captions[] = {"Warning", "Error", "Information", "Confirm"};  // in the types' order
  for (int i = dtWarning; i <= dtConfirmation; ++i) expect(static_cast<TDialogType>(i), "", captions[i]);
  expect(dtCustom, "", "Orders");
  expect(dtError, "\xAD\x71\xB3\xE6", QString::fromUtf16(u"\u8A02\u55AE"));  // 訂單
}

/// The display name that Qt adds to the caption while a window's own system window is made.
struct AddedName : QObject {
  AddedName() { QCoreApplication::instance()->installEventFilter(this); }
  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::PlatformSurface && name.isNull())
      name = QGuiApplication::applicationDisplayName();
    return QObject::eventFilter(receiver, event);
  }
  QString name;
};

TEST_F(QtDialogsTest, NoNameIsAddedToTheCaption) {
  const auto expect = [](const char* set, const QString& later) {
    if (set != nullptr) QGuiApplication::setApplicationDisplayName(set);
    const AddedName added;
    Answer({dbOK, dtError, "Order"}, [](QWidget&) {});
    EXPECT_EQ(added.name, set != nullptr ? "" : "test");
    QCoreApplication::setApplicationName("later");
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), later);
    QCoreApplication::setApplicationName("test");
  };
  expect(nullptr, "later");  // one that was never set is the application's name, now as before
  expect("test", "test");
  expect("Orders", "Orders");
}

TEST_F(QtDialogsTest, TheCaptionFits) {
  const std::string title(70, 'w');
  Answer({dbOK, dtError, title, "short"}, [&](QWidget& window) {
    const int screen = QGuiApplication::primaryScreen()->availableSize().width();
    EXPECT_GT(window.width(), std::min(window.fontMetrics().horizontalAdvance(title.c_str()), screen / 2));
    EXPECT_LT(window.width(), screen);
  });
}

TEST_F(QtDialogsTest, TheMessageIsPlainTextInTheMiddleOfTheScreenAndCanBeCopied) {
  Answer({}, [](QWidget& window) {
    const auto copied = [](QWidget& receiver) {
      QGuiApplication::clipboard()->clear();
      QKeyEvent key(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
      QCoreApplication::sendEvent(&receiver, &key);
      return QGuiApplication::clipboard()->text();
    };
    auto* const text = window.findChild<QLabel*>("Message");
    EXPECT_EQ(text->textFormat(), Qt::PlainText);
    EXPECT_EQ(text->text(), QString::fromUtf16(u"<b>A&B</b>\n\u8A02\u55AE"));
    EXPECT_EQ(copied(window), text->text());
    text->setFocus();
    text->setSelection(3, 3);
    EXPECT_EQ(copied(*text), "A&B");
    const QPoint off =
        window.frameGeometry().center() - QGuiApplication::primaryScreen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
  });
}

TEST_F(QtDialogsTest, LongMessagesAreWrappedAndLargeOnesScroll) {
  const auto expect = [](const std::string& message, bool across, bool down) {
    Answer({.message = message}, [&](QWidget& window) {
      const QSize screen = QGuiApplication::primaryScreen()->availableSize();
      EXPECT_EQ(window.frameSize(), window.frameSize().boundedTo(screen));
      const auto* const area = window.findChild<QScrollArea*>();
      EXPECT_EQ(area != nullptr && area->horizontalScrollBar()->maximum() > 0, across);
      EXPECT_EQ(area != nullptr && area->verticalScrollBar()->maximum() > 0, down);
      const auto* const text = window.findChild<QLabel*>("Message");
      EXPECT_GE(text->height(), text->heightForWidth(text->width()));
    });
  };
  std::string words, lines;
  for (int i = 0; i < 300; ++i) words += "word ", lines += "line\r\n";
  expect(words, false, false);
  expect(lines, false, true);
  expect(std::string(3000, 'x'), true, false);
}

TEST_F(QtDialogsTest, ButtonTextsFollowTheTranslatorAndTheDesktop) {
  const auto expect = [](const char16_t* yes, const char16_t* all) {
    Answer({kAllButtons}, [&](QWidget& window) {
      EXPECT_EQ(window.findChild<QPushButton*>("Yes")->text(), QString::fromUtf16(yes));
      EXPECT_EQ(window.findChild<QPushButton*>("All")->text(), QString::fromUtf16(all));
    });
  };
  QLocale::setDefault(QLocale("en_US"));
  expect(u"&Yes", u"&All");
  QLocale::setDefault(QLocale("zh_TW"));
  expect(u"\u662F(&Y)", u"\u5168\u90E8(&A)");
  {
    const Words qt("QPlatformTheme", u"Oui");
    expect(u"Oui", u"\u5168\u90E8(&A)");
  }
  QLocale::setDefault(QLocale("en_US"));
  const Words qt("QPlatformTheme", u"\u662F(&Y)");  // 是
  expect(u"\u662F(&Y)", u"\u5168\u90E8(&A)");       // 全部
  const Words own("qxTools", u"*");
  expect(u"\u662F(&Y)", u"*");
}

}  // namespace qxTools::test
