#include <gtest/gtest.h>
#include <qxTools/runtime/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/strings/QXStrTools.h>

#include <random>

#include "support/MessageOf.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXSqlTools;
using test::MessageOf;

// --- Builders ----------------------------------------------------------------------------------------

TEST(QXSqlTools, StringsAreQuotedAndNothingElseIsTouched) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "NULL"},
      {" ", "' '"},
      {"O'Neil", "'O''Neil'"},
      {"''", "''''''"},
      {std::string("a\0'\r\n\xFF", 6), std::string("'a\0''\r\n\xFF'", 9)},
      {"\xA4\xA4'\xA4", "'\xA4\xA4''\xA4'"},  // 中 and a lone lead byte
  };
  for (const auto& [s, want] : cases) EXPECT_EQ(ToSQLStr(s), want);
  EXPECT_EQ(ToSQLint(""), "NULL");
  EXPECT_EQ(ToSQLint(" x'"), " x'");
}

TEST(QXSqlTools, VariantsAreWrittenByTheirType) {
  const std::pair<Variant, const char*> cases[] = {
      {Variant::Null(), "NULL"},
      {Variant(), ""},
      {Variant::FromDate(EncodeDate(2003, 1, 2) + 0.99), "'2003/01/02'"},
      {Variant::FromDate(EncodeDate(2003, 1, 3) - 1e-10),
       "'2003/01/03'"},  // rounded to the millisecond first
      {"  ab ", "'ab'"},
      {u" \u4E2D ", "'\xA4\xA4'"},  // 中
      {"   ", "NULL"},
      {"\ta", "'\ta'"},  // a tab is no blank
      {true, "1"},
      {false, "0"},
      {-5, "-5"},
      {2.5, "2.5"},
      {Variant::FromCurrency(15000), "1.5"},
  };
  for (const auto& [value, want] : cases) EXPECT_EQ(VarToSql(value), want);
  EXPECT_THROW(VarToSql(Variant::NewArray(0, 1)), EVariantError);
}

TEST(QXSqlTools, ListsAndRanges) {
  const std::vector<std::string> values{"abc", "12", "", "2003/01/02", "it's"};
  EXPECT_EQ(ToSQLEx(values, "SNSDt"), "'abc',12,NULL,'2003/01/02','it''s'");
  EXPECT_EQ(ToSQLEx(values, "xfX"), "12");  // an unknown letter, and no letter, leave a value out
  EXPECT_EQ(ToSQLEx({}, "S"), "");
  const std::pair<const char*, const char*> lists[] = {
      {"x", "('x')"},
      {"", "(NULL)"},
      {"x,", " ('x',NULL) "},
      {",", " (NULL,NULL) "},
      {"a,b,,c", " ('a','b',NULL,'c') "},
      {" a , 'b' ", " (' a ',' ''b'' ') "},
  };
  for (const auto& [list, want] : lists) EXPECT_EQ(ToSQLinlist(list), want);
  const std::pair<const char*, const char*> ranges[] = {
      {"2003/01/01~2003/12/31", "'2003/01/01' and '2003/12/31'"},
      {"5", "'5' and '5'"},
      {"~9", "NULL and '9'"},
      {"a~b~c", "'a' and 'b~c'"},
      {"", "NULL and NULL"},
      {"\xA6\x7E", "'\xA6' and NULL"},  // on purpose: the second byte of 年 is a "~" like any other
  };
  for (const auto& [range, want] : ranges) EXPECT_EQ(ToSQLBetween(range), want);
}

