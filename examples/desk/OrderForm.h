#pragma once

#include <qxTools/graphics/qxDrawTools.h>

#include <functional>

namespace desk {

inline constexpr qxTools::Integer kWidth = 780;
inline constexpr qxTools::Integer kHeight = 592;

/// An order, painted by the library alone, on the canvas of any host.
class OrderForm {
 public:
  /// Makes the canvas's text larger by half, or as large again as it was at first.
  using SetLargeText = std::function<void(bool isLarge)>;

  /// @param frame a frame file.
  explicit OrderForm(const std::string& frame);

  void Paint(qxTools::TCanvas& canvas, const SetLargeText& setLargeText) const;

  /// Does what a click there means. @return whether the form is to be closed.
  bool Click(const qxTools::TPoint& at);

  /// Asks whether the order is to be saved. @return as QX_MessageBox.
  static qxTools::Integer AskToSave();

 private:
  void PaintFrame(qxTools::TCanvas& canvas) const;
  void PaintSheets(qxTools::TCanvas& canvas) const;

  qxTools::qxDrawTools::TFrameBitmaps pieces_;
  int sheet_ = 0;
};

}  // namespace desk
