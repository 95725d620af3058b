#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxSqlStoreProc;
using namespace qxTools::test;

// Scanning, comments, macros and declarations of any text: fuzz/StatementSet.cpp, fuzz/Declarations.cpp.

TEST(TQXSqlStoreProc, ScansForParametersOutsideLiterals) {
  using Names = std::vector<std::string>;
  const auto namesOf = [](const TQXSqlStoreProc& set) {
    Names names;
    for (Integer i = 0; i < set.GetParamCount(); ++i) names.push_back(set.GetItems(i)->GetName());
    return names;
  };
  // clang-format off
  const std::tuple<std::string, Names, Names> cases[] = {
    // With spAuto, and with spAll.
    {"'@MM_X' @MM_A ... @mm_a=@b", {"@MM_A"}, {"@MM_A", "@b"}}, {"@MM_A@MM_B", {"@MM_B"}, {"@MM_B"}},
    {"@MM_1, @MM, @MMX, @mm_x", {"@MM_1", "@MM", "@mm_x"}, {"@MM_1", "@MM", "@MMX", "@mm_x"}},
    {"@_x @1y @@ROWCOUNT", {}, {"@x", "@y", "@ROWCOUNT"}},
    {"@a'it''s'b", {}, {"@a"}},  // the literal's last quote ends the name
    {"@'x'b ", {}, {"@b"}},  // a lone mark stays open over a literal
    // Never closed, and large: in time that grows with the text.
    {"@a'" + std::string(10000000, '@'), {}, {}}, {"/*" + std::string(10000000, '*'), {}, {}},
    {"[$" + std::string(10000000, '$'), {}, {}}};
  // clang-format on
  for (const auto& [text, automatic, all] : cases) {
    TQXSqlStoreProc set;
    set.LoadStoreProc(BytesToWide(text));
    EXPECT_EQ(namesOf(set), automatic) << text.substr(0, 40);
    set.SetSearchParamType(spAll);
    EXPECT_EQ(namesOf(set), all) << text.substr(0, 40);
  }
}

// Of a text of bytes each character counts as one, and a code that the page holds twice becomes the main one.
TEST(TQXSqlStoreProc, LinesAreLoadedAsTheirWideText) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    TQXSqlStoreProc byLines, byText;
    TStrings lines;
    lines.SetText(RandomText(
        random,
        {"/", "*", "/*", "*/", "\xA4\x41", "\xF9\xE9", "\xA2\xCC", "\xA4", "\xFF", "\r", "\n", " ", "a"},
        20));
    byLines.LoadStoreProc(&lines);
    byText.LoadStoreProc(BytesToWide(lines.GetText()));
    ASSERT_EQ(byLines.GetStatement().GetText(), byText.GetStatement().GetText())
        << testing::PrintToString(lines.GetText());
  }
}

TEST(TQXSqlStoreProc, WritesTheCall) {
  TQXSqlStoreProc set;
  set.LoadStoreProc(u"[$What] @MM_Code, @MM_b @MM_c @MM_d @MM_e like 'A%' '[##]'");
  set.SetValue("$what", "O'Brien");
  set.SetValue("@mm_code", u"\u4E2D'x");
  set.SetValue("@MM_b", Variant());  // nothing between the commas
  set.SetValue("@MM_c", Variant::FromDate(EncodeDate(2024, 2, 29)));
  set.SetValue("@MM_d", true);
  for (int i = 0; i < 2; ++i)  // built anew, not added to
    EXPECT_EQ(set.GetStoreProc()->GetText(),
              "sp_executesql N'\r\nO''Brien @MM_Code, @MM_b @MM_c @MM_d @MM_e like ''A%'' ''''''\r\n',\r\n"
              "N'@MM_Code Varchar(4) , @MM_b Sql_variant , @MM_c Datetime , @MM_d Bit , @MM_e Unknown', \r\n"
              "'\xA4\xA4''x' ,  , '2024/02/29' , 1 , NULL\r\n");
  EXPECT_EQ(set.GetFuncs("[$WHAT]")->GetStyle(), spVarchar);
  StoreProcParamTypeStr[spBit] = "bit";
  EXPECT_NE(set.GetStoreProc()->GetStrings(2).find("@MM_d bit"), std::string::npos);
  StoreProcParamTypeStr[spBit] = "Bit";
  set.GetFuncItems(0)->SetName("like");  // a name can be any text
  EXPECT_NE(set.GetStoreProc()->GetStrings(1).find("@MM_e O''Brien ''A%''"), std::string::npos);
}

TEST(TQXSqlStoreProc, AnExpansionCanMakeTheNameOfALaterMacro) {
  TQXSqlStoreProc set;
  set.GetStatement().SetText("[$[$a] [$b]");
  set.GetFuncItems(0)->SetName("[$z]");
  set.SetValue("$a", "b]");  // makes one more [$b]
  set.SetValue("$b", "x");
  EXPECT_EQ(set.GetStoreProc()->GetStrings(1), "x x\r\n'");
}

TEST(TQXSqlStoreProc, MacrosAreDroppedByClearAndByAnotherSearch) {
  TQXSqlStoreProc set;
  set.GetStatement().SetText("[$T]");
  set.SetValue("$T", 7);
  set.SearchAllParams();
  EXPECT_EQ(set.GetFuncCount(), 1);
  EXPECT_NE(set.GetValue("$T"), Variant(7));
  set.Clear();
  EXPECT_EQ(set.GetFuncCount(), 0);
}