TEST(QXSqlTools, ConditionsNumbersAndNames) {
  EXPECT_EQ(SQLAdd("", "a=1"), "a=1");
  EXPECT_EQ(SQLAdd("a=1", ""), "a=1 and ");
  EXPECT_EQ(SQLStrNO("ID", 5), "REPLICATE('0', 5 - LEN(LTRIM(STR(ID))))+ LTRIM(STR(ID))");
  EXPECT_EQ(SQLNumCaption("ID", -5, "Name"),
            "REPLICATE('0',  - LEN(LTRIM(STR(ID))))+ LTRIM(STR(ID))+ ' - ' + Name");
  const struct {
    const char* name;
    TFieldNameType kind;
    const char* want;
  } names[] = {
      {"TB_ORDER", fnSqlCase, "tb_Order"},
      {"CUSTOMER_NAME", fnSqlCase, "Customer_name"},
      {"TB_", fnSqlCase, "tb_"},
      {"ab", fnSqlCase, "Ab"},
      {"A_b_C", fnSqlCase, "A_b_c"},
      {"", fnSqlCase, ""},
      {"aB", fnDefault, "aB"},
      {"aB", fnUpperCase, "AB"},
      {"aB", fnLowerCase, "ab"},
  };
  for (const auto& c : names) EXPECT_EQ(FormatFieldName(c.name, c.kind), c.want);
  EXPECT_EQ(FieldToParam("tb_Name_x", "P"), "P_Name_x");
  EXPECT_EQ(FieldToParam("Name", "P"), "P_Name");
}

TEST(QXSqlTools, TypesAreFoundByNameAndByCode) {
  using namespace QXSqlDefine;
  EXPECT_EQ(FindSqlStructByName("VARCHAR"), SqlStruct[Sql_Varchar]);
  EXPECT_EQ(FindSqlStructByName("uniqueidentifie"), SqlStruct[Sql_Uniqueidentifie]);
  for (const char* unknown : {"bigint", "uniqueidentifier", "", "int "})
    EXPECT_EQ(FindSqlStructByName(unknown), SqlStructEmpty) << unknown;
  // Shared codes give the first row that has them.
  const std::pair<Integer, TSqlTypes> codes[] = {{3, Sql_Decimal}, {11, Sql_Datetime}, {-2, Sql_Binary}};
  for (const auto& [code, type] : codes) EXPECT_EQ(FindSqlStructByDataType(code), SqlStruct[type]);
  EXPECT_EQ(FindSqlStructByDataType(99), (TSqlTypeStruct{"", 0, 'U', false}));
  EXPECT_EQ(SqlStruct[Sql_Sql_variant], (TSqlTypeStruct{"Sql_variant", -150, 'F', false}));
}

// --- The command -------------------------------------------------------------------------------------

std::vector<std::string> NamesIn(std::string_view text) {
  TQXSQL command;
  command.GetInLines().SetText(text);
  std::vector<std::string> names;
  for (Integer i = 0; i < command.GetParams().GetCount(); ++i)
    names.push_back(command.GetParams().GetItems(i)->GetName());
  return names;
}

TEST(TQXSQL, FindsTheMarkersOfItsText) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"a=@SName and b=@NAge", {"@SName", "@NAge"}},
      {"@SName @sname", {"@SName"}},
      {"@@ROWCOUNT", {"@ROWCOUNT"}},
      {"@ x @\r\n,1_y", {"@x", "@y"}},  // a lone mark stays open over anything, and over the start of a name
      {"@a@b", {"@b"}},
      {"'@quoted'", {"@quoted"}},
      {"@a\xA4\xA4@b_1", {"@a", "@b_1"}},  // 中 ends a name
      {"\xA4@Z ", {"@Z"}},                 // on purpose: the second byte of 一 is a mark like any other
      {"@", {}},
      {"", {}},
  };
  for (const auto& [text, want] : cases) EXPECT_EQ(NamesIn(text), want) << text;
}

TEST(TQXSQL, WritesValuesIntoItsText) {
  TQXSQL command;
  command.GetInLines().SetText("select * from t where a=@SName and b=@NAge");
  TQXSQLItems& params = command.GetParams();
  EXPECT_EQ(command.GetOutLines().GetText(), "select * from t where a=NULL and b=NULL\r\n");
  params.SetItemsValue("@sname", "O'Neil");
  params.SetItemsValue("@NAge", 30);
  EXPECT_EQ(command.GetOutLines().GetText(), "select * from t where a='O''Neil' and b=30\r\n");
  EXPECT_EQ(command.GetOutLines().GetCount(), 1);
  command.GetInLines().Add("-- more");  // any change finds the parameters anew
  EXPECT_EQ(params.GetItemsValue("@SName"), Variant(""));
}

