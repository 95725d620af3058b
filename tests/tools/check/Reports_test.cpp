// What is taken away, where findings are placed, and what the reports say.
#include <qxTools/base/CodePage950.h>

#include "check/CheckFiles.h"
#include "check/Configuration.h"
#include "check/Report.h"
#include "support/Testing.h"

namespace qxtool::check {

namespace {

constexpr char kChinese[] = "select '\xA4\xAD\xAA\xF7' -- 2\n";  // 五金

FileReport CheckText(const std::string& text, const FileOptions& options = {},
                     const BaselineCounts& baseline = {}) {
  return CheckBytes("a b.sql", text, options, baseline);
}

std::string IdsOf(const FileReport& report) {
  std::string ids;
  for (const ShownFinding& finding : report.findings)
    ids += std::string(ids.empty() ? "" : " ") + std::string(finding.rule->id) + ":" +
           std::to_string(finding.line);
  return ids;
}

std::string Written(const std::string& format, const FileReport& report, ReportOptions options = {}) {
  std::string text;
  options.version = "1.2.3";
  const auto reporter = MakeReporter(format, options, [&](std::string_view part) { text += part; });
  reporter->Begin();
  reporter->File(report);
  reporter->End();
  return text;
}

}  // namespace

TEST(Suppressions, TakeAwayTheirRuleOnTheirLine) {
  const auto check = [](const std::string& text) { return IdsOf(CheckText(text)); };
  // clang-format off
  qxTools::test::Rows(check)
      ("select '1/2/2024' -- qx:ignore SQL404 no date\nselect '1/2/2024'\n", "SQL404:2")
      ("select '1/2/2024' --qx:ignore sql403,SQL404\n", "IGN101:1")
      ("select '1/2/2024' -- qx:ignore SQL101\n", "SQL404:1")  // that rule is not asked of a call
      ("select '1/2/2024' -- qx:ignore SQL404 don't\n", "SQL404:1 IGN102:1")
      ("select '1/2/2024' -- qx:ignore\n", "SQL404:1 IGN102:1")
      ("select '1/2/2024' /* qx:ignore SQL404 */\n", "SQL404:1")
      ("select 1 -- qx:ignore SQL404 -- qx:ignore SQL403", "IGN101:1");
  // clang-format on
}

TEST(Baselines, KnowLinesWhereverTheyMove) {
  FileOptions options;
  options.findings.countLines = true;
  const std::string text = WriteBaseline({{"a", CheckText(kChinese, options).lines}});
  const Baseline known = ReadBaseline(text);
  EXPECT_EQ(WriteBaseline(known), text);
  const auto check = [&](const std::string& changed) { return IdsOf(CheckText(changed, {}, known.at("a"))); };
  const std::string line = kChinese;
  EXPECT_EQ(check(line), "");
  EXPECT_EQ(check("\n\n  " + line), "");
  EXPECT_EQ(check(line + line), "SQL403:2");
  EXPECT_EQ(check("x" + line), "SQL403:1");
  for (const char* const bad : {"", "[]", "{\"known\": [{\"path\": 1}]}",
                                "{\"known\": [{\"path\":\"a\",\"rule\":\"b\",\"line\":\"x\",\"count\":1}]}"})
    EXPECT_EQ(qxTools::test::MessageOf([&] { ReadBaseline(bad); }),
              "this is no baseline that --write-baseline has written");
}

TEST(Places, CountCharactersAndBytesOfTheFile) {
  using Numbers = std::vector<std::size_t>;
  // Line, column and end, byte offset and length, caret and its width.
  const auto placed = [](const std::string& text) {
    FileOptions options;
    options.select = {"SQL403"};
    const FileReport report = CheckText(text, options);
    if (report.findings.size() != 1) return Numbers{report.findings.size()};
    const ShownFinding& f = report.findings[0];
    EXPECT_LT(f.excerpt.size(), 200u);
    return Numbers{f.line, f.column, f.endColumn, f.byteOffset, f.byteLength, f.caret, f.caretWidth};
  };
  const std::string chinese = kChinese, one = qxTools::BytesToUtf8("\xA4\x40");  // 一
  // clang-format off
  qxTools::test::Rows<std::string, Numbers>(placed)
      (chinese, {1, 8, 12, 7, 6, 7, 6})("\r\n\n\r" + chinese, {4, 8, 12, 11, 6, 7, 6})
      ("\xA4\x40\t'\xA4\x40'", {1, 3, 6, 3, 4, 3, 4})(one + one + " '" + one + "'", {1, 4, 7, 7, 5, 5, 4})
      ("\xEF\xBB\xBF '" + one + "'", {1, 2, 5, 4, 5, 1, 4})
      ("--\xF0\x9F\x98\x80\n '" + one + "'", {2, 2, 5, 8, 5, 1, 4})
      (std::string(200, ' ') + "'\xA4\x40' " + std::string(200, 'x'), {1, 201, 204, 200, 4, 63, 4})
      ("\xFF\x01'\xA4\x40'", {1, 3, 6, 2, 4, 8, 4});
  // clang-format on
}

TEST(Reports, ShowALineItsCaretAndAtMostTenOfARule) {
  std::string text;
  for (int i = 0; i < 12; ++i) text += kChinese;
  const std::string shown = Written("text", CheckText(text));
  EXPECT_TRUE(shown.starts_with(
      "a b.sql:1:8: warning[SQL403]: without N this text goes through the database's code page\n"
      "  select '\xA4\xAD\xAA\xF7' -- 2\n"
      "         ^^^^^^\n"
      "  help: Write N'..'. Switch the rule off where all databases have code page 950.\n\n"))
      << shown;
  EXPECT_NE(shown.find("a b.sql:10:8"), std::string::npos);
  EXPECT_EQ(shown.find("a b.sql:11:8"), std::string::npos);
  EXPECT_NE(shown.find("a b.sql: and 2 more of SQL403\n"), std::string::npos);
  EXPECT_TRUE(
      shown.ends_with("     12  SQL403  Chinese text in a literal without N\n"
                      "1 file: 0 errors, 12 warnings, 0 notes; qxtool check --explain ID says more\n"))
      << shown;
  EXPECT_EQ(
      Written("github", CheckText("a/* %\n*/b '1/2/2024'\n")),
      "::warning file=a b.sql,line=1,col=2,title=SQL105::two words become one where this comment is removed\n"
      "::warning file=a b.sql,line=2,col=5,title=SQL404::the server's language decides which is the day and "
      "which the month\n");
  EXPECT_EQ(
      Written("json", CheckText("select '1/2/2024'\n")),
      "{\"version\":\"1.2.3\",\"findings\":[\n"
      "{\"path\":\"a b.sql\",\"line\":1,\"column\":8,\"endColumn\":18,\"byteOffset\":7,\"byteLength\":10,"
      "\"rule\":\"SQL404\",\"level\":\"warning\",\"message\":\"the server's language decides which is the "
      "day "
      "and which the month\",\"help\":\"Write '20240102'.\"}\n]}\n");
  EXPECT_EQ(UriOf("./a b/\xA4\x40.sql"), "a%20b/%A4%40.sql");
}

TEST(Files, AreReportedInOrderAndReadByKind) {
  const qxTools::test::TemporaryFolder folder;
  const auto save = [&](const std::string& name, const std::string& text) { folder.Make(name, text); };
  for (int i = 10; i < 60; ++i) save(std::to_string(i) + ".sql", kChinese);
  save("a.cpp", "\xFF");
  save("b.any", "[#Ab#][#AB#]\n");
  save("c.any", "//\n");
  save("d.any", "Main:[%RootKey%]\n// x\n");
  std::vector<std::string> order;
  Work work{FindFiles({folder.Path()}),
            [](const std::string&) { return FileOptions(); },
            [](const std::string&) { return BaselineCounts(); },
            {},
            4};
  work.files.push_back({folder.File("gone.sql"), true});
  work.take = [&](const FileReport& report) {
    order.push_back(std::filesystem::path(report.path).filename().string() + " " +
                    (report.checked ? IdsOf(report) : "-") + (report.error.empty() ? "" : "error"));
  };
  CheckFiles(work);
  ASSERT_EQ(order.size(), 55u);
  for (std::size_t i = 0; i < 50; ++i) EXPECT_EQ(order[i], std::to_string(i + 10) + ".sql SQL403:1");
  EXPECT_EQ(
      (std::vector(order.begin() + 50, order.end())),
      (std::vector<std::string>{"a.cpp -", "b.any TAB102:1", "c.any -", "d.any INI101:2", "gone.sql error"}));
  work.take = [](const FileReport&) { throw qxTools::Exception("full"); };
  EXPECT_EQ(qxTools::test::MessageOf([&] { CheckFiles(work); }), "full");
  EXPECT_NE(qxTools::test::MessageOf([&] { FindFiles({folder.File("nowhere")}); }), "(nothing thrown)");
}

TEST(Configurations, SetRulesByPath) {
  const Configuration configuration(
      "sub:[%RootKey%]\n[%\nAs:command\nIgnore:SQL1, sql20\n%]\n*/x?.sql:[%RootKey%]\n[%\nAs:call-all\n%]\n",
      std::filesystem::absolute("base").string());
  const auto route = [&](const std::string& path) { return configuration.For(path, {}).route; };
  EXPECT_EQ(configuration.For("base/sub/a.sql", {}).ignore, (std::vector<std::string>{"SQL1", "sql20"}));
  // clang-format off
  qxTools::test::Rows<std::string, Route>(route)
      ("base/a.sql", Route::kCall)("base/sub/a.sql", Route::kCommand)("base/subs/a.sql", Route::kCall)
      ("base/sub/../sub/deep/a.sql", Route::kCommand)("base/sub/deep/x1.sql", Route::kCallAll);
  qxTools::test::Rows([](const std::string& value) {
        return qxTools::test::MessageOf(
            [&] { Configuration("a:[%RootKey%]\n[%\n" + value + "\n%]\n", "/"); });
      })
      ("As:both", "not command, call or call-all: both")
      ("Ignore:SQL9", "no rule has an id that begins with SQL9")
      ("Us:call", "unknown: US:call; known are As, Select, Ignore and Pedantic:yes");
  // clang-format on
}

}  // namespace qxtool::check
