#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlSafeCall.h>

#include "support/Testing.h"
#include "support/TsqlReader.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxSqlSafeCall;
using namespace qxTools::test;

// Calls of any statement and any values, read back: fuzz/SafeCall.cpp.

/// Declaration and literal of a value in one text, or what was thrown.
std::string Written(const Variant& value, const TSafeCallOptions& options = {}) {
  TQXSqlStoreProcItem item;
  item.SetName("@x");
  item.SetValue(value);
  return MessageOf([&] {
    const std::string declaration = SafeDeclaration(item, options);
    throw Exception(declaration.substr(3) + " " + SafeLiteral(value, options));
  });
}

Variant Bytes(std::initializer_list<int> bytes) {
  Variant array = Variant::NewArray(0, static_cast<Integer>(bytes.size()) - 1, varByte);
  Integer i = 0;
  for (const int byte : bytes) array.SetElement(i++, byte);
  return array;
}

const Variant kMorning = Variant::FromDate(EncodeDate(2024, 1, 2) + (3 * 3600 + 4 * 60 + 5.123) / 86400);
const Variant kDay = Variant::FromDate(EncodeDate(2024, 1, 2));

TEST(qxSqlSafeCall, EachValueHasATypeAndALiteral) {
  const std::string zhong(4001, 'x');
  // clang-format off
  const std::pair<Variant, std::string> cases[] = {
    {"O'Neil", "NVarchar(4000) N'O''Neil'"}, {"", "NVarchar(4000) N''"}, {" a ", "NVarchar(4000) N' a '"},
    {u"\u4E2D", "NVarchar(4000) N'\xA4\xA4'"},  // 中
    {zhong, "NVarchar(max) N'" + zhong + "'"}, {Variant::Null(), "NVarchar(4000) NULL"},
    {12.5f, "Decimal(19,4) 12.5"}, {-0.1f, "Decimal(19,4) -0.1"}, {3e9f, "Decimal(19,4) 3000000000"},
    {1e18f, "Decimal(28,9) 999999984306749440"}, {1e-18f, "Decimal(38,18) 0.000000000000000001"},
    {1e30f, "Float 1E30"}, {1e-30f, "Float 1E-30"}, {0.1, "Float 1E-1"}, {0.0, "Float 0E0"},
    {std::numeric_limits<double>::max(), "Float 1.7976931348623157E308"},
    {Variant::FromCurrency(-123456), "Money -12.3456"},
    {Variant::FromCurrency(std::numeric_limits<std::int64_t>::max()), "Money 922337203685477.5807"},
    {kDay, "Datetime '20240102'"}, {kMorning, "Datetime '2024-01-02T03:04:05.123'"},
    {Variant::FromDate(EncodeDate(1752, 12, 31)), "Datetime2(3) '17521231'"}, {true, "Bit 1"},
    {std::uint8_t{255}, "Tinyint 255"}, {std::int8_t{-1}, "Smallint -1"}, {std::uint16_t{65535}, "Int 65535"},
    {std::uint32_t{4294967295}, "Bigint 4294967295"},
    {std::numeric_limits<std::int64_t>::min(), "Bigint -9223372036854775808"},
    {Bytes({0, 255}), "Varbinary(8000) 0x00FF"}, {Bytes({}), "Varbinary(8000) 0x"},
    {Variant::NewArray(1, 8001, varByte), "Varbinary(max) 0x" + std::string(16002, '0')},
    // What has no exact form.
    {"a\xA4", "@x: byte 2 begins no character"},
    {u"a\U0001F600", "@x: a character has no form in code page 950"},
    {Variant(), "@x: an empty variant has no literal"},
    {Variant::NewArray(0, 1), "@x: the value has no literal"},
    {Variant::FromDispatch(nullptr), "@x: the value has no literal"},
    {Variant::NewArray(std::array<VarBounds, 2>{{{0, 1}, {0, 1}}}, varByte),
     "@x: an array of several dimensions has no literal"},
    {std::numeric_limits<double>::infinity(), "@x: not a number, or infinite"},
    {Variant::FromDate(1e9), "@x: "}};
  // clang-format on
  GetFormatSettings() = {.ShortDateFormat = "dd-mm-yy", .DateSeparator = '-', .DecimalSeparator = ','};
  for (const auto& [value, want] : cases)
    EXPECT_EQ(Written(value).substr(0, std::max<std::size_t>(want.size(), 4)), want);
  GetFormatSettings() = {};
}

