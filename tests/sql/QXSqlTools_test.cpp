#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/QXSqlTools.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXSqlTools;
using namespace qxTools::test;
using namespace std::string_literals;

// --- Builders ----------------------------------------------------------------------------------------

TEST(QXSqlTools, TextsBecomeLiteralsListsAndRanges) {
  // clang-format off
  Rows(ToSQLStr)
      ("", "NULL")(" ", "' '")("''", "''''''")("a\0'\r\n\xFF"s, "'a\0''\r\n\xFF'"s);
  Rows(ToSQLint)
      ("", "NULL")(" x'", " x'");
  Rows(ToSQLinlist)
      ("x", "('x')")("", "(NULL)")(",", " (NULL,NULL) ")(" a , 'b' ", " (' a ',' ''b'' ') ");
  Rows(ToSQLBetween)
      ("5", "'5' and '5'")("~9", "NULL and '9'")("a~b~c", "'a' and 'b~c'")("", "NULL and NULL")
      ("\xA6\x7E", "'\xA6' and NULL");  // on purpose: the second byte of 年 is a "~"
  // clang-format on
  const std::vector<std::string> values{"abc", "12", "", "2003/01/02", "it's"};
  EXPECT_EQ(ToSQLEx(values, "SNSDt"), "'abc',12,NULL,'2003/01/02','it''s'");
  EXPECT_EQ(ToSQLEx(values, "xfX"), "12");  // an unknown letter, and no letter, leave a value out
}

TEST(QXSqlTools, VariantsAreWrittenByTheirType) {
  // clang-format off
  Rows<Variant, std::string>(VarToSql)
      (Variant::Null(), "NULL")(Variant(), "")
      (Variant::FromDate(EncodeDate(2003, 1, 2) + 0.99), "'2003/01/02'")
      (Variant::FromDate(-1e-10), "'1899/12/30'")  // rounded first
      ("  ab ", "'ab'")(u" \u4E2D ", "'\xA4\xA4'")  // 中
      ("   ", "NULL")("\ta", "'\ta'")  // a tab is no blank
      (true, "1")(false, "0")(Variant::FromCurrency(15000), "1.5");
  // clang-format on
  EXPECT_THROW(VarToSql(Variant::NewArray(0, 1)), EVariantError);
}

TEST(QXSqlTools, ConditionsNumbersAndNames) {
  EXPECT_EQ(SQLAdd("", "a=1") + SQLAdd("a=1", ""), "a=1a=1 and ");
  EXPECT_EQ(SQLStrNO("ID", 5), "REPLICATE('0', 5 - LEN(LTRIM(STR(ID))))+ LTRIM(STR(ID))");
  EXPECT_EQ(SQLNumCaption("ID", -5, "Name"),
            "REPLICATE('0',  - LEN(LTRIM(STR(ID))))+ LTRIM(STR(ID))+ ' - ' + Name");
  // clang-format off
  Rows([](const std::string& name) { return FormatFieldName(name, fnSqlCase); })
      ("TB_ORDER", "tb_Order")("CUSTOMER_NAME", "Customer_name")("TB_", "tb_")("", "");
  Rows<TFieldNameType, std::string>([](TFieldNameType type) { return FormatFieldName("aB", type); })
      (fnDefault, "aB")(fnUpperCase, "AB")(fnLowerCase, "ab");
  Rows([](const std::string& name) { return FieldToParam(name, "P"); })
      ("tb_Name_x", "P_Name_x")("Name", "P_Name");
  // clang-format on
}

TEST(QXSqlTools, TypesAreFoundByNameAndByCode) {
  using namespace QXSqlDefine;
  // clang-format off
  Rows<std::string, TSqlTypeStruct>(FindSqlStructByName)
      ("VARCHAR", SqlStruct[Sql_Varchar])("uniqueidentifie", SqlStruct[Sql_Uniqueidentifie])
      ("uniqueidentifier", SqlStructEmpty)("bigint", SqlStructEmpty)("int ", SqlStructEmpty);
  // Shared codes give the first row that has them.
  Rows<Integer, TSqlTypeStruct>(FindSqlStructByDataType)
      (3, SqlStruct[Sql_Decimal])(11, SqlStruct[Sql_Datetime])(-2, SqlStruct[Sql_Binary])
      (99, {"", 0, 'U', false})(-150, {"Sql_variant", -150, 'F', false});
  // clang-format on
}

// --- The command -------------------------------------------------------------------------------------
// Names, comments and output of any text: fuzz/CommandText.cpp.

