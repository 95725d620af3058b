// An operation of a command, a set, a value list or a packet that runs out of memory leaves its object as it
// was, or as its header says; tried again it does its work.
#include <qxTools/data/QXValueTools.h>
#include <qxTools/data/qxOleVariant.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include "faults/Faults.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

const std::string kLong(150, 'l');  // longer than what a string holds without memory, or a record's name
const std::u16string kWide(150, u'w');
const TStrings kStatement{"select '" + kLong + "' from [$MacroWithALongName]",
                          "where a = @MM_ParameterWithALongName and b = @MM_B /* c */"};

struct World {
  World() {
    command.GetInLines().SetText("a = @ParameterWithALongName and b = @B /* c */");
    set.LoadStoreProc(&kStatement);
    set.SetValue("@MM_B", kLong);
    set.SetValue("$MacroWithALongName", kLong);
    for (int i = 0; i < 3; ++i) {  // the third time by an index
      list.SetValue("old", kLong);
      packet.SetValue(u"old", kLong);
      set.SetValue("@MM_B", kLong);
      command.GetParams().SetItemsValue("@B", kLong);
    }
  }

  QXSqlTools::TQXSQL command;
  qxSqlStoreProc::TQXSqlStoreProc set;
  QXValueTools::TQXValueList list;
  qxOleVariant::TQXOleVariant packet;
  Variant array = "old";
};

using Operation = std::function<void(World&)>;

std::string TextOf(const Variant& value) {
  if (!value.IsArray()) return QXSqlTools::VarToSql(value);
  std::string text;
  for (Integer i = 0; i <= value.Bounds().High; ++i) text += TextOf(value.GetElement(i)) + ",";
  return text;
}

/// All that the objects hold.
std::string StateOf(World& world) {
  std::string state = world.command.GetInLines().GetText() + world.set.GetStatement().GetText();
  const auto add = [&](std::string_view name, const Variant& value, int more) {
    state.append(name) += "=" + TextOf(value) + std::to_string(more) + "\n";
  };
  for (Integer i = 0; i < world.command.GetParams().GetCount(); ++i) {
    const auto& item = *world.command.GetParams().GetItems(i);
    EXPECT_EQ(world.command.GetParams().FindByName(item.GetName()), &item);
    add(item.GetName(), item.Value, item.Style);
    add(item.GetName(), item.Text, 0);
  }
  for (Integer i = 0; i < world.set.GetParamCount(); ++i) {
    const auto& item = *world.set.GetItems(i);
    EXPECT_EQ(world.set.FindParam(item.GetName()), i);
    add(item.GetName(), item.GetValue(), item.GetStyle() + 100 * item.GetLength());
  }
  for (Integer i = 0; i < world.set.GetFuncCount(); ++i)
    add(world.set.GetFuncItems(i)->GetName(), world.set.GetFuncItems(i)->GetValue(), 0);
  for (Integer i = 0; i < world.list.GetCount(); ++i)
    add(world.list.GetItem(i)->Name, world.list.GetItem(i)->Value, 0);
  for (Integer i = 0; i < world.packet.GetCount(); ++i)
    add(world.packet.GetFields(i)->Name, world.packet.GetItems(i), 0);
  add("array", world.array, 0);
  return state;
}

std::string StateAfter(const Operation& operation) {
  World world;
  operation(world);
  return StateOf(world);
}

/// @param stated operations after which the objects may also be as after the failing one.
void ExpectWhole(const Operation& operation, std::initializer_list<Operation> stated = {},
                 int line = __builtin_LINE()) {
  const testing::ScopedTrace trace(__FILE__, line, "here");
  const std::string want = StateAfter(operation);
  std::vector<std::string> allowed{StateAfter([](World&) {})};
  for (const Operation& other : stated) allowed.push_back(StateAfter(other));
  ForEachCall([&](long n) {
    World world;
    const Outcome outcome = RunFailing(Fault::kMemory, n, [&] { operation(world); });
    const std::string state = StateOf(world);
    if (outcome.error == Error::kNone) {  // also if an index had to do without memory
      EXPECT_EQ(state, want);
    } else {
      EXPECT_TRUE(outcome.error == Error::kMemory && outcome.reached);
      EXPECT_NE(std::ranges::find(allowed, state), allowed.end()) << state;
      operation(world);
      EXPECT_EQ(StateOf(world), want);
    }
    return outcome.reached;
  });
}

/// ExpectWhole of each.
void ExpectEachWhole(std::initializer_list<Operation> operations, int line = __builtin_LINE()) {
  for (const Operation& operation : operations) {
    SCOPED_TRACE(&operation - operations.begin());
    ExpectWhole(operation, {}, line);
  }
}

