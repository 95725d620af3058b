// Every rule finds its bad example and passes its good one.
#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <set>
#include <sstream>

#include "check/CheckFile.h"
#include "support/Testing.h"

namespace qxtool::check {

namespace {

using qxTools::Variant;
using qxTools::qxSqlStoreProc::TQXSqlStoreProc;

Variant ValueOf(const std::string& type, const std::string& text) {
  if (type == "null") return Variant::Null();
  if (type == "empty") return Variant();
  if (type == "float") return Variant(std::stof(text));
  if (type == "date") return Variant::FromDate(qxTools::StrToDate(text));
  if (type == "shortint") return Variant(static_cast<std::int8_t>(std::stoi(text)));
  if (type == "longword") return Variant(static_cast<std::uint32_t>(std::stoul(text)));
  return Variant(text);
}

/// The part of `line` before `mark`, which is taken off; all of it if there is none.
std::string Cut(std::string& line, char mark) {
  const std::size_t end = std::min(line.find(mark), line.size());
  std::string part = line.substr(0, end);
  line.erase(0, end + 1);
  return part;
}

/// Fills a set in as the lines say: `declare LIST`, `set NAME:TYPE=VALUE`.
FileReport CheckLines(std::string_view lines, const FileOptions& options) {
  TQXSqlStoreProc set;
  std::string declarations;
  std::istringstream stream{std::string(lines)};
  for (std::string line; std::getline(stream, line);) {
    if (Cut(line, ' ') == "declare") {
      declarations = line;
      qxTools::test::MessageOf([&] { set.LoadParams(qxTools::BytesToWide(declarations)); });
      continue;
    }
    std::string name = Cut(line, '=');
    const std::string plain = Cut(name, ':');
    const std::string mark = plain[0] == '$' ? "[" + plain + "]" : plain;
    if (declarations.empty()) set.LoadStoreProc(qxTools::BytesToWide("select " + mark));
    set.SetValue(plain, ValueOf(name, line));
  }
  return CheckCall("call", set, declarations, options);
}

std::string NameOf(FileKind kind) {
  return "a." + std::string(kind == FileKind::kStatement  ? "sql"
                            : kind == FileKind::kSettings ? "ini"
                            : kind == FileKind::kTable    ? "tbl"
                                                          : "txt");
}

/// The routes on which the rule finds something in the text.
Routes FoundOn(const Rule& rule, std::string_view text) {
  Routes found = 0;
  FileOptions options;
  options.select = {std::string(rule.id)};
  if (rule.id == "IGN101") options.select.push_back("SQL403");  // unused only where that rule is asked
  for (const Route route : {Route::kCommand, Route::kCall, Route::kCallAll}) {
    options.route = route;
    const FileReport report = rule.kind == FileKind::kCall
                                  ? CheckLines(text, options)
                                  : CheckBytes(NameOf(rule.kind), std::string(text), options, {});
    if (report.counts.contains(&rule)) found |= BitOf(route);
  }
  return found;
}

}  // namespace

TEST(Rules, FindTheirBadExampleAndPassTheirGoodOne) {
  std::set<std::string_view> ids;
  for (const Rule& rule : AllRules()) {
    const Routes where = rule.routes != 0 ? rule.routes : kEveryRoute;
    EXPECT_TRUE(ids.insert(rule.id).second) << rule.id;
    EXPECT_NE(FoundOn(rule, rule.bad), 0u) << rule.id;
    EXPECT_EQ(FoundOn(rule, rule.bad) & ~where, 0u) << rule.id << " speaks where it should not";
    EXPECT_EQ(FoundOn(rule, rule.good), 0u) << rule.id;
    EXPECT_FALSE(rule.summary.empty() || rule.why.empty() || rule.remedy.empty()) << rule.id;
  }
}

}  // namespace qxtool::check
