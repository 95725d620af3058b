#pragma once

#include <qxTools/desktop/qt/QtCanvas.h>
#include <qxTools/graphics/qxDrawTools.h>

#include <QtWidgets/QWidget>

namespace desk {

/// An order, painted by the library alone.
class OrderForm : public QWidget {
 public:
  /// @param frame a frame file.
  explicit OrderForm(const std::string& frame);

  /// Asks whether the order is to be saved. @return as QX_MessageBox.
  static qxTools::Integer AskToSave();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void PaintFrame(qxTools::TCanvas& canvas) const;
  void PaintSheets(qxTools::TCanvas& canvas) const;

  qxTools::qxDrawTools::TFrameBitmaps pieces_;
  int sheet_ = 0;
};

}  // namespace desk
