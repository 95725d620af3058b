#include <gtest/gtest.h>
#include <qxTools/runtime/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <qxTools/strings/QXStrTools.h>

#include <random>

#include "support/MessageOf.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxSqlStoreProc;
using test::MessageOf;
using Names = std::vector<std::string>;

Names ParamsOf(const TQXSqlStoreProc& set) {
  Names names;
  for (Integer i = 0; i < set.GetParamCount(); ++i) names.push_back(set.GetItems(i)->GetName());
  return names;
}

Names MacrosOf(const TQXSqlStoreProc& set) {
  Names names;
  for (Integer i = 0; i < set.GetFuncCount(); ++i) names.push_back(set.GetFuncItems(i)->GetName());
  return names;
}

TEST(TQXSqlStoreProc, ScansForParametersOutsideLiterals) {
  const struct {
    const char* text;
    Names automatic;
    Names all;
  } cases[] = {
      {"where A=@MM_A and B=@b", {"@MM_A"}, {"@MM_A", "@b"}},
      {"'@MM_X'", {}, {}},
      {"@MM_A ... @mm_a", {"@MM_A"}, {"@MM_A"}},
      {"@MM_A@MM_B", {"@MM_B"}, {"@MM_B"}},
      {"@MM_1, @MM, @MMX, @mm_x", {"@MM_1", "@MM", "@mm_x"}, {"@MM_1", "@MM", "@MMX", "@mm_x"}},
      {"@_x @1y @@ROWCOUNT", {}, {"@x", "@y", "@ROWCOUNT"}},
      {"@ Code", {}, {"@Code"}},
      {"@a'it''s'b", {}, {"@a"}},  // the literal's last quote ends the name
      {"@'x'b ", {}, {"@b"}},      // a lone mark stays open over a literal
      {"@a'never closed", {}, {}},
      {"'never closed @MM_A", {}, {}},
      {"\xA4@MM ", {"@MM"}, {"@MM"}},  // on purpose: the second byte of 一 is a mark like any other
  };
  for (const auto& c : cases) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText(c.text);
    EXPECT_EQ(ParamsOf(set), c.automatic) << c.text;
    set.SetSearchParamType(spAll);
    EXPECT_EQ(ParamsOf(set), c.all) << c.text;
  }
}

TEST(TQXSqlStoreProc, ScansForMacrosEverywhere) {
  const std::pair<const char*, Names> cases[] = {
      {"'[$T]' [$t] [$U]", {"[$T]", "[$U]"}},
      {"[$a[$b]", {"[$a[$b]", "[$b]"}},
      {"[$a] [$b", {"[$a]"}},
      {"] [$ a ]", {"[$ a ]"}},
  };
  for (const auto& [text, want] : cases) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText(text);
    EXPECT_EQ(MacrosOf(set), want) << text;
  }
}

TEST(TQXSqlStoreProc, WritesTheCall) {
  TQXSqlStoreProc set;
  set.LoadStoreProc(u"select * from Goods where Code = @MM_Code and Name like 'A%'");
  set.SetValue("@mm_code", 5);
  TStrings& call = *set.GetStoreProc();
  ASSERT_EQ(call.GetCount(), 4);
  EXPECT_EQ(call.GetStrings(0), "sp_executesql N'");
  EXPECT_EQ(call.GetStrings(1), "select * from Goods where Code = @MM_Code and Name like ''A%''\r\n',");
  EXPECT_EQ(call.GetStrings(2), "N'@MM_Code Int', ");
  EXPECT_EQ(call.GetStrings(3), "5");
  EXPECT_EQ(set.GetStoreProc()->GetCount(), 4);  // built anew, not added to
}

TEST(TQXSqlStoreProc, DeclaresTypesLengthsAndValues) {
  TQXSqlStoreProc set;
  set.SetSearchParamType(spAll);
  set.LoadStoreProc(u"[$What] @a @b @c @d @e '[##]'");
  set.SetValue("$what", "O'Brien");
  set.SetValue("@a", u"\u4E2D'x");
  set.SetValue("@b", Variant());  // nothing between the commas
  set.SetValue("@c", Variant::FromDate(EncodeDate(2024, 2, 29)));
  set.SetValue("@d", true);
  EXPECT_EQ(set.GetStoreProc()->GetStrings(1), "O''Brien @a @b @c @d @e ''''''\r\n',");
  EXPECT_EQ(set.GetStoreProc()->GetStrings(2),
            "N'@a Varchar(4) , @b Sql_variant , @c Datetime , @d Bit , @e Unknown', ");
  EXPECT_EQ(set.GetStoreProc()->GetStrings(3), "'\xA4\xA4''x' ,  , '2024/02/29' , 1 , NULL");
  EXPECT_EQ(set.GetFuncs("[$WHAT]")->GetStyle(), spVarchar);
  StoreProcParamTypeStr[spBit] = "bit";
  EXPECT_NE(set.GetStoreProc()->GetStrings(2).find("@d bit"), std::string::npos);
  StoreProcParamTypeStr[spBit] = "Bit";
}