TEST(TQXSQL, AValueSetsStyleAndTextByItsType) {
  const Variant text = u"@F:GETDATE()";
  const struct {
    Variant value;
    TSqlStyle style;
    const char* text;
    Variant stored;
    const char* written;
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
      {text, stFunction, "GETDATE()", "GETDATE()", "GETDATE()"},
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
    TQXSQL command;
    command.GetInLines().SetText("@P");
    TQXSQLItem& item = *command.GetParams().GetItems(0);
    item.Style = stTime;
    command.GetParams().SetItemsValue("@p", c.value);
    EXPECT_EQ(item.Style, c.style) << c.text;
    EXPECT_EQ(item.Text, c.text);
    EXPECT_EQ(item.Value, c.stored) << c.text;
    EXPECT_EQ(command.GetOutLines().GetText(),
              c.written[0] == '\0' ? "\r\n" : c.written + std::string("\r\n"));
  }
}

TEST(TQXSQL, UnknownNamesAreNamed) {
  TQXSQLItems items;
  EXPECT_EQ(MessageOf([&] { items.GetItemsValue("@X"); }), "Parameters @X is not found");
  EXPECT_EQ(MessageOf([&] { items.SetItemsValue("@X", 1); }), "Parameters @X is not found");
  EXPECT_EQ(MessageOf([&] { items.GetItemsStyle(""); }), "Parameters  is not found");
  EXPECT_EQ(MessageOf([&] { items.SetItemsStyle("@X", stDate); }), "Parameters @X is not found");
  EXPECT_EQ(items.FindByName("@X"), nullptr);
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
  items.Delete(2);
  EXPECT_EQ(items.GetItemsIndex("@a"), 1);
  EXPECT_TRUE(items.FindAndModify("@a", "5", stInteger));
  EXPECT_EQ(items.GetItems(1)->Text, "");  // on purpose: the output stays
  TQXSQLItems copy;
  copy.Assign(&items);
  copy.Assign(nullptr);
  EXPECT_EQ(copy.GetCount(), 3);
  EXPECT_EQ(copy.GetItemsStyle("@A"), stInteger);
  TQXSQL other;
  EXPECT_EQ(MessageOf([&] { items.GetItems(0)->Assign(&other); }), "Cannot assign a TQXSQL to a TQXSQLItem");
}

TEST(TQXSQL, CommentsGoAndSlashesWithThem) {
  const std::pair<std::u16string, std::u16string> cases[] = {
      {u"select 1 /* c */", u"select 1 \r\n"},
      {u"a/b", u"a/b"},
      {u"a/b /* c */", u"a \r\n"},     // on purpose
      {u"a /* x **/ b", u"a \r\n"},    // on purpose: never closes
      {u"a /*/ b */ c", u"a  c\r\n"},  // "/*/" does not close itself
      {u"*/ a /*", u"*a \r\n"},        // both marks, in any order
      {u"\n  \n a\n\n b /**/\n \n", u" a\r\n\r\n b \r\n"},
      {u"/* all */", u""},
      {u"  ", u"  "},
      {u"'/* in quotes */'", u"''\r\n"},
      {u"a/\u4E2Db /**/ /", u"ab  /\r\n"},  // the last "/" has nothing behind it
  };
  for (const auto& [text, want] : cases)
    EXPECT_EQ(WideToBytes(TQXSQL::ClearNote(text)), WideToBytes(want)) << WideToBytes(text);
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
  const auto randomText = [&](std::string_view letters, unsigned size) {
    std::string text;
    for (auto i = random() % (size + 1); i > 0; --i) text += letters[random() % letters.size()];
    return text;
  };
  for (int round = 0; round < 30000; ++round) {
    TQXSQL command;
    command.GetInLines().SetText(randomText("@@@aAb1 '", 20));
    TQXSQLItems& params = command.GetParams();
    if (random() % 8 == 0) params.Add("@" + randomText("ab ", 2));
    for (Integer i = 0; i < params.GetCount(); ++i) {
      params.GetItems(i)->Text = randomText(round % 2 == 0 ? "ab'" : "@ab.", 4);
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
  TStringList letters;
  command.FillCharType(letters);
  EXPECT_EQ(letters.GetText(), "S\r\nN\r\nR\r\nD\r\nT\r\nB\r\nF\r\n");
  EXPECT_EQ(SQL(), SQL());
}

}  // namespace
