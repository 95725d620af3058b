// Text that the SQL unit has written reaches a real database and comes back: SQLite, in memory.
#include <gtest/gtest.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/QXSqlTools.h>
#include <support/MessageOf.h>

#include "database/Charset.h"
#include "database/Odbc.h"

namespace {

using namespace qxTools::QXSqlTools;
using namespace qxtool::database;
using qxTools::test::MessageOf;

class Database : public testing::Test {
 protected:
  void Send(const std::string& statement) {
    Statement(connection_).Execute(ForServer(statement, Charset::kUtf8));
  }

  /// The first column of the rows.
  std::vector<std::optional<std::string>> Column(const std::string& query) {
    Statement statement(connection_);
    statement.Execute(ForServer(query, Charset::kUtf8));
    std::vector<std::optional<std::string>> values;
    while (statement.Fetch()) values.push_back(statement.Value(1));
    return values;
  }

  /// A text that was written and read again.
  std::string Returned(const std::string& text) {
    Send("drop table if exists T");
    Send("create table T (Value text)");
    Send("insert into T values (" + ToSQLStr(text) + ")");
    return Convert(Column("select Value from T").at(0).value(), Charset::kUtf8, Charset::kCodePage950)
        .value();
  }

  Connection connection_{"Driver=SQLite3;Database=:memory:"};
};

TEST_F(Database, EveryCharacterComesBack) {
  std::string ascii;  // without NUL, which ends texts in SQLite
  for (char c = 127; c > 0; --c) ascii += c;
  std::string wide;
  for (int lead = 0x81; lead <= 0xFE; ++lead)
    for (int trail = 0x40; trail <= 0xFE; ++trail) {
      const std::string bytes = {static_cast<char>(lead), static_cast<char>(trail)};
      if (qxTools::BytesToWide(bytes).size() == 1) wide += bytes;
    }
  ASSERT_EQ(wide.size(), 2 * (13503u + 6217u));  // standard and user-defined characters
  EXPECT_EQ(Returned(ascii), ascii);
  // The ten characters that the page holds twice come back as their main code.
  int different = 0;
  for (std::size_t start = 0; start < wide.size(); start += 16000) {
    const std::string sent = wide.substr(start, 16000);
    const std::string returned = Returned(sent);
    ASSERT_EQ(returned.size(), sent.size());
    for (std::size_t i = 0; i < sent.size(); i += 2) different += returned.compare(i, 2, sent, i, 2) != 0;
  }
  EXPECT_EQ(different, 10);
}

TEST_F(Database, LongValuesComeBackWhole) {
  // Bytes in UTF-8: around the sizes of the pieces in which values are read, and 8,000 characters.
  for (const std::size_t size : {1u, 4095u, 4096u, 4097u, 4098u, 24000u, 1052671u, 1052672u, 1052673u}) {
    std::string text(size % 3, '\'');
    for (std::size_t i = 0; i < size / 3; ++i) text += "\xA4\xA4";  // 中
    EXPECT_TRUE(Returned(text) == text) << size;
  }
}

TEST_F(Database, BoundValuesComeBack) {
  std::string hostile;  // every ASCII character but NUL, which no text of SQLite holds, and Chinese
  for (char c = 1; c > 0 && c < 127; ++c) hostile += c;
  hostile += "\x7F\xB3\x5C\xA5\x5C\xBB\x5C '@a ?";  // 許功蓋
  using qxTools::Variant;
  // clang-format off
  const std::tuple<Variant, std::optional<std::string>, const char*> cases[] = {
    {hostile, Convert(hostile, Charset::kCodePage950, Charset::kUtf8), "text"}, {"", "", "text"},
    {std::string(9000, 'x'), std::string(9000, 'x'), "text"}, {Variant::Null(), std::nullopt, "null"},
    {std::int32_t{-5}, "-5", "integer"},
    {std::int64_t{-9223372036854775807}, "-9223372036854775807", "integer"},
    {std::uint8_t{255}, "255", "integer"}, {true, "1", "integer"}, {0.1, "0.1", "real"},
    {Variant::FromCurrency(9223372036854775807), "922337203685477.5807", "text"},
    {Variant::FromDate(37652), "2003-01-31", "text"}};
  // clang-format on
  for (const auto& [value, returned, type] : cases) {
    Statement statement(connection_);
    statement.Execute("select ?, typeof(?)", {ToParameter(value), ToParameter(value)});
    ASSERT_TRUE(statement.Fetch());
    EXPECT_EQ(statement.Value(1), returned);
    EXPECT_EQ(statement.Value(2), type);
  }
  EXPECT_EQ(MessageOf([] { ToParameter(Variant("\x80")); }), "a byte of the value is no character");
  EXPECT_EQ(MessageOf([] { ToParameter(Variant::FromDate(1.5)); }), "a date with a time of day");
  EXPECT_EQ(MessageOf([&] { Statement(connection_).Execute("select ?, ?", {ToParameter(1)}); }),
            "the driver finds 2 marks for 1 bound values");
}

TEST_F(Database, ConditionsFindTheirRows) {
  Send("create table Goods (Code text, Name text, Price numeric, Kind text)");
  const std::vector<std::string> records[] = {
      {"A-1", "O'Neil", "12.5", "\xA4\xAD\xAA\xF7"},                            // 五金
      {"B-2", "\xB3\x5C\xA5\x5C\xBB\x5C", "-3", ""},                            // 許功蓋
      {"C-3", "50% ~ \"x\"", "8000", "\xA4\xAD\xAA\xF7\xA1\x42\xA4u\xA8\xE3"},  // 五金、工具
  };
  for (const auto& record : records) Send("insert into Goods values (" + ToSQLEx(record, "SSNS") + ")");
  // clang-format off
  const std::pair<std::string, const char*> cases[] = {
    {"Code in" + ToSQLinlist("A-1,,C-3,Z"), "A-1 C-3 "}, {"Code in " + ToSQLinlist("B-2"), "B-2 "},
    {"Name in" + ToSQLinlist("O'Neil,\xB3\x5C\xA5\x5C\xBB\x5C"), "A-1 B-2 "},
    {"Code between " + ToSQLBetween("A-2~C-3"), "B-2 C-3 "}, {"Code between " + ToSQLBetween("C-3"), "C-3 "},
    {"Kind is " + ToSQLStr(""), "B-2 "}, {"Price = " + ToSQLint("-3"), "B-2 "},
    {SQLAdd("Price > " + ToSQLint("0"), "Kind = " + ToSQLStr("\xA4\xAD\xAA\xF7")), "A-1 "},
    {SQLAdd("", "Name like " + ToSQLStr("%'%")), "A-1 "},
    {"Name = " + VarToSql(qxTools::Variant(" 50% ~ \"x\" ")), "C-3 "}};
  // clang-format on
  for (const auto& [condition, want] : cases) {
    std::string codes;
    for (const auto& code : Column("select Code from Goods where " + condition + " order by Code"))
      codes += code.value() + " ";
    EXPECT_EQ(codes, want) << condition;
  }
  EXPECT_EQ(Column("select Kind from Goods where Code = 'B-2'").at(0), std::nullopt);
  EXPECT_EQ(Column("select Price from Goods where Code = 'A-1'").at(0), "12.5");
}

TEST_F(Database, FailuresCarryTheDriversWords) {
  EXPECT_EQ(MessageOf([&] { Send("selec 1"); }), "HY000 (1) [SQLite]near \"selec\": syntax error (1)");
  EXPECT_EQ(MessageOf([&] { Send(std::string("select '\0'", 10)); }), "the statement holds a NUL byte");
  EXPECT_EQ(MessageOf([&] { Send("select\n '\x80'"); }),
            "line 2 of the statement holds a byte that is no character, so it has no UTF-8 form");
  EXPECT_NE(MessageOf([] { Connection("Driver=None"); }).find("Can't open lib 'None'"), std::string::npos);
}

}  // namespace
