// What the statement rules see: tokens, comments as the library removes them, names as it finds them, and the
// cases beside the examples.
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include "check/CheckFile.h"
#include "check/CommentRemoval.h"
#include "check/SqlLexer.h"
#include "support/Testing.h"

namespace qxtool::check {

namespace {

using enum Route;

constexpr char kYi[] = "\xA4\x40";    // 一, whose second byte is @
constexpr char kGong[] = "\xA5\x5C";  // 功, whose second byte is a backslash

/// Each token as its kind's letter and its text: w word, v variable, g global, n number, l literal, b
/// bracket, q quoted, - line comment, * block comment, s symbol, ? odd character; "!" if it never closes.
std::string Tokens(const std::string& text) {
  std::string shown;
  SqlLexer lexer(text);
  for (Token token; lexer.Next(token);)
    shown += std::string(shown.empty() ? "" : " ") + "wvgnlbq-*s?"[static_cast<std::size_t>(token.kind)] +
             (token.closed ? "" : "!") + "<" + text.substr(token.begin, token.end - token.begin) + ">";
  return shown;
}

/// The findings of a text as "ID:line:column", without those of encodings.
std::string Check(const std::string& text, Route route, const std::string& select = "SQL",
                  bool pedantic = false) {
  FileOptions options;
  options.route = route;
  options.select = {select};
  options.pedantic = pedantic;
  std::string found;
  for (const ShownFinding& finding : CheckBytes("a.sql", text, options, {}).findings)
    found += std::string(found.empty() ? "" : " ") + std::string(finding.rule->id) + ":" +
             std::to_string(finding.line) + ":" + std::to_string(finding.column);
  return found;
}

}  // namespace

TEST(SqlLexer, ReadsOddTexts) {
  // clang-format off
  qxTools::test::Rows(Tokens)
      ("a'b''c'n'd'Nn'e'", "w<a> l<'b''c'> l<n'd'> w<Nn> l<'e'>")("'a\nb' 'c", "l<'a\nb'> l!<'c>")
      ("''''", "l<''''>")("[a]]b][c", "b<[a]]b]> b!<[c>")("\"a\"\"b\"x", "q<\"a\"\"b\"> w<x>")
      ("-- a 'b\n1e+2--", "-<-- a 'b> n<1e> s<+> n<2> -<-->")
      ("/* a /* b */ c */d", "*</* a /* b */ c */> w<d>")("/*/ a */b", "*</*/ a */> w<b>")
      ("/* a /* b */", "*!</* a /* b */>")("/**/-/ *", "*</**/> s<-> s</> s<*>")
      ("@a@b @@c @", "v<@a@b> g<@@c> v<@>")("#t $1 a.b$", "w<#t> w<$1> w<a> s<.> w<b$>")
      (std::string("[") + kYi + "]x", std::string("b<[") + kYi + "]> w<x>")
      (std::string(kYi) + "x " + kGong, std::string("w<") + kYi + "x> w<" + kGong + ">")
      ("[\xA4\x5D]x", "b<[\xA4\x5D]> w<x>")  // 冗, whose second byte is ]
      ("a\xA1\x41" "b", "w<a> ?<\xA1\x41> w<b>")  // ，
      ("\xFF'a'", "w<\xFF> l<'a'>")("", "");
  // clang-format on
}

TEST(CommentRemoval, IsTheLibrarys) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    const std::string text = qxTools::test::RandomText(
        random, {"/*", "*/", "*", "/", "a", " ", "\r\n", "\xA4\x40", "\xA5\x5C", "'", "--"}, 14);
    const std::u16string wide = qxTools::BytesToWide(text);
    EXPECT_EQ(KeptText(text, RemovedByCall(text)).Text(),
              qxTools::WideToBytes(qxTools::qxSqlStoreProc::TQXSqlStoreProc::ClearNote(wide)))
        << "call: " << testing::PrintToString(text);
    const auto squeezed = [](std::string s) {
      return std::erase_if(s, [](char c) { return c == ' ' || c == '\r' || c == '\n'; }), s;
    };
    EXPECT_EQ(squeezed(std::string(KeptText(text, RemovedByCommand(text)).Text())),
              squeezed(qxTools::WideToBytes(qxTools::QXSqlTools::TQXSQL::ClearNote(wide))))
        << "command: " << testing::PrintToString(text);
  }
}

