// The library on a real desktop: an order form whose bevels, triangles, tabs, text and frame the library
// paints.
//
//   desk                          shows the form
//   desk --screenshot FILE.png    paints form and message box into a picture; with QT_QPA_PLATFORM=offscreen
//                                 it needs no screen
//   desk --make-frame FILE.dw1    writes the frame that the form wears, with its bitmap file
#include <qxTools/base/Exceptions.h>
#include <qxTools/desktop/Desktop.h>
#include <qxTools/desktop/qt/QtCanvas.h>

#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <iostream>

#include "../OrderForm.h"
#include "../Skin.h"

namespace {

/// The form as a window.
class Window : public QWidget {
 public:
  Window() {
    setFixedSize(desk::kWidth, desk::kHeight);
    setWindowTitle(QString::fromUtf16(u"qxTools"));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    qxTools::desktop::QtCanvas canvas(*this);
    const QFont first = canvas.GetFont();
    form_.Paint(canvas, [&](bool isLarge) {
      QFont font = first;
      font.setPointSizeF(first.pointSizeF() * (isLarge ? 1.5 : 1));
      canvas.SetFont(font);
    });
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    const bool ends = form_.Click({event->pos().x(), event->pos().y()});
    update();
    if (ends) close();
  }

 private:
  desk::OrderForm form_{DESK_FRAME};
};

constexpr int kGap = 24;

/// As sharp as the other picture is.
QPixmap MakePicture(int width, int height, QColor color, const QPixmap& other) {
  const double ratio = other.devicePixelRatio();
  QPixmap picture((QSizeF(width, height) * ratio).toSize());
  picture.setDevicePixelRatio(ratio);
  picture.fill(color);
  return picture;
}

/// What a window manager would put above the dialog, and the dialog.
QPixmap GrabWithCaption(QWidget& window) {
  const QPixmap inside = window.grab();
  const int caption = 2 * window.fontMetrics().height();
  QPixmap all =
      MakePicture(window.width() + 2, window.height() + caption + 1, QColor(0x20, 0x40, 0x80), inside);
  QPainter painter(&all);
  painter.setPen(Qt::white);
  painter.drawText(QRect(10, 0, window.width(), caption), Qt::AlignVCenter, window.windowTitle());
  painter.drawPixmap(1, caption, inside);
  return all;
}

QPixmap GrabMessageBox() {
  QPixmap grabbed;
  QTimer::singleShot(0, [&grabbed] {
    QWidget* const window = QApplication::activeModalWidget();
    grabbed = GrabWithCaption(*window);
    window->close();
  });
  desk::OrderForm::AskToSave();
  return grabbed;
}

bool SavePicture(Window& form, const QString& fileName) {
  const QPixmap formPicture = form.grab();
  const QPixmap box = GrabMessageBox();
  const QSize boxSize = box.deviceIndependentSize().toSize();
  const int width = form.width() + 2 * kGap;
  QPixmap all =
      MakePicture(width, form.height() + boxSize.height() + 3 * kGap, QColor(0x7A, 0x93, 0xAC), formPicture);
  QPainter painter(&all);
  painter.drawPixmap(kGap, kGap, formPicture);
  painter.drawPixmap((width - boxSize.width()) / 2, form.height() + 2 * kGap, box);
  painter.end();
  return all.save(fileName);
}

void MakeFrame(const std::string& fileName) {
  qxTools::qxDrawTools::TFrameBitmaps pieces;
  desk::PaintSkin(pieces);
  qxTools::qxDrawTools::SaveDWF(fileName, pieces);
}

int Run(QApplication& application) {
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() == 3 && arguments[1] == "--make-frame") {
    MakeFrame(arguments[2].toStdString());
    return 0;
  }
  const qxTools::desktop::Desktop desktop;
  Window form;
  if (arguments.size() == 3 && arguments[1] == "--screenshot") return SavePicture(form, arguments[2]) ? 0 : 1;
  form.show();
  return application.exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  QApplication::setPalette(QPalette(QColor(0xD4, 0xD0, 0xC8)));
  QFont font;
  font.setFamilies({"Noto Sans CJK TC", "WenQuanYi Micro Hei"});
  font.setPointSizeF(11);
  QApplication::setFont(font);
  try {
    return Run(application);
  } catch (const qxTools::Exception& e) {
    std::cerr << e.what() << "\n";
    return 1;
  }
}
