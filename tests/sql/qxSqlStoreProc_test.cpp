#include <qxTools/runtime/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <qxTools/strings/QXStrTools.h>

#include <tuple>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxSqlStoreProc;
using namespace qxTools::test;
using Names = std::vector<std::string>;

Names ParamsOf(const TQXSqlStoreProc& set) {
  Names names;
  for (Integer i = 0; i < set.GetParamCount(); ++i) names.push_back(set.GetItems(i)->GetName());
  return names;
}

TEST(TQXSqlStoreProc, ScansForParametersOutsideLiteralsAndForMacrosEverywhere) {
  const std::tuple<const char*, Names, Names> cases[] = {
      // With spAuto, and with spAll.
      {"'@MM_X' @MM_A ... @mm_a=@b", {"@MM_A"}, {"@MM_A", "@b"}},
      {"@MM_A@MM_B", {"@MM_B"}, {"@MM_B"}},
      {"@MM_1, @MM, @MMX, @mm_x", {"@MM_1", "@MM", "@mm_x"}, {"@MM_1", "@MM", "@MMX", "@mm_x"}},
      {"@_x @1y @@ROWCOUNT", {}, {"@x", "@y", "@ROWCOUNT"}},
      {"@ Code", {}, {"@Code"}},
      {"@a'it''s'b", {}, {"@a"}},  // the literal's last quote ends the name
      {"@'x'b ", {}, {"@b"}},      // a lone mark stays open over a literal
      {"@a'never closed @MM_A", {}, {}},
      {"\xA4@MM ", {"@MM"}, {"@MM"}},  // on purpose: the second byte of 一 is a mark like any other
  };
  for (const auto& [text, automatic, all] : cases) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText(text);
    EXPECT_EQ(ParamsOf(set), automatic) << text;
    set.SetSearchParamType(spAll);
    EXPECT_EQ(ParamsOf(set), all) << text;
  }
  const auto macros = [](const std::string& text) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText(text);
    std::string names;
    for (Integer i = 0; i < set.GetFuncCount(); ++i) names += set.GetFuncItems(i)->GetName() + "|";
    return names;
  };
  ExpectRows(macros,
             {{"'[$T]' [$t] [$U]", "[$T]|[$U]|"}, {"[$a[$b]", "[$a[$b]|[$b]|"}, {"] [$ a ] [$b", "[$ a ]|"}});
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
}

TEST(TQXSqlStoreProc, AMacroCanBeNamedAnything) {
  TQXSqlStoreProc set;
  set.GetStatement().SetText("[$[$a] [$b] like");
  set.GetFuncItems(0)->SetName("[$z]");
  set.SetValue("$a", "b]");  // makes one more [$b]
  set.SetValue("$b", "x");
  EXPECT_EQ(set.GetStoreProc()->GetStrings(1), "x x like\r\n'");
  set.GetFuncItems(0)->SetName("like");
  EXPECT_EQ(set.GetStoreProc()->GetStrings(1), "x x \r\n'");
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

/// The statement of the call as it is defined: macro after macro, then quotes in two steps.
std::string ExpandInTurn(std::string text, const TQXSqlStoreProc& set) {
  using QXStrTools::ReplaceAllStr;
  for (Integer i = 0; i < set.GetFuncCount(); ++i)
    text = ReplaceAllStr(text, set.GetFuncItems(i)->GetName(), set.GetFuncItems(i)->GetValue().AsString(),
                         false);
  return ReplaceAllStr(ReplaceAllStr(text, "'", "[##]", false), "[##]", "''", false);
}

TEST(TQXSqlStoreProc, TheOnePassEqualsReplacingInTurn) {
  std::mt19937 random(3);
  for (int round = 0; round < 30000; ++round) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText(
        RandomText(random, {"[$", "[", "]", "a", "A", "$", "'", "##", "[##]", "[$a]"}, 12));
    for (Integer i = 0; i < set.GetFuncCount(); ++i) {
      if (random() % 16 == 0) set.GetFuncItems(i)->SetName(RandomText(random, {"a", "[$a]"}, 2));
      set.GetFuncItems(i)->SetValue(round % 2 == 0 ? RandomText(random, {"x", "'", "a", "$"}, 2)
                                                   : RandomText(random, {"[", "$", "a]", "[$a]"}, 2));
    }
    const std::string want = ExpandInTurn(set.GetStatement().GetText(), set) + "'";
    ASSERT_EQ(set.GetStoreProc()->GetStrings(1), want) << set.GetStatement().GetText();
  }
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
  const std::pair<TStoreProcParamType, std::vector<VarType>> types[] = {
      {spSql_variant, {varEmpty, varNull, varVariant}},
      {spSmallint, {varSmallint}},
      {spInt, {varInteger, varWord, varLongWord}},
      {spDecimal, {varSingle}},
      {spFloat, {varDouble}},
      {spMoney, {varCurrency}},
      {spDatetime, {varDate}},
      {spVarchar, {varOleStr, varStrArg, varString}},
      {spBit, {varBoolean}},
      {spTinyint, {varShortInt, varByte}},
      {spBigint, {varInt64}},
      {spVarbinary, {varArray}},
      {spUnknown, {varDispatch, varError, varUnknown, 14, varArray | varByte, varByRef | varInteger}},
  };
  for (const auto& [want, codes] : types)
    for (const VarType code : codes) EXPECT_EQ(VarToParamType(Variant::OfType(code)), want) << code;
  const std::array<VarBounds, 2> plane{{{0, 1}, {0, 1}}};
  EXPECT_EQ(VarLength(Variant::NewArray(plane, varEmpty)), 2);
  EXPECT_EQ(VarLength(Variant::NewArray(0, 9, varByte)), 0);
  EXPECT_EQ(VarLength(u"a\u4E2D"), 3);
  EXPECT_EQ(VarLength(12345), 0);
}

