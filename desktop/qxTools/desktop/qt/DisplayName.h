// The application's display name, which Qt adds to the caption of every window ("Order - My Application").
#pragma once

#include <QtCore/QSignalBlocker>
#include <QtCore/QString>

namespace qxTools::desktop {

/// A window that is made while this lives has its own caption and nothing else. Other windows are unchanged.
class WithoutDisplayName {
 public:
  WithoutDisplayName();
  WithoutDisplayName(const WithoutDisplayName&) = delete;
  WithoutDisplayName& operator=(const WithoutDisplayName&) = delete;
  ~WithoutDisplayName();

 private:
  const QSignalBlocker silence_;  // windows that are open follow changes of the name
  const QString name_;            // null: none was set
};

}  // namespace qxTools::desktop
