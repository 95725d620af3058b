// An operation of the stores or of the banks that runs out of memory leaves its object as it was.
#include <qxTools/memory/QXMemTools.h>
#include <qxTools/stores/QXStringTable.h>
#include <qxTools/stores/qxIniTools.h>

#include <memory>
#include <optional>

#include "faults/Faults.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;
using qxIniTools::TQXIniFile;
using QXStringTable::TQXStringTable;
using qxTreeList::TQXTreeNodes;

const std::string kLong(100, 'l');  // longer than what a string holds without memory

TEST(StoresFaults, Trees) {
  qxTreeList::TNodeKey last;
  const auto make = [&] {
    auto tree = std::make_unique<TQXTreeNodes>();
    tree->OpenRootNode();
    for (int i = 0; i < 14; ++i) tree->Add();
    last = tree->Add()->Key;  // the next one lets the index grow
    return tree;
  };
  const auto state = [&](const TQXTreeNodes& tree) {
    std::size_t count = 0;
    tree.EnumAllTreeNode([&](qxTreeList::pQXTreeNode) { ++count; });
    return std::pair(count, tree.GetItem(last)->Key.Text().size());
  };
  ExpectAllOrNothing(make, {[&](TQXTreeNodes& tree) { tree.Add(last); }}, state);
}

/// The text, the sections that are found, and what is open.
std::string StateOf(const TQXIniFile& settings) {
  std::string state = settings.GetText();
  qxTreeList::pQXTreeNode node = nullptr;
  for (const char* name : {"One", "Two", "New"}) state += settings.FindRootKey(name, node) ? name : "-";
  int nodes = 0;
  settings.EnumTreeNode([&](qxTreeList::pQXTreeNode each) {
    ++nodes;
    state += each->Data != nullptr ? '+' : '-';
  });
  state += MessageOf([&] { state += settings.GetValue("a"); });
  return state;
}

TEST(StoresFaults, Settings) {
  const auto make = [] {
    auto settings = std::make_unique<TQXIniFile>();
    settings->SetText("One:[%RootKey%]\n[%\na:" + kLong + "\nb:2\n%]\n\nTwo:[%RootKey%]\n[%\na:1\nb:2\n%]\n");
    settings->SetRootKey("One");
    settings->OpenKey(2);  // a value as a record
    settings->SetValue("below", kLong);
    settings->OpenFirstKey();
    return settings;
  };
  // clang-format off
  ExpectAllOrNothing(make, {
    [](auto& s) { s.SetValue("a", kLong + "1"); }, [](auto& s) { s.SetValue("c", kLong); },
    [](auto& s) { s.SetRootKey("New" + kLong); }, [](auto& s) { s.DeleteRootKey("one"); },
    [](auto& s) { s.ClearKeys(); }, [](auto& s) { s.DeleteKey(1); }, [](auto& s) { s.DeleteValue("a"); },
    [](auto& s) { s.Clear(); }}, StateOf);
  // clang-format on
}

TEST(StoresFaults, Tables) {
  const auto make = [] {
    auto table = std::make_unique<TQXStringTable>("");
    table->AddField("Name");
    table->AddField("Phone");
    table->AddRecord({kLong, "1"});
    table->Top();
    return table;
  };
  const auto state = [](const TQXStringTable& table) {
    return table.GetText() + table.GetField("name") + table.GetField("phone") +
           std::to_string(table.GetRecNo());
  };
  // clang-format off
  ExpectAllOrNothing(make, {
    [](auto& table) { table.AddField(kLong); }, [](auto& table) { table.RemoveField("Phone"); },
    [](auto& table) { table.AddRecord({kLong, kLong}); },
    [](auto& table) { table.SetField("Phone", kLong); }}, state);
  // clang-format on
  ForEachCall([&](long n) {
    const auto table = make();  // whose header and record were not read yet
    const Outcome outcome = RunFailing(Fault::kMemory, n, [&] { table->GetField("phone"); });
    EXPECT_EQ(table->GetField("phone"), "1");
    return outcome.reached;
  });
}

TEST(StoresFaults, BanksWithoutMemoryHaveNoIndex) {
  std::optional<QXMemTools::TInt64Bank> bank;
  const QXMemTools::TInt64Bank source;
  const std::function<void()> changes[] = {[&] { bank.emplace(); }, [&] { bank->SetCount(1); },
                                           [&] { bank->Assign(source); }};
  for (const auto& change : changes) {
    EXPECT_TRUE(RunFailing(Fault::kMemory, 1, change).reached);
    EXPECT_EQ(bank->GetAddress(), nullptr);
    EXPECT_EQ(MessageOf([&] { bank->SetValue(0, 1); }), "Index outbound");
    bank->SetCount(1000);
    bank->SetValue(999, 5);
    EXPECT_EQ(bank->GetValue(999), 5);
  }
}

}  // namespace