TEST(StatementRules, SpeakWhereTheExamplesDoNot) {
  // clang-format off
  const struct {
    Route route;
    std::string text;
    const char* want;
    const char* select = "SQL";
  } rows[] = {
    // Comments.
    {kCommand, "select 1/2 -- a/b\n", ""},  // without a comment nothing is removed
    {kCommand, "/* x */ select 'a/b', c/\n", "SQL101:1:18 SQL101:1:24"},
    {kCommand, "/* a **/ b /* c */ d\n", "SQL102:1:1"}, {kCall, "/* a **/ b /* c */ d\n", ""},
    {kCall, "/*/ a */ select 1\n", "SQL103:1:1"}, {kCall, "select 1 -- /* a */\n", ""},
    {kCall, "select 1 -- /* a\nselect 2 /* b */\n", "SQL103:1:13"},
    {kCall, "select [/*a], '*/'\n", "SQL103:1:9"}, {kCall, "select '*/' /* a */\n", ""},
    {kCall, std::string(kYi) + "/* a */ select 1\n", "SQL105:1:1"}, {kCall, "a/* b *//* c */d\n", "SQL105:1:2"},
    // Names.
    {kCommand, "select @AB, @A, @ABC\n", "SQL201:1:17"}, {kCommand, "select @a_b, @a, @A_B\n", ""},
    {kCommand, "like 'a@b.com'\n", "SQL202:1:8"}, {kCommand, "like '@ ' + x\n", "SQL202:1:7"},
    {kCallAll, "select [a@b], '@c'\n", "SQL202:1:10"}, {kCall, "select '@c', @@ROWCOUNT, [a@b] -- @d\n", ""},
    {kCallAll, "select @@ROWCOUNT, 1 -- @d\n", "SQL204:1:8 SQL203:1:25"},
    {kCommand, std::string("select N'") + kYi + "A'\n", "SQL205:1:10"},
    {kCallAll, std::string("select @") + kYi + "\n", "SQL205:1:8"},
    {kCallAll, "select @1a, @a$b\n", "SQL205:1:8 SQL205:1:13"},
    {kCall, "select 1 -- don't\nselect @MM_A -- it's\n", "SQL206:1:10"},
    {kCall, "select 1 -- don't\nselect 2 -- it's\nselect @MM_A\n", ""},
    {kCall, "select @MM_A -- don't\nselect @MM_A\n", ""},  // it is found in front
    {kCall, "select 1 -- don't\nselect '@MM_A', 'b'\n", "SQL206:1:10"},
    {kCall, "select [it's], @MM_A\n", "SQL206:1:8"},
    {kCallAll, "declare @a int, @b int = (select 1, 2), @c int select @c, @d\n", "SQL207:1:9"},
    {kCall, "declare @a int, @b decimal(9,2), @c int select @a, @b, @c, @d\n", "SQL208:1:60"},
    {kCall, "create proc p @a int, @b varchar(3) as select @a + @b + @c\n", "SQL208:1:57"},
    {kCall, "exec @r = p @a = 1, @b = @MM_B\n", "SQL208:1:6"}, {kCommand, "exec p 1, @b\n", ""},
    {kCommand, "exec dbo.[p] @a = 1, @b = 2; set @c = 1\n", "SQL209:1:14 SQL209:1:22"},
    // Macros.
    {kCall, "from [$a], [$A], '[$a]', [$b\n", "SQL303:1:12 SQL302:1:19 SQL301:1:26 SQL411:1:26"},
    {kCall, "like '[$%]' or [##]\n", "SQL301:1:7 SQL302:1:7 SQL301:1:16"},
    {kCall, "like '\xAC\x5B$a]'\n", "SQL403:1:6 SQL301:1:7 SQL302:1:7", "SQL"},  // 珠's like
    {kCommand, "from [$a], [##]\n", "SQL301:1:6"},
    // The server.
    {kCall, "select 1\n go 5\nselect go, 2\n", "SQL401:2:2"},
    {kCall, ":setvar a b\nselect $(a), '$(b)', $1\n", "SQL401:1:1 SQL401:2:8 SQL401:2:15"},
    {kCall, "-- a\\\r\nselect 1 /* \\\n*/\n", "SQL402:1:5"}, {kCall, std::string("-- ") + kGong + "\n", ""},
    {kCommand, "-- a\\\nselect 'b\\\nc'\n", "SQL402:2:10"},
    {kCall, "select '1.2.24', '31/12/2024 10:00', '1.2.3.4', '1/2', '2024/1/2', '1/2.24'\n",
     "SQL404:1:8 SQL404:1:18 SQL404:1:56"},
    {kCall, "select '2024-1-2', '20240102', '2024-01-02 10:11'\n", "SQL405:1:8 SQL405:1:32", "SQL405"},
    {kCall, "declare @a varchar, @b nchar(2), @c as binary\nselect varchar\n", "SQL406:1:12 SQL406:1:40"},
    {kCall, "select convert(nchar, 1), cast(1 as varchar(2)), cast(1 as decimal)\n", "SQL407:1:16 SQL407:1:60",
     "SQL407"},
    {kCall, "exec(@MM_A) exec('a' + 'b') exec ('a' + (@MM_A))\n", "SQL409:1:29"},
    {kCall, "select 'a", "SQL411:1:8"}};
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(Check(row.text, row.route, row.select), row.want) << row.text;
}

TEST(StatementRules, FollowTheText) {
  // A name that a call finds only behind removed comments is placed in the whole text.
  EXPECT_EQ(Check("/* one */\nselect /* two */ [a@b] /* three */, [c@d]\n", kCallAll),
            "SQL202:2:20 SQL202:2:39");
  EXPECT_EQ(Check("exec(@MM_A)\n", kCall, "SQL409", true), "SQL409:1:1");
  EXPECT_EQ(Check("/* @a */ -- @b\n", kCommand, "SQL203"), "SQL203:1:13");
  EXPECT_EQ(Check("/* @a */ -- @b\n", kCommand, "SQL203", true), "SQL203:1:4 SQL203:1:13");
  EXPECT_EQ(Check("/* @a */ -- @b\n", kCallAll, "SQL203", true), "SQL203:1:13");
}

}  // namespace qxtool::check