TEST(TQXSqlStoreProc, WithoutValuesTheStatementStandsAlone) {
  TQXSqlStoreProc set;
  set.GetStatement().SetText("select 1");
  EXPECT_EQ(set.GetStoreProc()->GetText(), "sp_executesql N'\r\nselect 1\r\n'\r\n");
  set.GetStatement().SetText("select @MM_A");
  set.SetValue("@MM_A", Variant());  // its literal is empty, and so is the list of values
  EXPECT_EQ(set.GetStoreProc()->GetCount(), 2);
  set.SetValue("@MM_A", Variant::NewArray(0, 1));
  EXPECT_THROW(set.GetStoreProc(), EVariantError);
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
  const auto randomText = [&](std::initializer_list<const char*> pieces, unsigned size) {
    std::string text;
    for (auto i = random() % (size + 1); i > 0; --i) text += pieces.begin()[random() % pieces.size()];
    return text;
  };
  for (int round = 0; round < 30000; ++round) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText(randomText({"[$", "[", "]", "a", "A", "$", "'", "##", "[##]", "[$a]"}, 12));
    for (Integer i = 0; i < set.GetFuncCount(); ++i) {
      if (random() % 16 == 0) set.GetFuncItems(i)->SetName(randomText({"a", "[$a]"}, 2));
      set.GetFuncItems(i)->SetValue(round % 2 == 0 ? randomText({"x", "'", "a", "$"}, 2)
                                                   : randomText({"[", "$", "a]", "[$a]"}, 2));
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
  const std::pair<VarType, TStoreProcParamType> types[] = {{varEmpty, spSql_variant},
                                                           {varNull, spSql_variant},
                                                           {varSmallint, spSmallint},
                                                           {varInteger, spInt},
                                                           {varSingle, spDecimal},
                                                           {varDouble, spFloat},
                                                           {varCurrency, spMoney},
                                                           {varDate, spDatetime},
                                                           {varOleStr, spVarchar},
                                                           {varDispatch, spUnknown},
                                                           {varError, spUnknown},
                                                           {varBoolean, spBit},
                                                           {varVariant, spSql_variant},
                                                           {varUnknown, spUnknown},
                                                           {14, spUnknown},
                                                           {varShortInt, spTinyint},
                                                           {varByte, spTinyint},
                                                           {varWord, spInt},
                                                           {varLongWord, spInt},
                                                           {varInt64, spBigint},
                                                           {varStrArg, spVarchar},
                                                           {varString, spVarchar},
                                                           {varArray, spVarbinary},
                                                           {varArray | varByte, spUnknown},
                                                           {varByRef | varInteger, spUnknown}};
  for (const auto& [code, want] : types) EXPECT_EQ(VarToParamType(Variant::OfType(code)), want) << code;
  const std::array<VarBounds, 2> plane{{{0, 1}, {0, 1}}};
  EXPECT_EQ(VarLength(Variant::NewArray(plane, varEmpty)), 2);
  EXPECT_EQ(VarLength(Variant::NewArray(0, 9, varByte)), 0);
  EXPECT_EQ(VarLength(u"a\u4E2D"), 3);
  EXPECT_EQ(VarLength(12345), 0);
}

TEST(TQXSqlStoreProc, DeclarationsAreReadAndWritten) {
  const std::pair<const char16_t*, const char16_t*> cases[] = {
      {u"@a Int , @b Varchar(20)", u"@a Int , @b Varchar(20)"},
      {u"@a int,@A bit", u"@a Int"},                 // the first of equal names wins
      {u"b NCHAR ( -3 ) anything behind", nullptr},  // blanks inside the length
      {u"b NCHAR (-3) anything behind", u"b NChar(-3)"},
      {u"/* c */ @a /* d */ Unknown", u"@a Unknown"},
      {u"@a\r\n Int", u"@a Int"},  // lines of one text are glued
      {u"@a varchar(5)", u"@a Varchar(5)"},
  };
  for (const auto& [text, want] : cases) {
    TQXSqlStoreProc set;
    if (want == nullptr) {
      EXPECT_THROW(set.LoadParams(text), EConvertError);
      continue;
    }
    set.LoadParams(text);
    WideString saved;
    set.SaveParams(saved);
    EXPECT_EQ(WideToBytes(saved), WideToBytes(want));
    EXPECT_FALSE(set.GetItems(0)->GetAutoStyle());
  }
}

TEST(TQXSqlStoreProc, BadDeclarationsAreNamedAndWhatWasReadBeforeStays) {
  const std::pair<const char16_t*, const char*> cases[] = {
      {u"@ok Int, @a", "Param Error"},
      {u"@ok Int,", "Param Error"},
      {u"@ok Int, @a Text", "ParamStyle not Found"},
      {u"@ok Int, @a Int OUTPUT", "ParamStyle not Found"},
      {u"@ok Int, @a Decimal(10,2)", "'' is not a valid integer value"},
      {u"@ok Int, @a Char()", "'' is not a valid integer value"},
      {u"@ok Int, @a Char)(3)", "'' is not a valid integer value"},
      {u"@ok Int, @a Char(0x10)", "'0x10' is not a valid integer value"},
      {u"@ok Int, @a Char(3000000000)", "'3000000000' is not a valid integer value"},
  };
  for (const auto& [text, message] : cases) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText("[$T] @MM_Old");
    EXPECT_EQ(MessageOf([&set, declarations = text] { set.LoadParams(declarations); }), message);
    EXPECT_EQ(ParamsOf(set), Names{"@ok"});
    EXPECT_EQ(set.GetFuncCount(), 1);
  }
}

