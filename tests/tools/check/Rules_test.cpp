// Every rule finds its bad example and passes its good one.
#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/Numbers.h>
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
  if (type == "float") return Variant(static_cast<float>(qxTools::StrToFloat(text)));
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

// Statements as applications have them. None does harm as a call; one literal without N is meant.
constexpr const char* kClean[] = {
    "select top 10 c.CustNo, count(*) as Orders, sum(o.Qty * o.Price) / 2 as Half\n  from Customer c\n"
    "  left join OrderHead o on o.CustNo = c.CustNo and o.OrderDate >= @MM_From\n"
    " where c.City in (N'\xA5\x78\xA5\x5F', N'Tainan') /* \xA8\xE2\xA6\x61 */\n"  // 台北, 兩地
    " group by c.CustNo having count(*) > 5 order by 2 desc\n",
    "-- changes the stock\nupdate Stock set Qty = Qty - @MM_Qty, Changed = getdate() where Code = @MM_Code\n"
    "if @@ROWCOUNT = 0 raiserror('no such goods', 16, 1)\n",
    "insert into Log (Kind, Text, At) values ('order', @MM_Text, '20240102')\n",
    "delete d from OrderDetail d where not exists (select 1 from [$Orders] o where o.OrderNo = d.OrderNo)\n",
    "declare @total decimal(19, 4), @name nvarchar(40)\n"
    "select @total = sum(Price), @name = max(Name) from Goods where Kind = @MM_Kind\nselect @total, @name\n",
    "exec dbo.AddOrder @OrderNo = @MM_No, @At = '2024-01-02T03:04:05'\n",
    "with Top5 as (select Code, row_number() over (order by Qty desc) as N from Stock)\n"
    "select Code from Top5 where N <= 5 and Code like '%' + @MM_Part + '%' escape '\\'\n",
    "create procedure AddGoods @Code varchar(20), @Name nvarchar(40) = null as\nbegin\n"
    "  insert into Goods (Code, Name) values (@Code, @Name) -- both are checked by the caller\nend\n",
    "merge Stock as s using (select @MM_Code as Code) as n on s.Code = n.Code\n"
    "when matched then update set Qty = s.Qty + 1 when not matched then insert (Code, Qty) values (n.Code, "
    "1);\n",
    "select cast(Price as decimal(9, 2)), convert(varchar(10), At, 112), N'it''s', [Order Date] from "
    "[dbo].[Orders]\n",
    "select Code from Goods where Mail = 'sales@example.com' and Path = 'C:\\data\\' and Page = 'a/b'\n",
    "select Code from Goods where Kind = '\xA4\xAD\xAA\xF7'\n",  // 五金
};

TEST(Rules, AreQuietOnStatementsThatDoNoHarm) {
  std::size_t warnings = 0;
  for (const char* const text : kClean) {
    const FileReport report = CheckBytes("a.sql", text, FileOptions(), {});
    EXPECT_EQ(report.levels[static_cast<std::size_t>(Level::kError)], 0u) << text;
    warnings += report.counts.size();  // one a rule and file
  }
  EXPECT_LT(static_cast<double>(warnings), 0.1 * std::size(kClean));
}

}  // namespace qxtool::check
