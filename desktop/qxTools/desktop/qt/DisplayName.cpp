#include <qxTools/desktop/qt/DisplayName.h>

#include <QtGui/QGuiApplication>

namespace qxTools::desktop {

namespace {

/// The display name that was set, or null. One that was never set follows the application's name.
QString DisplayNameThatWasSet() {
  const QString displayName = QGuiApplication::applicationDisplayName();
  const QString name = QCoreApplication::applicationName();
  QCoreApplication::setApplicationName(name + "?");
  const bool follows = QGuiApplication::applicationDisplayName() != displayName;
  QCoreApplication::setApplicationName(name);
  return follows ? QString() : displayName;
}

}  // namespace

WithoutDisplayName::WithoutDisplayName()
    : silence_(QCoreApplication::instance()), name_(DisplayNameThatWasSet()) {
  if (!name_.isNull()) QGuiApplication::setApplicationDisplayName("");
}

WithoutDisplayName::~WithoutDisplayName() {
  if (!name_.isNull()) QGuiApplication::setApplicationDisplayName(name_);
}

}  // namespace qxTools::desktop
