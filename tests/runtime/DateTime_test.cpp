#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/runtime/Numbers.h>

#include <clocale>
#include <limits>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

class DateTime : public ::testing::Test {
 protected:
  ~DateTime() override { GetFormatSettings() = FormatSettings(); }
};

TEST_F(DateTime, DaysCountFrom30December1899) {
  for (const auto& [parts, date] : {std::pair(DateParts{1899, 12, 30}, 0),
                                    {{1900, 1, 1}, 2},
                                    {{1899, 12, 29}, -1},
                                    {{2024, 2, 29}, 45351},
                                    {{1, 1, 1}, -693593},
                                    {{9999, 12, 31}, 2958465}}) {
    EXPECT_EQ(EncodeDate(parts.Year, parts.Month, parts.Day), date);
    EXPECT_EQ(DecodeDate(date), parts);
  }
  for (const auto& bad : {DateParts{2023, 2, 29}, DateParts{0, 1, 1}, DateParts{10000, 1, 1},
                          DateParts{2024, 13, 1}, DateParts{2024, 4, 31}, DateParts{2024, 1, 0}})
    EXPECT_THROW(EncodeDate(bad.Year, bad.Month, bad.Day), EConvertError) << bad.Year << '/' << bad.Month;
}

TEST_F(DateTime, MomentsAreRoundedToTheMillisecondFirst) {
  EXPECT_EQ(DecodeTime(0.75), (TimeParts{18, 0, 0, 0}));
  EXPECT_EQ(DecodeDate(1 - 1e-10), (DateParts{1899, 12, 31}));
  EXPECT_EQ(DecodeTime(45000 + 1.0 / 86400000), (TimeParts{0, 0, 0, 1}));
  // Before the first day the fraction still counts forward from midnight.
  EXPECT_EQ(DecodeDate(-1.25), (DateParts{1899, 12, 29}));
  EXPECT_EQ(DecodeTime(-1.25), (TimeParts{6, 0, 0, 0}));
  for (const double bad : {2958466.0, -693594.5, 1e300, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_THROW(DecodeDate(bad), EConvertError) << bad;
}

TEST_F(DateTime, TextsAreReadInTheOrderOfTheFormat) {
  struct {
    const char* format;
    char separator;
    const char* text;
    DateParts want;
    const char* written;
  } const cases[] = {
      {"yyyy/mm/dd", '/', " 2024 / 3/ 5 ", {2024, 3, 5}, "2024/03/05"},
      {"yyyy/mm/dd", '/', "49/12/31", {2049, 12, 31}, "2049/12/31"},
      {"yyyy/mm/dd", '/', "50/1/1", {1950, 1, 1}, "1950/01/01"},
      {"yyyy/mm/dd", '/', "099/1/1", {99, 1, 1}, "0099/01/01"},
      {"d/m/yy", '.', "5.3.2024", {2024, 3, 5}, "5.3.24"},
      {"mm/dd/yyyy", '-', "12-31-1999", {1999, 12, 31}, "12-31-1999"},
  };
  for (const auto& c : cases) {
    GetFormatSettings().ShortDateFormat = c.format;
    GetFormatSettings().DateSeparator = c.separator;
    EXPECT_EQ(DecodeDate(StrToDate(c.text)), c.want) << c.text;
    EXPECT_EQ(DateToStr(StrToDate(c.text)), c.written);
  }
}

TEST_F(DateTime, AnythingElseIsNoDate) {
  for (const char* text : {"", "2024", "2024/3", "2024/3/5/", "2024/3/5 10:00", "2024-3-5", "2024/2/30",
                           "0/0/0", "2024/-3/5", "99999999999999999999/1/1", "a/b/c", "2024/3/5x"})
    EXPECT_EQ(MessageOf([&] { StrToDate(text); }), "'" + std::string(text) + "' is not a valid date");
}

TEST_F(DateTime, TheLocaleGivesOrderAndSeparators) {
  // The last one writes 年 (A6 7E) between year and month.
  for (const auto& [locale, written] :
       {std::pair("de_DE.UTF-8", "05.03.2024 1,5"), {"zh_TW.BIG5", "2024/03/05 1.5"}, {"C", "03/05/24 1.5"}}) {
    if (std::setlocale(LC_ALL, locale) == nullptr) continue;  // "C" is everywhere
    GetFormatSettings() = FormatSettings();
    UseLocale();
    EXPECT_EQ(DateToStr(EncodeDate(2024, 3, 5)) + " " + FloatToStr(1.5), written) << locale;
  }
}

TEST_F(DateTime, IntegerTextsAreWhole) {
  EXPECT_EQ(StrToInt("  +12"), 12);
  EXPECT_EQ(StrToInt("-2147483648"), -2147483647 - 1);
  for (const char* text : {"", " ", "1 ", "2147483648", "0x1", "+-1", "--1", "1.0"})
    EXPECT_EQ(MessageOf([&] { StrToInt(text); }), "'" + std::string(text) + "' is not a valid integer value");
}

}  // namespace
