// The desktop host in an application of its own.
#include <qxTools/desktop/Desktop.h>
#include <qxTools/painting/Screen.h>

#include <QApplication>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const qxTools::desktop::Desktop desktop;
  return qxTools::GetScreenSize().X > 0 ? 0 : 1;
}
