// Uses what an application would: text, a tree that throws, and the library's version.
#include <qxTools/Package.h>
#include <qxTools/Version.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/stores/qxTreeList.h>

#include <iostream>

int main() {
  qxTools::Initialize();
  std::cout << qxTools::QXSqlTools::ToSQLStr("O'Neil") << '\n';
  try {
    qxTools::qxTreeList::TQXTreeNodes().Add();
  } catch (const qxTools::Exception& e) {  // thrown by the library, caught outside of it
    std::cout << e.what() << '\n';
  }
  std::cout << (qxTools::LibraryVersion() == std::string(QXTOOLS_VERSION) ? "same" : "other") << '\n';
  qxTools::Finalize();
}