TEST(TQXSQL, AValueSetsStyleAndTextByItsType) {
  // clang-format off
  // A value, and the style, text and value that it sets, and what is written.
  const std::tuple<Variant, TSqlStyle, const char*, Variant, std::string> cases[] = {
    {Variant::Null(), stFunction, "NULL", Variant::Null(), "NULL"}, {true, stBoolean, "1", true, "1"},
    {false, stBoolean, "0", false, "0"}, {std::int16_t{-3}, stInteger, "-3", std::int16_t{-3}, "-3"},
    {std::uint8_t{9}, stInteger, "9", std::uint8_t{9}, "9"}, {1.5F, stReal, "1.5", 1.5F, "1.5"},
    {Variant::FromCurrency(12345), stReal, "1.2345", Variant::FromCurrency(12345), "1.2345"},
    {Variant::FromDate(37988.7), stDate, "2004/01/02", Variant::FromDate(37988.7), "'2004/01/02'"},
    {"plain", stTime, "plain", "plain", "'plain'"},  // text keeps the style
    {u"@F:GETDATE()", stFunction, "GETDATE()", "GETDATE()", "GETDATE()"},
    {"@n:15", stInteger, "15", "15", "15"}, {"@T", stTime, "", "", "NULL"}, {"@B", stBoolean, "", "", "NULL"},
    {"@R;", stReal, "", "", ""}, {"@X:1", stTime, "@X:1", "@X:1", "'@X:1'"},
    {std::int64_t{5}, stTime, "", "", "NULL"},  // the next four types change nothing at all
    {std::uint16_t{5}, stTime, "", "", "NULL"}, {Variant(), stTime, "", "", "NULL"},
    {Variant::NewArray(0, 0), stTime, "", "", "NULL"}};
  // clang-format on
  for (const auto& [value, style, text, stored, written] : cases) {
    TQXSQL command;
    command.GetInLines().SetText("@P");
    TQXSQLItem& item = *command.GetParams().GetItems(0);
    item.Style = stTime;
    command.GetParams().SetItemsValue("@p", value);
    EXPECT_TRUE(item.Style == style && item.Text == text && item.Value == stored) << item.Text << written;
    EXPECT_EQ(command.GetOutLines().GetText(), written + "\r\n");
  }
}

struct ThreeItems : TQXSQLItems {
  ThreeItems() {
    for (const char* name : {"@a", "@b", "@A"}) Add(name);
    for (int i = 0; i < 3; ++i) GetItemsIndex("@a");  // from the third time on by an index
  }
};

TEST(TQXSQLItems, TheLastOfEqualNamesIsFoundWhateverChanges) {
  const auto expect = [](Integer want, const char* name, const std::function<void(TQXSQLItems&)>& change,
                         int line = __builtin_LINE()) {
    const testing::ScopedTrace trace(__FILE__, line, name);
    ThreeItems items;
    change(items);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(items.GetItemsIndex(name), want);
  };
  expect(2, "@a", [](auto&) {}), expect(-1, "@c", [](auto&) {});
  expect(3, "@a", [](auto& items) { items.Add("@a"); });
  expect(0, "@a", [](auto& items) { items.Delete(2); });
  expect(-1, "@a", [](auto& items) { items.Clear(); });
  expect(2, "@B", [](auto& items) { items.GetItems(2)->SetName("@b"); });
  expect(3, "@C", [](auto& items) { items.Add()->SetName("@c"); });
  expect(1, "B", [](auto& items) {
    items.GetItems(1)->SetName(std::string_view(items.GetItems(1)->GetName()).substr(1));
  });
  expect(3, "@n", [](auto& items) { items.AddNamesOf("@n @b @d"); });
  expect(-1, "@d", [](auto& items) { items.AddNamesOf("@n @b @d"); });  // nothing ends the last
  expect(-1, "@a", [](auto& items) { items.Assign(&items); });          // on purpose
}

TEST(TQXSQLItems, AnUnknownNameIsReported) {
  ThreeItems items;
  EXPECT_FALSE(items.FindAndModify("@d", "5", stInteger));
  const std::function<void()> lookUps[] = {
      [&] { items.SetItemsStyle("@d", stDate); }, [&] { items.GetItemsStyle("@d"); },
      [&] { items.SetItemsValue("@d", 1); }, [&] { items.GetItemsValue("@d"); }};
  for (const auto& lookUp : lookUps) EXPECT_EQ(MessageOf(lookUp), "Parameters @d is not found");
  EXPECT_EQ(MessageOf([&] { items.Delete(-1); }), "List index out of bounds (-1)");
}

