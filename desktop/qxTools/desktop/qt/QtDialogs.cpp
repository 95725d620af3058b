#include <qxTools/desktop/qt/Glyphs.h>
#include <qxTools/desktop/qt/QtDialogs.h>

#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>
#include <algorithm>

namespace qxTools::desktop {

namespace {

struct Button {
  TDialogButton button;
  const char* name;
  QDialogButtonBox::StandardButton standard;
};

constexpr Button kButtons[] = {
    {dbYes, "Yes", QDialogButtonBox::Yes},
    {dbNo, "No", QDialogButtonBox::No},
    {dbOK, "OK", QDialogButtonBox::Ok},
    {dbCancel, "Cancel", QDialogButtonBox::Cancel},
    {dbAbort, "Abort", QDialogButtonBox::Abort},
    {dbRetry, "Retry", QDialogButtonBox::Retry},
    {dbIgnore, "Ignore", QDialogButtonBox::Ignore},
    {dbAll, "All", QDialogButtonBox::NoButton},  // Qt has none
    {dbNoToAll, "NoToAll", QDialogButtonBox::NoToAll},
    {dbYesToAll, "YesToAll", QDialogButtonBox::YesToAll},
    {dbHelp, "Help", QDialogButtonBox::Help},
};

// By dialog type; the custom one has none.
constexpr QStyle::StandardPixmap kIcons[] = {QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxCritical,
                                             QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxQuestion};

/// The button that the Enter key presses: the first of these that there is.
constexpr QDialogButtonBox::StandardButton kDefaultButtons[] = {QDialogButtonBox::Ok, QDialogButtonBox::Yes,
                                                                QDialogButtonBox::Retry};

/// By the installed translators. Qt's own have no such word; where they say yes in Chinese it is 全部.
QString AllText() {
  const QString text = QCoreApplication::translate("qxTools", "&All");
  const bool chinese = QCoreApplication::translate("QPlatformTheme", "&Yes").startsWith(QChar(0x662F));  // 是
  return text == "&All" && chinese ? QString::fromUtf16(u"\u5168\u90E8(&A)") : text;
}

/// The lines of a message, which may end as on any system.
QString LinesOf(std::string_view message) {
  return ToQString(message).replace("\r\n", "\n").replace('\r', '\n');
}

class Dialog final : public QDialog, public MessageDialog {
 public:
  Dialog(std::string_view message, TDialogType type, TDialogButtons buttons)
      : closeResult_(GetCloseResult(buttons)) {
    auto* const top = new QHBoxLayout;
    if (type < dtCustom) top->addWidget(MakeIcon(type), 0, Qt::AlignTop);
    top->addWidget(MakeText(message), 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(MakeButtons(buttons));
    layout->setSizeConstraint(QLayout::SetFixedSize);
    setWindowTitle(type < dtCustom ? GetDialogCaption(type) : QGuiApplication::applicationDisplayName());
  }

  /// A message has no help of its own, whatever the context.
  void SetHelpContext(Integer) override {}
  void SetCaption(std::string_view caption) override { setWindowTitle(ToQString(caption)); }
  void CenterOnScreen() override { centered_ = true; }

  Integer ShowModal() override {
    StandAboveTheActiveWindow();
    const int result = exec();
    return result != 0 ? result : closeResult_;  // 0: the program ends
  }

  void reject() override { done(closeResult_); }

 protected:
  /// The size is known by now.
  void showEvent(QShowEvent* event) override {
    QDialog::showEvent(event);
    if (!centered_) return;
    const QRect frame(QPoint(0, 0), frameGeometry().size());
    move(screen()->geometry().center() - frame.center());
  }

 private:
  QWidget* MakeIcon(TDialogType type) {
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    auto* const icon = new QLabel;
    icon->setPixmap(style()->standardIcon(kIcons[type]).pixmap(side, side));
    return icon;
  }

  /// As large as the text, or as the screen has room for; then the text scrolls.
  QWidget* MakeText(std::string_view message) {
    auto* const text = new QLabel;
    text->setObjectName("Message");
    text->setTextFormat(Qt::PlainText);
    text->setText(LinesOf(message));
    const QSize screenSize = screen()->availableSize();
    const QSize most(screenSize.width() / 2, screenSize.height() * 3 / 4);
    QSize size = text->sizeHint();
    if (size.width() > most.width()) {
      text->setWordWrap(true);
      size.setWidth(std::max(most.width(), text->minimumSizeHint().width()));  // a word is not broken
      size.setHeight(text->heightForWidth(size.width()));
      text->setFixedWidth(size.width());
    }
    if (size == size.boundedTo(most)) return text;
    text->resize(size);
    return MakeScrolling(text, most);
  }

  static QWidget* MakeScrolling(QWidget* content, const QSize& most) {
    auto* const area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(content);
    const int bar = area->verticalScrollBar()->sizeHint().width();
    area->setMinimumSize(content->size().boundedTo(most) + QSize(bar, bar));
    return area;
  }

  QWidget* MakeButtons(TDialogButtons buttons) {
    auto* const box = new QDialogButtonBox;
    for (const Button& button : kButtons)
      if ((buttons & button.button) != 0) AddButton(*box, button);
    SetDefault(*box);
    return box;
  }

  void AddButton(QDialogButtonBox& box, const Button& button) {
    QPushButton* const made = button.standard != QDialogButtonBox::NoButton
                                  ? box.addButton(button.standard)
                                  : box.addButton(AllText(), QDialogButtonBox::YesRole);
    made->setObjectName(button.name);
    if (button.button == dbHelp) return;  // leaves the dialog open
    connect(made, &QPushButton::clicked, this,
            [this, result = GetDialogResult(button.button)] { done(result); });
  }

  static void SetDefault(const QDialogButtonBox& box) {
    for (const QDialogButtonBox::StandardButton standard : kDefaultButtons)
      if (QPushButton* const button = box.button(standard)) {
        button->setDefault(true);
        return button->setFocus();
      }
  }

  /// Not as its child: the window may be destroyed while the dialog is open.
  void StandAboveTheActiveWindow() {
    const QWidget* const active = QApplication::activeWindow();
    if (active == nullptr) return;
    setScreen(active->screen());
    winId();  // makes the window's handle
    windowHandle()->setTransientParent(active->windowHandle());
  }

  const int closeResult_;
  bool centered_ = false;
};

}  // namespace

std::unique_ptr<MessageDialog> QtDialogs::CreateMessageDialog(std::string_view message, TDialogType type,
                                                              TDialogButtons buttons) {
  return std::make_unique<Dialog>(message, type, buttons);
}

}  // namespace qxTools::desktop
