#include <qxTools/stores/QXStringTable.h>

#include <filesystem>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXStringTable;
using namespace qxTools::test;

void Fill(TQXStringTable& table) {
  table.SetText("[#Name#][#Phone#][#X#]\r\n[#Lee#][#555-0100#][##]\r\n[#\xA4\xFD#][##][#y#]\r\n");
  table.Top();
}

TEST(QXStringTable, ReplaceFieldKeepsWhatIsAroundTheField) {
  ExpectRows<std::pair<const char*, Integer>, std::string>(
      [](const auto& field) { return ReplaceField(field.first, field.second, " N "); },
      {{{"[#a#][#b#]", 2}, "[#a#][# N #]"},
       {{"[#a#][#b#]tail", 1}, "[# N #][#b#]tail"},
       {{"abc", 0}, "a N abc"},
       {{"[#a#]", 2}, "[ N [#a#]"},   // no such field: the first character, and all of it
       {{"[#a#][", 2}, " N [#a#]["},  // the last character could have been one
       {{"[#a", 1}, "[# N [#a"},      // a field that does not end
       {{"a#]", 1}, "a N #]"},
       {{"", 0}, " N "},
       {{"[#a#]", -1}, "[ N [#a#]"}});
  EXPECT_EQ(GenField("  a b "), "[#a b#]");
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
  const auto at = [&](void (TQXStringTable::*move)()) {
    (table.*move)();
    return table.GetRecNo();
  };
  constexpr auto kTop = &TQXStringTable::Top;
  constexpr auto kNext = &TQXStringTable::Next;
  constexpr auto kPrevious = &TQXStringTable::Previous;
  constexpr auto kBottom = &TQXStringTable::Bottom;
  for (const auto move : {kTop, kNext, kBottom}) EXPECT_EQ(at(move), 0);
  Fill(table);
  for (const auto& [move, want] : {std::pair(kPrevious, 1), {kNext, 2}, {kNext, 2}, {kTop, 1}, {kBottom, 2}})
    EXPECT_EQ(at(move), want);
  table.RemoveRecord(1);
  EXPECT_EQ(table.GetField("none"), "");
  EXPECT_EQ(MessageOf([&] { table.GetField("Name"); }), "List index out of bounds (2)");
  EXPECT_EQ(MessageOf([&] { table.SetField("Name", "a"); }), "List index out of bounds (2)");
}

TEST(QXStringTable, FieldsOfTheCurrentRecordAreReadAndWritten) {
  TQXStringTable table("");
  Fill(table);
  table.SetField("name", " Kim ");  // not trimmed
  EXPECT_EQ(table.GetField("Name"), " Kim ");
  table.SetField("none", "?");
  EXPECT_EQ(table.GetStrings(1), "[?[# Kim #][#555-0100#][##]");
  table.Next();
  EXPECT_EQ(table.GetField("Name"), "\xA4\xFD");  // 王
  table.SetText("[#A#]");
  table.Top();
  table.SetField("a", "B");  // the cursor is at 0
  EXPECT_EQ(table.GetText(), "[#B#]\r\n");
  EXPECT_EQ(table.GetField("b"), "B");
}

TEST(QXStringTable, ATableHasAFileOrIsInMemory) {
  const TemporaryFolder folder;
  const std::string name = folder.File("people.tbl");
  {
    TQXStringTable table(name);
    EXPECT_EQ(BytesOf(name), "");
    EXPECT_TRUE(std::filesystem::exists(name));
    EXPECT_EQ(table.GetRecNo(), 0);
    Fill(table);
    table.UpdateTable();
    table.AddField("lost");
  }
  TQXStringTable table(name);
  EXPECT_EQ(table.GetRecNo(), 1);
  EXPECT_EQ(table.GetFieldCount(), 3);
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
