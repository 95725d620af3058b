// A tree of keyed nodes with data, a settings file and a string table.
#include <qxTools/memory/QXMemTools.h>
#include <qxTools/stores/QXStringTable.h>
#include <qxTools/stores/qxIniTools.h>
#include <qxTools/stores/qxTreeList.h>

#include <iostream>

using namespace qxTools;
using qxIniTools::TQXIniFile;
using QXStringTable::TQXStringTable;
using qxTreeList::pQXTreeNode;
using qxTreeList::TQXTreeNodes;

namespace {

void ShowTree() {
  TQXTreeNodes tree(sizeof(int));  // an int for each node
  tree.OpenRootNode();
  const pQXTreeNode parent = tree.Add();
  *static_cast<int*>(parent->Data) = 1;
  *static_cast<int*>(tree.Add(parent->Key)->Data) = 2;
  int sum = 0;
  tree.EnumAllTreeNode([&sum](pQXTreeNode node) { sum += *static_cast<int*>(node->Data); });
  std::cout << "key of " << parent->Key.Length() << " characters, level " << parent->Level << ", sum " << sum
            << "\n";

  // The data blocks are the caller's, all but the root's.
  tree.EnumAllTreeNode([](pQXTreeNode node) {
    QXMemTools::MemFree(node->Data);
    node->Data = nullptr;
  });
  tree.Clear();
}

void ShowSettings() {
  TQXIniFile settings;
  settings.SetRootKey("Main");
  settings.AppendKey();
  settings.SetValue("Mode", "fast");
  settings.SetValue("mode", "slow");  // the same name
  std::cout << settings.GetText();
}

void ShowTable() {
  TQXStringTable people("#TEMP");  // in memory; a file's name would load it
  people.AddField("Name");
  people.AddField("Phone");
  people.AddRecord({"Lee", "555-0100"});
  people.AddRecord({"Wang"});
  people.Top();
  people.SetField("Phone", "555-0199");
  std::cout << people.GetText();
}

}  // namespace

int main() {
  ShowTree();
  ShowSettings();
  ShowTable();
}
