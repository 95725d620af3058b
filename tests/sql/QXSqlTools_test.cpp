#include <qxTools/runtime/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/strings/QXStrTools.h>

#include <functional>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXSqlTools;
using namespace qxTools::test;
using namespace std::string_literals;

// --- Builders ----------------------------------------------------------------------------------------

TEST(QXSqlTools, TextsBecomeLiteralsListsAndRanges) {
  ExpectRows(ToSQLStr, {{"", "NULL"}, {" ", "' '"}, {"''", "''''''"}, {"a\0'\r\n\xFF"s, "'a\0''\r\n\xFF'"s}});
  ExpectRows(ToSQLint, {{"", "NULL"}, {" x'", " x'"}});
  ExpectRows(ToSQLinlist,
             {{"x", "('x')"}, {"", "(NULL)"}, {",", " (NULL,NULL) "}, {" a , 'b' ", " (' a ',' ''b'' ') "}});
  ExpectRows(ToSQLBetween, {{"5", "'5' and '5'"},
                            {"~9", "NULL and '9'"},
                            {"a~b~c", "'a' and 'b~c'"},
                            {"", "NULL and NULL"},
                            {"\xA6\x7E", "'\xA6' and NULL"}});  // on purpose: the second byte of 年 is a "~"
  const std::vector<std::string> values{"abc", "12", "", "2003/01/02", "it's"};
  EXPECT_EQ(ToSQLEx(values, "SNSDt"), "'abc',12,NULL,'2003/01/02','it''s'");
  EXPECT_EQ(ToSQLEx(values, "xfX"), "12");  // an unknown letter, and no letter, leave a value out
}

TEST(QXSqlTools, VariantsAreWrittenByTheirType) {
  ExpectRows<Variant, std::string>(VarToSql,
                                   {{Variant::Null(), "NULL"},
                                    {Variant(), ""},
                                    {Variant::FromDate(EncodeDate(2003, 1, 2) + 0.99), "'2003/01/02'"},
                                    {Variant::FromDate(-1e-10), "'1899/12/30'"},  // rounded first
                                    {"  ab ", "'ab'"},
                                    {u" \u4E2D ", "'\xA4\xA4'"},  // 中
                                    {"   ", "NULL"},
                                    {"\ta", "'\ta'"},  // a tab is no blank
                                    {true, "1"},
                                    {false, "0"},
                                    {Variant::FromCurrency(15000), "1.5"}});
  EXPECT_THROW(VarToSql(Variant::NewArray(0, 1)), EVariantError);
}

TEST(QXSqlTools, ConditionsNumbersAndNames) {
  EXPECT_EQ(SQLAdd("", "a=1") + SQLAdd("a=1", ""), "a=1a=1 and ");
  EXPECT_EQ(SQLStrNO("ID", 5), "REPLICATE('0', 5 - LEN(LTRIM(STR(ID))))+ LTRIM(STR(ID))");
  EXPECT_EQ(SQLNumCaption("ID", -5, "Name"),
            "REPLICATE('0',  - LEN(LTRIM(STR(ID))))+ LTRIM(STR(ID))+ ' - ' + Name");
  ExpectRows([](const std::string& name) { return FormatFieldName(name, fnSqlCase); },
             {{"TB_ORDER", "tb_Order"}, {"CUSTOMER_NAME", "Customer_name"}, {"TB_", "tb_"}, {"", ""}});
  ExpectRows<TFieldNameType, std::string>([](TFieldNameType type) { return FormatFieldName("aB", type); },
                                          {{fnDefault, "aB"}, {fnUpperCase, "AB"}, {fnLowerCase, "ab"}});
  ExpectRows([](const std::string& name) { return FieldToParam(name, "P"); },
             {{"tb_Name_x", "P_Name_x"}, {"Name", "P_Name"}});
}

TEST(QXSqlTools, TypesAreFoundByNameAndByCode) {
  using namespace QXSqlDefine;
  ExpectRows<std::string, TSqlTypeStruct>(FindSqlStructByName,
                                          {{"VARCHAR", SqlStruct[Sql_Varchar]},
                                           {"uniqueidentifie", SqlStruct[Sql_Uniqueidentifie]},
                                           {"uniqueidentifier", SqlStructEmpty},
                                           {"bigint", SqlStructEmpty},
                                           {"int ", SqlStructEmpty}});
  // Shared codes give the first row that has them.
  ExpectRows<Integer, TSqlTypeStruct>(FindSqlStructByDataType, {{3, SqlStruct[Sql_Decimal]},
                                                                {11, SqlStruct[Sql_Datetime]},
                                                                {-2, SqlStruct[Sql_Binary]},
                                                                {99, {"", 0, 'U', false}},
                                                                {-150, {"Sql_variant", -150, 'F', false}}});
}

