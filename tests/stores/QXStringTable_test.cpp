#include <qxTools/stores/QXStringTable.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXStringTable;
using namespace qxTools::test;

// How lines are cut, and fields read and replaced, is held against its wording in fuzz/StringTable.cpp.

void Fill(TQXStringTable& table) {
  table.SetText("[#Name#][#Phone#][#X#]\r\n[#Lee#][#555-0100#][##]\r\n[#\xA4\xFD#][##][#y#]\r\n");
  table.Top();
}

TEST(QXStringTable, FieldsAreAddedAndRemovedInTheHeaderAlone) {
  TQXStringTable table("");
  table.AddRecord({"lost"});
  table.NewEmptyRecord();
  table.RemoveField("Name");
  table.SetField("Name", "lost");
  EXPECT_TRUE(table.GetEmpty());
  EXPECT_EQ(table.GetField("Name"), "");
  Fill(table);
  // A name that is there is not added; one of no field, or of one character, is not removed.
  for (const char* name : {" City ", "phone"}) table.AddField(name);
  for (const char* name : {"x", "none", "PHONE"}) table.RemoveField(name);
  EXPECT_EQ(table.GetStrings(0), "[#Name#][#X#][#City#]");
  EXPECT_EQ(table.GetStrings(1), "[#Lee#][#555-0100#][##]");
  EXPECT_EQ(table.GetField("x"), "555-0100");
  table.SetStrings(1, "cut#][");  // no opening mark, but its first byte at the end
  EXPECT_EQ(table.GetField("name"), "cut");
}

TEST(QXStringTable, MarksAreFoundWhereverTheyStand) {
  TQXStringTable table("");
  for (std::size_t size = 0; size < 140; ++size) {
    const std::string text(size, size % 2 == 0 ? '#' : 'x');
    table.SetText("[#A#][#B#]\r\n[#" + text + "x#][#b#]\r\n");
    table.Top();
    EXPECT_EQ(table.GetField("A"), text + "x");
    EXPECT_EQ(table.GetField("b"), "b") << size;
  }
}

TEST(QXStringTable, RecordsHaveAsManyFieldsAsTheHeader) {
  TQXStringTable table("");
  Fill(table);
  table.AddRecord({" a ", "b", "c", "d"});
  table.AddRecord({"a"});
  table.NewEmptyRecord();
  const std::string lines = table.GetText();
  EXPECT_TRUE(lines.ends_with("\n[#a#][#b#][#c#]\r\n[#a#][##][##]\r\n[##][##][##]\r\n")) << lines;
  EXPECT_EQ(table.GetRecNo(), 1);
  table.RemoveRecord(5);
  EXPECT_EQ(table.GetReccount(), 4);
  EXPECT_EQ(MessageOf([&] { table.RemoveRecord(5); }), "List index out of bounds (5)");
  table.SetText("no fields\r\n");
  table.AddRecord({"a"});
  EXPECT_EQ(table.GetText(), "no fields\r\n\r\n");
}

TEST(QXStringTable, TheCursorStaysInsideUnlessTheLinesGo) {
  TQXStringTable table("");
  using Move = void (TQXStringTable::*)();
  const auto at = [&](Move move) {
    (table.*move)();
    return table.GetRecNo();
  };
  const Move top = &TQXStringTable::Top;
  const Move next = &TQXStringTable::Next;
  const Move previous = &TQXStringTable::Previous;
  const Move bottom = &TQXStringTable::Bottom;
  for (const Move move : {top, next, bottom}) EXPECT_EQ(at(move), 0);
  Fill(table);
  for (const auto& [move, want] : {std::pair(previous, 1), {next, 2}, {next, 2}, {top, 1}, {bottom, 2}})
    EXPECT_EQ(at(move), want);
  table.RemoveRecord(1);
  EXPECT_EQ(table.GetField("none"), "");
  EXPECT_EQ(MessageOf([&] { table.GetField("Name"); }), "List index out of bounds (2)");
  EXPECT_EQ(MessageOf([&] { table.SetField("Name", "a"); }), "List index out of bounds (2)");
}

TEST(QXStringTable, ATableHasAFileOrIsInMemory) {
  const TemporaryFolder folder;
  const std::string name = folder.File("people.tbl");
  {
    TQXStringTable table(name);
    EXPECT_TRUE(std::filesystem::is_empty(name));
    EXPECT_EQ(table.GetRecNo(), 0);
    Fill(table);
    table.UpdateTable();
    table.AddField("lost");
  }
  TQXStringTable table(name);
  EXPECT_EQ(table.GetRecNo(), 1);
  table.Bottom();
  table.Clear();
  table.RevertTable();
  EXPECT_EQ(table.GetField("x"), "y");
  std::filesystem::remove(name);
  table.RevertTable();
  EXPECT_EQ(table.GetReccount(), 2);
  EXPECT_THROW(TQXStringTable(folder.Path()), EFOpenError);
  EXPECT_THROW(TQXStringTable(folder.File("none/x")), EFCreateError);
  for (const char* memory : {"", "#temp"}) {
    TQXStringTable temporary(memory);
    temporary.AddField("A");
    temporary.UpdateTable();
    temporary.RevertTable();
    EXPECT_TRUE(temporary.GetText() == "[#A#]\r\n" && !std::filesystem::exists(memory));
  }
}

}  // namespace