TEST(qxSqlSafeCall, OptionsChooseTextsLengthsAndDates) {
  const std::string ascii(9, 'x');
  const std::string wide = "\xA4\xA4\xA4\xA4\xA4\xA4";  // 中中中
  const std::tuple<TSafeCallOptions, Variant, std::string> cases[] = {
      {{.Text = stVarchar}, wide, "Varchar(8000) '" + wide + "'"},
      {{.Text = stVarchar}, std::string(8001, 'x'), "Varchar(max) '" + std::string(8001, 'x') + "'"},
      {{.Text = stVarchar}, Variant::Null(), "Varchar(8000) NULL"},
      {{.Text = stByContent}, ascii, "Varchar(8000) '" + ascii + "'"},
      {{.Text = stByContent}, wide, "NVarchar(4000) N'" + wide + "'"},
      {{.Lengths = {9, 3, 8000}}, wide, "NVarchar(3) N'" + wide + "'"},
      {{.Lengths = {9, 3, 8000}}, ascii, "NVarchar(9) N'" + ascii + "'"},
      {{.Lengths = {-1, 3, 8000}}, ascii, "NVarchar(max) N'" + ascii + "'"},
      {{.Text = stVarchar, .Lengths = {3, 8}}, wide, "Varchar(8) '" + wide + "'"},
      {{.Date = sdDatetime2}, kMorning, "Datetime2(3) '2024-01-02T03:04:05.123'"},
      {{.Date = sdDate}, kDay, "Date '20240102'"},
      {{.EmptyIsNull = true}, "", "NVarchar(4000) NULL"},
      {{.EmptyIsNull = true}, " ", "NVarchar(4000) N' '"},
      {{.EmptyIsNull = true, .TrimText = true}, " ", "NVarchar(4000) NULL"},
      {{.TrimText = true}, " a ", "NVarchar(4000) N'a'"},
  };
  for (const auto& [options, value, want] : cases) EXPECT_EQ(Written(value, options), want);
}

TEST(qxSqlSafeCall, DeclaredTypesAreKeptAndHoldTheirValues) {
  // clang-format off
  const std::tuple<const char*, Variant, std::string> cases[] = {
    {"Varchar(3)", "\xA4\xA4'", "Varchar(3) , N'\xA4\xA4'''"},
    {"Varchar(2)", "\xA4\xA4'", "@x: the length 3 is beyond Varchar(2)"},
    {"nchar(2)", "\xA4\xA4'", "NChar(2) , N'\xA4\xA4'''"},
    {"nchar(1)", "\xA4\xA4'", "@x: the length 2 is beyond NChar(1)"},
    {"NVarchar(max)", "a", "NVarchar(max) , N'a'"},
    {"Varchar(4)", 12345, "@x: the length 5 is beyond Varchar(4)"},
    {"Varchar", "abc", "Varchar(8000) , N'abc'"},  // without a length the server would keep one character
    {"Char", std::string(8001, 'x'), "@x: the length 8001 is beyond Char(8000)"},
    {"Varbinary(1)", Bytes({1, 2}), "@x: the length 2 is beyond Varbinary(1)"},
    {"Decimal(4,2)", 12.34, "Decimal(4,2) , 12.34"},
    {"Decimal(4,2)", 12.345, "@x: the digits of 12.345 are beyond Decimal(4,2)"},
    {"Decimal(4,2)", 123, "@x: the digits of 123 are beyond Decimal(4,2)"},
    {"Decimal(5)", 12.5, "@x: the digits of 12.5 are beyond Decimal(5)"},
    {"Decimal", 0.00001, "Decimal(28,9) , 0.00001"},  // without a precision there would be no decimals
    {"Decimal", "12.5", "Decimal(38,18) , N'12.5'"}, {"Tinyint", -1, "@x: -1 is no Tinyint"},
    {"Int", 2.5, "@x: 2.5 is no Int"}, {"Int", 2.0, "Int , 2"}, {"Float", 2.0, "Float , 2E0"},
    {"Date", kDay, "Date , '20240102'"}, {"Bigint OUTPUT", 5, "Bigint OUTPUT , @v1 OUTPUT"},
    {"Sql_variant", Variant::Null(), "Sql_variant , NULL"}};
  // clang-format on
  for (const auto& [declared, value, want] : cases) {
    TQXSqlStoreProc set;
    set.GetStatement().SetText("@MM_Y");
    set.LoadParams(u"@x Int");
    set.GetItems(0)->SetAutoStyle(true);
    set.GetItems(0)->SetValue(value);
    TStrings call;
    const TSafeCallOptions options{.Params = ReadSafeParams("@X " + std::string(declared))};
    EXPECT_EQ(MessageOf([&] {
                GetSafeStoreProc(set, call, options);
                const Integer last = call.GetCount() - (call.GetText().ends_with("AS [x]\r\n") ? 2 : 1);
                const std::string& types = call.GetStrings(last - 1);
                throw Exception(types.substr(5, types.size() - 8) + " , " + call.GetStrings(last));
              }),
              want);
  }
}