// --- The command -------------------------------------------------------------------------------------

std::vector<std::string> NamesIn(const std::string& text) {
  TQXSQL command;
  command.GetInLines().SetText(text);
  std::vector<std::string> names;
  for (Integer i = 0; i < command.GetParams().GetCount(); ++i)
    names.push_back(command.GetParams().GetItems(i)->GetName());
  return names;
}

TEST(TQXSQL, FindsTheMarkersOfItsText) {
  ExpectRows<std::string, std::vector<std::string>>(
      NamesIn, {{"@SName @sname,@NAge", {"@SName", "@NAge"}},
                {"@ x @\r\n,1_y", {"@x", "@y"}},  // a lone mark stays open, also over the start of a name
                {"'@quoted'", {"@quoted"}},
                {"@a\xA4\xA4@b_1", {"@a", "@b_1"}},  // 中 ends a name
                {"\xA4@Z ", {"@Z"}},                 // on purpose: the second byte of 一 is a mark
                {"@", {}}});
}

TEST(TQXSQL, AValueSetsStyleAndTextByItsType) {
  const struct {
    Variant value;
    TSqlStyle style;
    const char* text;
    Variant stored;
    std::string written;
  } cases[] = {
      {Variant::Null(), stFunction, "NULL", Variant::Null(), "NULL"},
      {true, stBoolean, "1", true, "1"},
      {false, stBoolean, "0", false, "0"},
      {std::int16_t{-3}, stInteger, "-3", std::int16_t{-3}, "-3"},
      {std::uint8_t{9}, stInteger, "9", std::uint8_t{9}, "9"},
      {1.5F, stReal, "1.5", 1.5F, "1.5"},
      {Variant::FromCurrency(12345), stReal, "1.2345", Variant::FromCurrency(12345), "1.2345"},
      {Variant::FromDate(37988.7), stDate, "2004/01/02", Variant::FromDate(37988.7), "'2004/01/02'"},
      {"plain", stTime, "plain", "plain", "'plain'"},  // text keeps the style
      {u"@F:GETDATE()", stFunction, "GETDATE()", "GETDATE()", "GETDATE()"},
      {"@n:15", stInteger, "15", "15", "15"},
      {"@T", stTime, "", "", "NULL"},
      {"@R;", stReal, "", "", ""},
      {"@X:1", stTime, "@X:1", "@X:1", "'@X:1'"},
      {std::int64_t{5}, stTime, "", "", "NULL"},  // the next four types change nothing at all
      {std::uint16_t{5}, stTime, "", "", "NULL"},
      {Variant(), stTime, "", "", "NULL"},
      {Variant::NewArray(0, 0), stTime, "", "", "NULL"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    TQXSQL command;
    command.GetInLines().SetText("@P");
    TQXSQLItem& item = *command.GetParams().GetItems(0);
    item.Style = stTime;
    command.GetParams().SetItemsValue("@p", c.value);
    EXPECT_EQ(item.Style, c.style);
    EXPECT_EQ(item.Text, c.text);
    EXPECT_EQ(item.Value, c.stored);
    EXPECT_EQ(command.GetOutLines().GetText(), c.written + "\r\n");
  }
}

TEST(TQXSQL, UnknownNamesAreNamed) {
  TQXSQLItems items;
  const std::function<void()> calls[] = {
      [&] { items.GetItemsValue("@X"); }, [&] { items.SetItemsValue("@X", 1); },
      [&] { items.GetItemsStyle("@X"); }, [&] { items.SetItemsStyle("@X", stDate); }};
  for (const auto& call : calls) EXPECT_EQ(MessageOf(call), "Parameters @X is not found");
  EXPECT_FALSE(items.FindAndModify("@X", "1", stInteger));
  EXPECT_EQ(MessageOf([&] { items.Delete(-1); }), "List index out of bounds (-1)");
}

TEST(TQXSQL, TheLastOfEqualNamesIsFoundWhateverChanges) {
  TQXSQLItems items;
  for (const char* name : {"@a", "@b", "@A"}) items.Add(name);
  EXPECT_EQ(items.GetItemsIndex("@a"), 2);
  items.GetItems(1)->SetName("@a");
  items.Add()->SetName("@c");
  EXPECT_EQ(items.GetItemsIndex("@B"), -1);
  EXPECT_EQ(items.GetItemsIndex("@C"), 3);
  items.GetItems(3)->SetName(std::string_view(items.GetItems(3)->GetName()).substr(1));  // of itself
  EXPECT_EQ(items.GetItemsIndex("C"), 3);
  items.Delete(2);
  EXPECT_EQ(items.GetItemsIndex("@a"), 1);
  EXPECT_TRUE(items.FindAndModify("@a", "5", stInteger));
  EXPECT_EQ(items.GetItems(1)->Text, "");  // on purpose: the output stays
  TQXSQLItems copy;
  copy.Assign(&items);
  copy.Assign(nullptr);
  EXPECT_EQ(copy.GetCount(), 3);
  EXPECT_EQ(copy.GetItemsStyle("@A"), stInteger);
  copy.Assign(&copy);
  EXPECT_EQ(copy.GetCount(), 0);  // on purpose
  TQXSQL other;
  EXPECT_EQ(MessageOf([&] { items.GetItems(0)->Assign(&other); }), "Cannot assign a TQXSQL to a TQXSQLItem");
}

TEST(TQXSQL, CommentsGoAndSlashesWithThem) {
  ExpectRows([](const std::string& text) { return WideToBytes(TQXSQL::ClearNote(BytesToWide(text))); },
             {{"a/b", "a/b"},
              {"a/b /* c */", "a \r\n"},     // on purpose
              {"a /* x **/ b", "a \r\n"},    // on purpose: never closes
              {"a /*/ b */ c", "a  c\r\n"},  // "/*/" does not close itself
              {"*/ a /*", "*a \r\n"},        // both marks, in any order
              {"\n  \n a\n\n b /**/\n \n", " a\r\n\r\n b \r\n"},
              {"/* all */", ""},
              {"  ", "  "},
              {"'/* in quotes */'", "''\r\n"},
              {"a/\xA4\xA4/**/ /", "a /\r\n"}});  // 中; the last "/" has nothing behind it
}

/// The output as it is defined: item after item in the whole text.
std::string FillInTurn(std::string text, const TQXSQLItems& items) {
  for (Integer i = 0; i < items.GetCount(); ++i) {
    const TQXSQLItem& item = *items.GetItems(i);
    const std::string literal = item.Style == stString ? ToSQLStr(item.Text) : item.Text;
    text = QXStrTools::ReplaceAllStr(text, item.GetName(), literal, true);
  }
  return text;
}

TEST(TQXSQL, TheOnePassEqualsReplacingInTurn) {
  std::mt19937 random(2);
  for (int round = 0; round < 30000; ++round) {
    TQXSQL command;
    command.GetInLines().SetText(RandomText(random, {"@", "@", "@", "a", "A", "b", "1", " ", "'"}, 20));
    TQXSQLItems& params = command.GetParams();
    if (random() % 8 == 0) params.Add("@" + RandomText(random, {"a", "b", " "}, 2));
    for (Integer i = 0; i < params.GetCount(); ++i) {
      params.GetItems(i)->Text = RandomText(random, {"a", "b", round % 2 == 0 ? "'" : "@"}, 4);
      params.GetItems(i)->Style = random() % 2 == 0 ? stString : stFunction;
    }
    TStringList want;
    want.SetText(FillInTurn(command.GetInLines().GetText(), params));
    ASSERT_EQ(command.GetOutLines().GetText(), want.GetText()) << command.GetInLines().GetText();
  }
}

TEST(TQXSQL, StatementsOfATableAndStyleLetters) {
  TQXSQL command;
  command.AssignSql({"select @S", "insert @I", "delete @D", "update @U"}, slDelete);
  EXPECT_EQ(command.GetParams().GetItems(0)->GetName(), "@D");
  EXPECT_EQ(command.GetOutLines().GetText(), "delete NULL\r\n");
  command.GetParams().SetItemsValue("@D", "O'Neil");
  EXPECT_EQ(command.GetOutLines().GetText(), "delete 'O''Neil'\r\n");
  command.GetInLines().Add("-- more");  // any change finds the parameters anew
  EXPECT_EQ(command.GetParams().GetItemsValue("@D"), Variant(""));
  TStringList letters;
  command.FillCharType(letters);
  EXPECT_EQ(letters.GetText(), "S\r\nN\r\nR\r\nD\r\nT\r\nB\r\nF\r\n");
  command.GetInLines().BeginUpdate();
  command.SetInLines({"@X"});  // finds them while the event is held back, too
  EXPECT_EQ(command.GetParams().GetItems(0)->GetName(), "@X");
  EXPECT_EQ(SQL(), SQL());
}

}  // namespace
