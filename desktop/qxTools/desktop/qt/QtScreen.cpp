#include <qxTools/desktop/qt/QtScreen.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QWidget>
#include <limits>

namespace qxTools::desktop {

namespace {

QRect PlaceOf(const QWidget& widget) {
  if (widget.isWindow()) return widget.frameGeometry();
  return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

}  // namespace

TPoint QtScreen::GetScreenSize() {
  constexpr Integer kNoLimit = std::numeric_limits<Integer>::max();
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return {kNoLimit, kNoLimit};
  return {screen->size().width(), screen->size().height()};
}

bool QtScreen::GetWindowRect(WindowHandle window, TRect& rect) {
  const QWidget* const widget = QWidget::find(window);
  if (widget == nullptr) return false;
  const QRect place = PlaceOf(*widget);
  rect = {place.x(), place.y(), place.x() + place.width(), place.y() + place.height()};
  return true;
}

}  // namespace qxTools::desktop
