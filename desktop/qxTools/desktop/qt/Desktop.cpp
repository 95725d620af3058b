#include <qxTools/base/Exceptions.h>
#include <qxTools/desktop/Desktop.h>
#include <qxTools/desktop/Services.h>
#include <qxTools/desktop/qt/BitmapText.h>
#include <qxTools/desktop/qt/QtDialogs.h>
#include <qxTools/desktop/qt/QtScreen.h>
#include <qxTools/desktop/qt/SystemPalette.h>

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>

namespace qxTools::desktop {

class Desktop::Parts : public QObject {
 public:
  Parts() {
    SetSystemColors(SystemColorsOf(QApplication::palette()));
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::ApplicationPaletteChange)
      SetSystemColors(SystemColorsOf(QApplication::palette()));
    return QObject::eventFilter(receiver, event);
  }

 private:
  BitmapText text_;
  QtScreen screen_;
  QtDialogs dialogs_;
  const Services services_{text_, screen_, dialogs_};
};

Desktop::Desktop() {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
    throw Exception("No application object");
  parts_ = std::make_unique<Parts>();
}

Desktop::~Desktop() = default;

}  // namespace qxTools::desktop
