// Text that the SQL unit has written reaches a real database and comes back: SQLite, in memory.
#include <gtest/gtest.h>
#include <qxTools/runtime/CodePage950.h>
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
  void Send(const std::string& statement, Charset charset = Charset::kUtf8) {
    Statement(connection_).Execute(ForServer(statement, charset));
  }

  /// The first column of the rows.
  std::vector<std::optional<std::string>> Column(const std::string& query) {
    Statement statement(connection_);
    statement.Execute(ForServer(query, Charset::kUtf8));
    std::vector<std::optional<std::string>> values;
    while (statement.Fetch()) values.push_back(statement.Value(1));
    return values;
  }

  Connection connection_{"Driver=SQLite3;Database=:memory:"};
};

/// Every character of code page 950, of one byte and of two; NUL ends texts in SQLite.
std::vector<std::string> AllCharacters() {
  std::vector<std::string> characters;
  for (char c = 1; c > 0; ++c) {
    characters.emplace_back(1, c);
    if (c == 127) break;
  }
  for (int lead = 0x81; lead <= 0xFE; ++lead)
    for (int trail = 0x40; trail <= 0xFE; ++trail) {
      const std::string bytes = {static_cast<char>(lead), static_cast<char>(trail)};
      if (qxTools::BytesToWide(bytes).size() == 1) characters.push_back(bytes);
    }
  return characters;
}

/// The characters in texts of 8,000.
std::vector<std::string> Texts(const std::vector<std::string>& characters) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < characters.size(); ++i) {
    if (i % 8000 == 0) texts.emplace_back();
    texts.back() += characters[i];
  }
  return texts;
}

TEST_F(Database, EveryCharacterComesBack) {
  const std::vector<std::string> characters = AllCharacters();
  ASSERT_EQ(characters.size(), 127u + 13503u + 6217u);  // one byte, standard, user-defined
  for (const Charset charset : {Charset::kCodePage950, Charset::kUtf8}) {
    Send("drop table if exists T");
    Send("create table T (Id int, Value text)");
    const std::vector<std::string> texts = Texts(characters);
    for (std::size_t i = 0; i < texts.size(); ++i)
      Send("insert into T values (" + std::to_string(i) + "," + ToSQLStr(texts[i]) + ")", charset);
    std::string sent;
    std::string returned;
    for (const std::string& text : texts) sent += text;
    for (const auto& value : Column("select Value from T order by Id"))
      returned += Convert(value.value(), charset, Charset::kCodePage950).value();
    ASSERT_EQ(returned.size(), sent.size());
    // In UTF-8 the ten characters that the page holds twice come back as their main code.
    std::size_t different = 0;
    for (std::size_t at = 0; const std::string& character : characters) {
      different += returned.substr(at, character.size()) != character;
      at += character.size();
    }
    EXPECT_EQ(different, charset == Charset::kUtf8 ? 10u : 0u);
  }
}

TEST_F(Database, LongValuesComeBackWhole) {
  Send("create table T (Value text)");
  // Bytes in UTF-8: around the sizes of the pieces in which values are read, and 8,000 characters.
  for (const std::size_t size : {1u, 4095u, 4096u, 4097u, 4098u, 24000u, 1052671u, 1052672u, 1052673u}) {
    std::string text(size % 3, '\'');
    for (std::size_t i = 0; i < size / 3; ++i) text += "\xA4\xA4";  // 中
    Send("delete from T");
    Send("insert into T values (" + ToSQLStr(text) + ")");
    const auto values = Column("select Value from T");
    ASSERT_EQ(values.size(), 1u);
    EXPECT_TRUE(Convert(values[0].value(), Charset::kUtf8, Charset::kCodePage950) == text) << size;
  }
}

TEST_F(Database, ConditionsFindTheirRows) {
  Send("create table Goods (Code text, Name text, Price numeric, Kind text)");
  const std::vector<std::string> records[] = {
      {"A-1", "O'Neil", "12.5", "\xA4\xAD\xAA\xF7"},                            // 五金
      {"B-2", "\xB3\x5C\xA5\x5C\xBB\x5C", "-3", ""},                            // 許功蓋
      {"C-3", "50% ~ \"x\"", "8000", "\xA4\xAD\xAA\xF7\xA1\x42\xA4u\xA8\xE3"},  // 五金、工具
  };
  for (const auto& record : records) Send("insert into Goods values (" + ToSQLEx(record, "SSNS") + ")");
  const struct {
    std::string condition;
    const char* codes;
  } cases[] = {
      {"Code in" + ToSQLinlist("A-1,,C-3,Z"), "A-1 C-3 "},
      {"Code in " + ToSQLinlist("B-2"), "B-2 "},
      {"Name in" + ToSQLinlist("O'Neil,\xB3\x5C\xA5\x5C\xBB\x5C"), "A-1 B-2 "},
      {"Code between " + ToSQLBetween("A-2~C-3"), "B-2 C-3 "},
      {"Code between " + ToSQLBetween("C-3"), "C-3 "},
      {"Kind is " + ToSQLStr(""), "B-2 "},
      {"Price = " + ToSQLint("-3"), "B-2 "},
      {SQLAdd("Price > " + ToSQLint("0"), "Kind = " + ToSQLStr("\xA4\xAD\xAA\xF7")), "A-1 "},
      {SQLAdd("", "Name like " + ToSQLStr("%'%")), "A-1 "},
      {"Name = " + VarToSql(qxTools::Variant(" 50% ~ \"x\" ")), "C-3 "},
  };
  for (const auto& c : cases) {
    std::string codes;
    for (const auto& code : Column("select Code from Goods where " + c.condition + " order by Code"))
      codes += code.value() + " ";
    EXPECT_EQ(codes, c.codes) << c.condition;
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
