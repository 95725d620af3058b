// Uses what an application would: text, a tree that throws, a settings file, and the library's version.
#include <qxTools/Package.h>
#include <qxTools/Version.h>
#include <qxTools/runtime/Exceptions.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/stores/qxIniTools.h>
#include <qxTools/stores/qxTreeList.h>

#include <iostream>

namespace {

// What a closed store says: an exception of the library, caught outside of it.
std::string ErrorOfClosedTree() {
  qxTools::qxTreeList::TQXTreeNodes tree;
  try {
    tree.Add();
  } catch (const qxTools::Exception& e) {
    return e.what();
  }
  return "none";
}

std::string StoredColor() {
  qxTools::qxIniTools::TQXIniFile file;
  file.SetText("Screen:[%RootKey%]\r\n[%\r\n  Color:red\r\n%]\r\n");
  file.SetRootKey("Screen");
  file.OpenFirstKey();
  return file.GetValue("Color");
}

}  // namespace

int main() {
  qxTools::Initialize();
  std::cout << qxTools::QXSqlTools::ToSQLStr("O'Neil") << '\n'
            << ErrorOfClosedTree() << '\n'
            << StoredColor() << '\n'
            << (qxTools::LibraryVersion() == std::string(QXTOOLS_VERSION) ? "same" : "other") << '\n';
  qxTools::Finalize();
}