TEST(SqlFaults, Commands) {
  const Operation noParameters = [](World& world) { world.command.GetParams().Clear(); };
  const auto item = [](World& world) { return world.command.GetParams().GetItems(0); };
  QXSqlTools::TQXSQLItem other;
  other.SetName(kLong);
  other.Value = other.Text = kLong;
  World source;
  source.command.GetInLines().SetText("@OtherParameterWithALongName ");
  // clang-format off
  ExpectEachWhole({
    [&](auto& w) { item(w)->SetName(kLong); }, [&](auto& w) { item(w)->Assign(&other); },
    [](auto& w) { w.command.GetParams().Add(kLong); },
    [](auto& w) { w.command.GetParams().AddNamesOf("@New1 @New2 @New3 "); },
    [&](auto& w) { w.command.SetParams(&source.command.GetParams()); },
    [](auto& w) { w.command.GetParams().SetItemsValue("@B", kLong); },
    [](auto& w) { w.command.GetParams().SetItemsValue("@B", "@N:" + kLong); },
    [](auto& w) { w.command.GetParams().FindAndModify("@B", kLong, QXSqlTools::stReal); }});
  // clang-format on
  ExpectWhole([](World& world) { world.command.FindParams(); }, {noParameters});
  const Operation change = [](World& world) {
    world.command.GetInLines().SetText("@NewParameterWithALongName ");
  };
  ExpectWhole(change, {[&](World& world) { change(world), noParameters(world); }});
  ForEachCall([](long n) {
    World world;
    const TStrings& lines = world.command.GetOutLines();
    const std::string want = lines.GetText();
    const Outcome outcome = RunFailing(Fault::kMemory, n, [&] { world.command.GetOutLines(); });
    EXPECT_EQ(lines.GetText(), outcome.reached ? "" : want);
    EXPECT_EQ(world.command.GetOutLines().GetText(), want);
    return outcome.reached;
  });
}

TEST(SqlFaults, Sets) {
  const Operation nothing = [](World& world) { world.set.Clear(); };
  const Operation empty = [](World& world) { world.set.GetStatement().Clear(); };
  const TStrings text{"select * from [$NewMacroWithALongName] where c = @MM_NewParameterWithALongName"};
  const Operation load = [&](World& world) { world.set.LoadStoreProc(&text); };
  const Operation loadWide = [](World& world) {
    world.set.LoadStoreProc(u"@MM_NewParameterWithALongName /* c */ x");
  };
  for (const Operation& each : {load, loadWide})
    ExpectWhole(each, {empty, [&](World& world) { each(world), nothing(world); }});
  ExpectWhole([](World& world) { world.set.SearchAllParams(); }, {nothing});
  ExpectWhole([](World& world) { world.set.SetSearchParamType(qxSqlStoreProc::spAll); }, {nothing});
  // clang-format off
  ExpectEachWhole({
    [](auto& w) { w.set.GetItems(0)->SetName(" " + kLong); }, [](auto& w) { w.set.Add(); },
    [](auto& w) { w.set.SetValue("@MM_ParameterWithALongName", kWide); },
    [](auto& w) { w.set.SetValue("$MacroWithALongName", 5); }});
  // clang-format on
  ForEachCall([](long n) {
    World world;
    const std::string want = world.set.GetStoreProc()->GetText();
    TStrings* call = nullptr;
    const Outcome outcome = RunFailing(Fault::kMemory, n, [&] { call = world.set.GetStoreProc(); });
    EXPECT_EQ(call == nullptr, outcome.reached);
    EXPECT_EQ(world.set.GetStoreProc()->GetText(), want);
    return outcome.reached;
  });
}

TEST(SqlFaults, ValuesAndPackets) {
  const QXValueTools::TValueRecord record("new", kLong);
  World source;
  source.list.SetValue("new", kWide);
  // clang-format off
  ExpectEachWhole({
    [&](auto& w) { w.list.SetItem(0, record); }, [&](auto& w) { w.list.SetItem(2, record); },
    [&](auto& w) { w.list.Insert(0, &record); }, [](auto& w) { w.list.SetValue("new", kLong); },
    [](auto& w) { w.list.SetValue(" Old ", kWide); }, [](auto& w) { w.list.GetValue(kLong); },
    [&](auto& w) { w.list.Assign(&source.list); }, [](auto& w) { w.packet.SetValue(u"new", kLong); },
    [](auto& w) { w.packet.SetValue(kWide, kLong); }, [](auto& w) { w.packet.SetValue(u"Old", kWide); },
    [](auto& w) { w.packet.SaveToOle(w.array); }});
  // clang-format on
  Variant array = Variant::NewArray(0, 3);
  for (Integer i = 0; i < 4; ++i) array.SetElement(i, kWide);
  ExpectWhole([&](World& world) { world.packet.LoadFromOle(array); },
              {[](World& world) { world.packet.Clear(); },
               [&](World& world) {
                 world.packet.LoadFromOle(array);
                 Variant saved;
                 world.packet.SaveToOle(saved);
                 Variant half = Variant::NewArray(0, 1);
                 for (Integer i = 0; i < 2; ++i) half.SetElement(i, saved.GetElement(i));
                 world.packet.LoadFromOle(half);
               }});
}

}  // namespace