TEST(qxSqlSafeCall, ItemsOfTheSetKeepWhatWasSetByHand) {
  TQXSqlStoreProc set;
  set.LoadParams(u"@a Varchar(2), @b Int, @c Unknown");
  TQXSqlStoreProcItem& item = *set.GetItems(0);
  EXPECT_EQ(SafeDeclaration(item), "@a Varchar(2)");
  item.SetValue("abc");
  EXPECT_EQ(MessageOf([&] { GetSafeStoreProc(set, set.GetStatement()); }),
            "@a: the length 3 is beyond Varchar(2)");
  item.SetLength(9000);
  EXPECT_EQ(MessageOf([&] { SafeDeclaration(item); }), "@a: Varchar(9000) is no type");
  item.SetAutoStyle(true);
  item.SetValue(Variant::Null());
  EXPECT_EQ(SafeDeclaration(item), "@a NVarchar(4000)");
  item.SetStyle(qxSqlStoreProc::spInt);
  EXPECT_EQ(SafeDeclaration(item), "@a Int");
  EXPECT_EQ(MessageOf([&] { SafeDeclaration(*set.GetItems(2)); }), "@c: unknown type \"Unknown\"");
  item.SetName("@a Int, @z");
  EXPECT_EQ(MessageOf([&] { SafeDeclaration(item); }),
            "@a Int, @z: \"@a Int, @z\" is no name of a parameter");
}

TEST(qxSqlSafeCall, DeclarationsAreReadWithTheirSizes) {
  const auto read = [](std::string_view text) {
    return MessageOf([&] {
      std::string all;
      for (const TSafeParam& p : ReadSafeParams(text))
        all += p.Name + " " + p.Type + " " + std::to_string(p.Length) + " " + std::to_string(p.Scale) +
               (p.Max ? " max" : "") + (p.Output ? " out;" : ";");
      throw Exception(all);
    });
  };
  // clang-format off
  Rows(read)
      (" \r\n", "")
      ("@a decimal ( 10 , 2 ) output,/* x */ @B_1 NVARCHAR(MAX)OUT\r\n,\t@c int",
       "@a Decimal 10 2 out;@B_1 NVarchar 0 0 max out;@c Int 0 0;")
      ("@a Int,", "\"\": \"\" is no name of a parameter")("@a", "\"@a\": unknown type \"\"")
      ("@a Varchar(8001)", "\"@a Varchar(8001)\": Varchar(8001) is no type")
      ("@a Varchar(0)", "\"@a Varchar(0)\": no length")
      ("@a Char(max)", "\"@a Char(max)\": Char(max) is no type")
      ("@a Decimal(2,3)", "\"@a Decimal(2,3)\": Decimal(2,3) is no type")
      ("@a Int(4)", "\"@a Int(4)\": Int(4) is no type")("@a Varchar(4", "\"@a Varchar(4\": no length")
      ("@a Int = 5", "\"@a Int = 5\": unknown text behind the type")
      ("@a Int, @A Bit", "@A is declared twice");
  // clang-format on
}

