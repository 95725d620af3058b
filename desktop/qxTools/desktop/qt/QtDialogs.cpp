#include <qxTools/desktop/ButtonCaptions.h>
#include <qxTools/desktop/qt/DisplayName.h>
#include <qxTools/desktop/qt/Glyphs.h>
#include <qxTools/desktop/qt/QtDialogs.h>

#include <QtCore/QLocale>
#include <QtGui/QClipboard>
#include <QtGui/QKeyEvent>
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

/// Whether the user reads Chinese, by the application's translators or its locale, which is the desktop's
/// unless it was set.
bool IsChinese() {
  return QCoreApplication::translate("QPlatformTheme", "&Yes").startsWith(QChar(0x662F)) ||  // 是
         QLocale().uiLanguages().value(0).startsWith("zh");
}

QString WithoutMnemonic(QString text) { return text.remove('&'); }

/// The translators' caption, or the library's own if they have none and the user reads Chinese.
QString Translated(const QString& text, TDialogButton button) {
  const ButtonCaption& own = CaptionOf(button);
  const bool isEnglish = WithoutMnemonic(text) == WithoutMnemonic(own.english);
  return isEnglish && IsChinese() ? ToQString(own.chinese) : text;
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
    layout_->addLayout(top);
    layout_->addWidget(MakeButtons(buttons));
    layout_->setSizeConstraint(QLayout::SetFixedSize);
    setWindowTitle(type < dtCustom ? GetDialogCaption(type) : QGuiApplication::applicationDisplayName());
  }

  /// A message has no help of its own, whatever the context.
  void SetHelpContext(Integer) override {}
  void SetCaption(std::string_view caption) override { setWindowTitle(ToQString(caption)); }
  void CenterOnScreen() override { centered_ = true; }

  Integer ShowModal() override {
    layout_->addStrut(CaptionWidth());
    MakeWindow();
    const int result = exec();
    return result != 0 ? result : closeResult_;  // 0: the program ends
  }

  void reject() override { done(closeResult_); }

 protected:
  /// The keys for copying take the whole message, unless a part of it is selected.
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Copy))
      QGuiApplication::clipboard()->setText(text_->text());
    else
      QDialog::keyPressEvent(event);
  }

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
    QLabel* const text = text_;
    text->setObjectName("Message");
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
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
      if ((buttons & button.button) != 0) AddButton(*box, button, button.button == DefaultButton(buttons));
    return box;
  }

  void AddButton(QDialogButtonBox& box, const Button& button, bool isDefault) {
    QPushButton* const made =
        button.standard != QDialogButtonBox::NoButton
            ? box.addButton(button.standard)
            : box.addButton(QCoreApplication::translate("qxTools", "&All"), QDialogButtonBox::YesRole);
    made->setText(Translated(made->text(), button.button));
    made->setObjectName(button.name);
    if (isDefault) {
      made->setDefault(true);
      made->setFocus();
    }
    if (button.button == dbHelp) return;  // leaves the dialog open
    connect(made, &QPushButton::clicked, this,
            [this, result = GetDialogResult(button.button)] { done(result); });
  }

  /// The width that shows the whole caption between the window's icon and its buttons, where the screen has
  /// room for it.
  int CaptionWidth() const {
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);  // most desktops paint captions bold
    const QFontMetrics metrics(font);
    const int beside = 4 * style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return std::min(metrics.horizontalAdvance(windowTitle()) + beside,
                    screen()->availableSize().width() * 3 / 4);
  }

  void MakeWindow() {
    const QWidget* const active = QApplication::activeWindow();
    if (active != nullptr) setScreen(active->screen());
    const WithoutDisplayName caption;
    winId();
    // Not as its child: that window may be destroyed while the dialog is open.
    if (active != nullptr) windowHandle()->setTransientParent(active->windowHandle());
  }

  const int closeResult_;
  QVBoxLayout* const layout_ = new QVBoxLayout(this);
  QLabel* const text_ = new QLabel(this);
  bool centered_ = false;
};

}  // namespace

std::unique_ptr<MessageDialog> QtDialogs::CreateMessageDialog(std::string_view message, TDialogType type,
                                                              TDialogButtons buttons) {
  return std::make_unique<Dialog>(message, type, buttons);
}

}  // namespace qxTools::desktop