TEST(TQXSqlStoreProc, WithoutValuesTheStatementStandsAlone) {
  TQXSqlStoreProc set;
  const TStringList lines{"/* head */", "select 1 -- \xA4\xA4"};  // 中
  set.LoadStoreProc(&lines);
  EXPECT_EQ(set.GetStoreProc()->GetText(), "sp_executesql N'\r\nselect 1 -- \xA4\xA4\r\n'\r\n");
  set.GetStatement().SetText("select @MM_A");
  set.SetValue("@MM_A", Variant());  // its literal is empty, and so is the list of values
  EXPECT_EQ(set.GetStoreProc()->GetCount(), 2);
  set.SetValue("@MM_A", Variant::NewArray(0, 1));
  EXPECT_THROW(set.GetStoreProc(), EVariantError);
  set.GetStatement().Add("");  // any change finds the parameters anew
  EXPECT_TRUE(set.GetValue("@MM_A").IsNull());
  set.Clear();
  EXPECT_EQ(set.GetParamCount(), 0);
  EXPECT_EQ(set.GetStatement().GetCount(), 2);
}

TEST(TQXSqlStoreProc, ValuesAreReachedByName) {
  TQXSqlStoreProc set;
  set.GetStatement().SetText("[$T] @MM_A");
  set.SetValue("[$t]", 7);
  EXPECT_EQ(set.GetValue("$T"), Variant(7));
  set.SetValue("", 1);
  EXPECT_EQ(set.GetValue(""), Variant());
  for (const char* bad : {"x", "$a]", "$[T]", " @MM_A", "["})
    EXPECT_EQ(MessageOf([&] { set.GetValue(bad); }), "Invalid Name " + std::string(bad));
  for (const char* unknown : {"@x", "$x", "[$x]"})
    EXPECT_EQ(MessageOf([&] { set.SetValue(unknown, 1); }), "List index out of bounds (-1)");
  set.Delete("@x");  // an unknown name does nothing
  set.Delete(" @mm_a ");
  EXPECT_EQ(set.GetParamCount(), 0);
  EXPECT_THROW(set.Delete(0), EListError);
  TQXSqlStoreProcItem* const added = set.Add();
  added->SetName("  @Late ");
  EXPECT_EQ(set.FindParam("@late"), 0);
  added->SetAutoStyle(false);
  added->SetValue(1.5);
  EXPECT_EQ(added->GetStyle(), spUnknown);
  EXPECT_EQ(added->GetSqlValue(), "1.5");
}

TEST(TQXSqlStoreProc, TypesAndLengthsFollowTheVariant) {
  // clang-format off
  const std::pair<TStoreProcParamType, std::vector<VarType>> types[] = {
    {spSql_variant, {varEmpty, varNull, varVariant}}, {spSmallint, {varSmallint}},
    {spInt, {varInteger, varWord, varLongWord}}, {spDecimal, {varSingle}}, {spFloat, {varDouble}},
    {spMoney, {varCurrency}}, {spDatetime, {varDate}}, {spVarchar, {varOleStr, varStrArg, varString}},
    {spBit, {varBoolean}}, {spTinyint, {varShortInt, varByte}}, {spBigint, {varInt64}},
    {spVarbinary, {varArray}},
    {spUnknown, {varDispatch, varError, varUnknown, 14, varArray | varByte, varByRef | varInteger}}};
  // clang-format on
  for (const auto& [want, codes] : types)
    for (const VarType code : codes) EXPECT_EQ(VarToParamType(Variant::OfType(code)), want) << code;
  const std::array<VarBounds, 2> plane{{{0, 1}, {0, 1}}};
  EXPECT_EQ(VarLength(Variant::NewArray(plane, varEmpty)), 2);
  EXPECT_EQ(VarLength(Variant::NewArray(0, 9, varByte)), 0);
  EXPECT_EQ(VarLength(u"a\u4E2D"), 3);
  EXPECT_EQ(VarLength(12345), 0);
}

TEST(TQXSqlStoreProc, DeclarationsReplaceTheParametersAlone) {
  TQXSqlStoreProc set;
  set.GetStatement().SetText("[$T] @MM_Old");
  const TStringList lines{"@a", "int,", "@b NCHAR (-3) anything behind"};  // parted by blanks
  set.LoadParams(&lines);
  for (const char16_t* blank : {u"", u"  ", u"/* x */", u"\r\n"}) set.LoadParams(blank);
  EXPECT_FALSE(set.GetItems(0)->GetAutoStyle());
  TStringList written;
  set.SaveParams(&written);
  EXPECT_EQ(written.GetText(), "@a Int , @b NChar(-3)\r\n");
  EXPECT_EQ(MessageOf([&] { set.LoadParams(u"@c Bit,@d Decimal(10,2)"); }),
            "'' is not a valid integer value");
  WideString rest;
  set.SaveParams(rest);
  EXPECT_EQ(rest, u"@c Bit");  // what was read before stays
  EXPECT_EQ(set.GetFuncCount(), 1);
}

}  // namespace