TEST(TQXSqlStoreProc, DeclarationsAreReadAndWritten) {
  const auto saved = [](const std::string& text) {
    TQXSqlStoreProc set;
    set.LoadParams(BytesToWide(text));
    EXPECT_FALSE(set.GetItems(0)->GetAutoStyle());
    WideString declarations;
    set.SaveParams(declarations);
    return WideToBytes(declarations);
  };
  ExpectRows(saved, {{"@a int,@A bit , @b Varchar(20)", "@a Int , @b Varchar(20)"},  // the first name wins
                     {"b NCHAR (-3) anything behind", "b NChar(-3)"},
                     {"/* c */ @a /* d */ Unknown", "@a Unknown"},
                     {"@a\r\n Int", "@a Int"}});  // lines of one text are glued
  TQXSqlStoreProc set;
  const TStringList lines{"@a", "Int,", "@b Bit"};  // lines of a list are parted by blanks
  set.LoadParams(&lines);
  for (const char16_t* blank : {u"", u"  ", u"/* x */", u"\r\n"}) set.LoadParams(blank);
  TStringList written;
  set.SaveParams(&written);
  EXPECT_EQ(written.GetText(), "@a Int , @b Bit\r\n");
}

TEST(TQXSqlStoreProc, BadDeclarationsAreNamedAndWhatWasReadBeforeStays) {
  const auto message = [](const std::string& declaration) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText("[$T] @MM_Old");
    const std::string text = MessageOf([&] { set.LoadParams(BytesToWide("@ok Int," + declaration)); });
    EXPECT_EQ(ParamsOf(set), Names{"@ok"});
    EXPECT_EQ(set.GetFuncCount(), 1);
    return text;
  };
  ExpectRows(message, {{" @a", "Param Error"},
                       {"", "Param Error"},
                       {"@a Text", "ParamStyle not Found"},
                       {"@a Int OUTPUT", "ParamStyle not Found"},
                       {"@a Decimal(10,2)", "'' is not a valid integer value"},
                       {"@a Char()", "'' is not a valid integer value"},
                       {"@a Char)(3)", "'' is not a valid integer value"},
                       {"@a Char ( -3 )", "' -3 ' is not a valid integer value"},  // blanks inside the length
                       {"@a Char(0x10)", "'0x10' is not a valid integer value"}});
}

/// Comment removal as it is defined, step by step from the front.
std::u16string ClearNoteInSteps(std::u16string_view text) {
  std::u16string t(text);
  std::size_t p = t.find(u"/*");
  std::size_t q = t.find(u"*/");
  if (t.find_first_not_of(u' ') == t.npos || p == t.npos || q == t.npos || p > q) return t;
  while (p != t.npos && q != t.npos && p < q) {
    t = t.substr(0, p) + t.substr(q + 2);
    p = t.find(u"/*");
    q = t.find(u"*/");
  }
  const auto first = std::find_if(t.begin(), t.end(), [](char16_t c) { return c >= 33 && c <= 127; });
  return first == t.end() ? t : std::u16string(first, t.end());
}

TEST(TQXSqlStoreProc, CommentsGoFromTheFront) {
  ExpectRows(
      [](const std::string& text) { return WideToBytes(TQXSqlStoreProc::ClearNote(BytesToWide(text))); },
      {{"  /* x */  select 1", "select 1"},
       {"  select 1", "  select 1"},
       {"/* a /* b */ c */ d", "c */ d"},  // the first end closes, the next stands before any opener
       {"\xA4\xA4/**/a", "a"},             // on purpose: Chinese goes with the blanks in front
       {"/**/\xA4\xA4", "\xA4\xA4"}});
  std::mt19937 random(4);
  for (int round = 0; round < 50000; ++round) {
    const std::u16string text = BytesToWide(RandomText(random, {"/", "*", "/*", " ", "a"}, 24));
    ASSERT_EQ(WideToBytes(TQXSqlStoreProc::ClearNote(text)), WideToBytes(ClearNoteInSteps(text)))
        << WideToBytes(text);
  }
}

}  // namespace