TEST(qxSqlSafeCall, TheCallHoldsStatementTypesAndValues) {
  TQXSqlStoreProc set;
  TStrings call{"old"};
  const auto written = [&](const TSafeCallOptions& options) {
    GetSafeStoreProc(set, call, options);
    return call.GetText();
  };
  set.GetStatement().SetText("select '[##]' from [$T] where Code = @MM_Code");
  EXPECT_EQ(MessageOf([&] { GetSafeStoreProc(set, call); }), "@MM_Code: no value was set");
  set.SetValue("@MM_Code", "A1");
  EXPECT_EQ(MessageOf([&] { GetSafeStoreProc(set, call); }), "[$T]: no value was set");
  EXPECT_EQ(call.GetText(), "old\r\n");
  set.SetValue("$T", "Goods");
  EXPECT_EQ(written({}),
            "EXEC sp_executesql N'\r\nselect ''[##]'' from Goods where Code = @MM_Code\r\n',\r\n"
            "N'@MM_Code NVarchar(4000)', \r\nN'A1'\r\n");
  EXPECT_TRUE(written({.WriteExec = false}).starts_with("sp_executesql N'"));
  // Backslashes at line ends go through variables, and values come back through others.
  set.GetStatement().SetText("set @MM_A = 'a\\\nb' + @MM_B");
  set.SetValue("@MM_B", "ab\\\r\ncd");
  const TSafeCallOptions options{.Params = ReadSafeParams("@MM_A NVarchar(9) output"), .WriteExec = false};
  EXPECT_EQ(
      written(options),
      "DECLARE @v1 NVarchar(9) = NULL\r\n"
      "DECLARE @v2 nvarchar(max) = N'ab\\' + NCHAR(13) + NCHAR(10) + N'cd'\r\n"
      "DECLARE @v nvarchar(max) = N'\r\nset @MM_A = ''a\\' + NCHAR(13) + NCHAR(10) + N'b'' + @MM_B\r\n'\r\n"
      "EXEC sp_executesql @v,\r\n"
      "N'@MM_A NVarchar(9) OUTPUT , @MM_B NVarchar(4000)', \r\n"
      "@v1 OUTPUT , @v2\r\n"
      "SELECT @v1 AS [MM_A]\r\n");
  set.GetStatement().SetText("select\r\n'\xA4'");
  EXPECT_EQ(MessageOf([&] { written({}); }), "line 2 of the statement holds a byte that begins no character");
}

/// Every text of up to three of the pieces that have hurt somewhere.
std::vector<std::string> HostileTexts() {
  const std::string pieces[] = {
      "'",        "\\",       "\r",       "\n",       "a",    "@MM_A", "[$T]",
      "--",       "/*",       "*/",       ";",        "[##]", "N'",    std::string(1, '\0'),
      "\xA4\xA4", "\xA5\x5C", "\xA4\x40", "\xA9\x5D",  // 中, 功, and second bytes that are @ and ]
      "\xA4",     "\x80",     "\xFF",     "\xA4'"};    // no characters
  std::vector<std::string> texts = {""};
  for (std::size_t first = 0, length = 0; length < 3; ++length) {
    const std::size_t end = texts.size();
    for (; first < end; ++first)
      for (const std::string& piece : pieces) texts.push_back(texts[first] + piece);
  }
  return texts;
}

TEST(qxSqlSafeCall, EveryReaderGetsTheTextBack) {
  int escaped = 0;
  for (const std::string& text : HostileTexts()) {
    const bool isWhole = FindStrayByte(text) == std::string::npos;
    for (const TSafeText kind : {stNVarchar, stVarchar, stByContent}) {
      std::string literal;
      ASSERT_EQ(MessageOf([&] { literal = SafeLiteral(text, {.Text = kind}); }) == "(nothing thrown)",
                isWhole);
      for (const Reading reading : kReadings) {
        TsqlReader reader(literal, reading);
        ASSERT_TRUE(!isWhole || (reader.Text() == text && reader.AtEnd())) << literal;
      }
    }
    const std::string plain = text.empty() ? "''" : QXSqlTools::ToSQLStr(text);
    TsqlReader ordinary(plain, Reading::kSwallowing);
    escaped += ordinary.Text() == text && ordinary.AtEnd() ? 0 : 1;
  }
  EXPECT_EQ(escaped, 1978);  // of the ordinary literals, of 11,155: the readers can tell
}

TEST(qxSqlSafeCall, LongTextsInPiecesAreNotCut) {
  const std::string text = std::string(3000, 'x') + "\\\n" + std::string(3000, 'y');
  EXPECT_TRUE(SafeLiteral(text).starts_with("CAST(N'' AS nvarchar(max)) + N'xx"));
  EXPECT_TRUE(SafeLiteral(text, {.Text = stVarchar}).starts_with("'xx"));
  EXPECT_TRUE(SafeLiteral(text + text, {.Text = stVarchar}).starts_with("CAST('' AS varchar(max)) + 'xx"));
  for (const Reading reading : kReadings) EXPECT_EQ(TsqlReader(SafeLiteral(text), reading).Text(), text);
}

}  // namespace