TEST(TQXSqlStoreProc, LinesOfADeclarationArePartedByBlanks) {
  TQXSqlStoreProc set;
  const TStringList lines{"@a", "Int,", "@b Bit"};
  set.LoadParams(&lines);
  TStringList saved;
  set.SaveParams(&saved);
  EXPECT_EQ(saved.GetText(), "@a Int , @b Bit\r\n");
  for (const char16_t* blank : {u"", u"  ", u"/* x */"}) set.LoadParams(blank);
  EXPECT_EQ(set.GetParamCount(), 2);
  set.LoadParams(u"\r\n");  // blank once its break is gone
  EXPECT_EQ(set.GetParamCount(), 2);
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
  const std::pair<const char16_t*, const char16_t*> cases[] = {
      {u"  /* x */  select 1", u"select 1"},
      {u"  select 1", u"  select 1"},
      {u"/*/select", u"select"},            // a whole comment
      {u"/* a /* b */ c */ d", u"c */ d"},  // the first end closes, the next one stands before any opener
      {u"a */ /* b */", u"a */ /* b */"},
      {u"\u4E2D/**/a", u"a"},  // on purpose: Chinese goes with the blanks in front
      {u"/**/\u4E2D", u"\u4E2D"},
      {u"//**/* x */y", u"y"},  // a removal that makes an opener
  };
  for (const auto& [text, want] : cases)
    EXPECT_EQ(WideToBytes(TQXSqlStoreProc::ClearNote(text)), WideToBytes(want)) << WideToBytes(text);
  std::mt19937 random(4);
  for (int round = 0; round < 50000; ++round) {
    std::u16string text;
    for (auto i = random() % 24; i > 0; --i) text += u"/*/* a"[random() % 6];
    ASSERT_EQ(WideToBytes(TQXSqlStoreProc::ClearNote(text)), WideToBytes(ClearNoteInSteps(text)))
        << WideToBytes(text);
  }
}

TEST(TQXSqlStoreProc, LoadingClearsCommentsAndOldValues) {
  TQXSqlStoreProc set;
  const TStringList lines{"/* head */", "select @MM_A -- \xA4\xA4"};  // 中
  set.LoadStoreProc(&lines);
  EXPECT_EQ(set.GetStatement().GetText(), "select @MM_A -- \xA4\xA4\r\n");
  set.SetValue("@MM_A", 1);
  set.GetStatement().Add("");
  EXPECT_TRUE(set.GetValue("@MM_A").IsNull());
  set.Clear();
  EXPECT_EQ(set.GetParamCount(), 0);
  EXPECT_EQ(set.GetStatement().GetCount(), 2);
}

}  // namespace
