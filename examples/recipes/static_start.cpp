// A program that links the static library starts and stops it itself.
#include <qxTools/Package.h>
#include <qxTools/calendar/QXTimeTools.h>
#include <qxTools/sql/QXSqlTools.h>

#include <iostream>

using namespace qxTools;

namespace {

/// Starts the library, and stops it at the end of the program.
struct Library {
  Library() { Initialize(); }
  ~Library() { Finalize(); }
};

}  // namespace

int main() {
  const Library library;  // first in main, so that it is the last to go

  // What the last Finalize frees or sets back: the command of SQL(), and globals that the program has
  // changed.
  QXTimeTools::BaseTime = "08:00";
  QXSqlTools::SQL()->GetInLines().SetText("select @ID");
  std::cout << QXTimeTools::CheckTime("", 24) << ", " << QXSqlTools::SQL()->GetParams().GetCount()
            << " parameter\n";
}