TEST(TQXSQLItems, ModifyingChangesNeitherTextNorOutput) {
  ThreeItems items;
  items.SetItemsValue("@a", 7);
  EXPECT_TRUE(items.FindAndModify("@a", "5", stReal));
  TQXSQL other;
  other.SetParams(&items);
  other.SetParams(nullptr);
  const TQXSQLItem& copy = *other.GetParams().FindByName("@A");
  EXPECT_TRUE(copy.Text == "7" && copy.Value == Variant("5") && copy.Style == stReal);
  EXPECT_EQ(MessageOf([&] { items.GetItems(0)->Assign(&other); }), "Cannot assign a TQXSQL to a TQXSQLItem");
}

TEST(TQXSQL, NamesBeginWithALetterAndEndBeforeAnythingElse) {
  // clang-format off
  Rows([](const std::string& text) {
    TQXSQL command;
    command.GetInLines().SetText(text);
    std::string names;
    for (Integer i = 0; i < command.GetParams().GetCount(); ++i)
      names += command.GetParams().GetItems(i)->GetName() + " ";
    return names;
  })("a = @A, b=@b_1;@A", "@A @b_1 ")("@a @A @a ", "@a ")("'@a'", "@a ")("@ x", "@x ")(
      "@@ROWCOUNT", "@ROWCOUNT ")("@1a @_b", "@a @b ")("@a@b", "@b ")("@\r\n(y)", "@y ")("@", "")(
      "a@b.tw", "@b ")("@a\xA4\xA4", "@a ");  // 中
  // clang-format on
}

TEST(TQXSQL, AnyChangeOfTheTextFindsItsParametersAnew) {
  TQXSQL command;
  for (const TSqlLanguage language : {slSelect, slInsert, slDelete, slUpdate}) {
    command.AssignSql({"select @p0", "insert @p1", "delete @p2", "update @p3 x"}, language);
    EXPECT_EQ(command.GetParams().GetItemsIndex("@P" + std::to_string(language)), 0);
  }
  command.GetParams().SetItemsValue("@p3", "O'Neil");
  command.GetParams().Add("@P3");  // the first of equal names finds all there is to replace
  EXPECT_EQ(command.GetOutLines().GetText(), "update 'O''Neil' x\r\n");
  command.GetParams().GetItems(0)->SetName("@p3 X");  // a name can be any text
  EXPECT_EQ(command.GetOutLines().GetText(), "update 'O''Neil'\r\n");
  command.GetInLines().Add("-- more");
  EXPECT_EQ(command.GetParams().GetItemsValue("@p3"), Variant(""));
  command.GetInLines().BeginUpdate();
  command.SetInLines({"@X"});  // also while the event is held back
  EXPECT_EQ(command.GetParams().GetItemsIndex("@x"), 0);
}

// Of a text of bytes each character counts as one, and a code that the page holds twice becomes the main one.
TEST(TQXSQL, TheOutputIsThatOfTheWideText) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    TQXSQL command;
    command.GetInLines().SetText(RandomText(
        random,
        {"/", "*", "/*", "*/", "\xA4\x40", "\xF9\xE9", "\xA2\xCC", "\xA4", "\xFF", "\r", "\n", " ", "a"},
        20));
    command.GetParams().Clear();
    const std::string text = command.GetInLines().GetText();
    TStrings want;
    want.SetText(WideToBytes(TQXSQL::ClearNote(BytesToWide(text))));
    ASSERT_EQ(command.GetOutLines().GetText(), want.GetText()) << testing::PrintToString(text);
  }
}

TEST(TQXSQL, ASlashTakesTheCharacterBehindItAlong) {
  EXPECT_EQ(TQXSQL::ClearNote(u"a/\u4E2D/**/ /"), u"a /\r\n");  // 中
  EXPECT_EQ(TQXSQL::ClearNote(u"a/b"), u"a/b");                 // on purpose: stays without a comment
}

TEST(TQXSQL, StyleLettersAndTheSharedCommand) {
  TStringList letters;
  SQL()->FillCharType(letters);
  EXPECT_EQ(letters.GetText(), "S\r\nN\r\nR\r\nD\r\nT\r\nB\r\nF\r\n");
  EXPECT_EQ(SQL(), SQL());
}

}  // namespace
