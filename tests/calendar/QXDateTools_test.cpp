#include <gtest/gtest.h>
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/platform/Clock.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>

#include <array>
#include <limits>

#include "support/MessageOf.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXDateTools;
using test::MessageOf;

constexpr TDateTime kUntouched = -123456;
constexpr Integer kMin = std::numeric_limits<Integer>::min();
constexpr Integer kMax = std::numeric_limits<Integer>::max();

TEST(QXDateTools, EncodingChecksYearMonthAndDayInThatOrder) {
  struct {
    std::uint16_t year;
    std::uint8_t month, day;
    Integer want;
  } const cases[] = {
      {0, 0, 0, 9001},     {10000, 1, 1, 9001},  {65535, 1, 1, 9001}, {2024, 0, 0, 9002},
      {2024, 13, 1, 9002}, {2024, 255, 1, 9002}, {2024, 1, 0, 9003},  {2024, 1, 32, 9003},
      {2023, 4, 31, 9003}, {2023, 12, 31, 9000}, {2000, 2, 29, 9000}, {2000, 2, 30, 9003},
      {2024, 2, 29, 9003},  // a leap year by the calendar
      {1900, 2, 29, 9003}, {2024, 2, 28, 9000},  {1, 1, 1, 9000},     {9999, 12, 31, 9000},
  };
  for (const auto& c : cases) {
    TDateTime date = kUntouched;
    EXPECT_EQ(EnCodeDateEx(date, c.year, c.month, c.day), c.want) << c.year << '/' << int{c.month};
    EXPECT_EQ(date, c.want == 9000 ? EncodeDate(c.year, c.month, c.day) : kUntouched);
  }
}

TEST(QXDateTools, DecodingLeavesEverythingAsItWas) {
  std::uint16_t year = 7;
  std::uint8_t month = 8, day = 9;
  EXPECT_EQ(DeCodeDateEx(45000, year, month, day), 9000);
  EXPECT_EQ(year * 10000 + month * 100 + day, 70809);
}

TEST(QXDateTools, NumericFormsAreRead) {
  struct {
    const char* text;
    Integer code;
    const char* date;   // of StrToDateEx
    const char* date2;  // of StrToDate2, where it is another one
  } const cases[] = {
      {"2024/3/5", 9000, "2024/03/05", nullptr},
      {"2024-3-5", 9000, "2024/03/05", nullptr},
      {"2024/03/05 10:20", 9000, "2024/03/05", nullptr},
      {"20240305", 9000, "2024/03/05", nullptr},
      {"240305", 9000, "0024/03/05", nullptr},
      {"990315", 9000, "0099/03/15", nullptr},
      {"99/03/15", 9000, "1999/03/15", nullptr},
      {"100/1/1", 9000, "0100/01/01", nullptr},
      {"5-1-1", 9000, "1905/01/01", nullptr},
      {"-5-1-1", 9000, "1900/05/11", nullptr},  // the day is "1-1"
      {"-5/1/1", 9000, "1895/01/01", ""},
      {"0/1/1", 9000, "1900/01/01", nullptr},
      {" 2024/3/5", 9000, "1900/03/05", nullptr},
      {"65540/1/1", 9000, "0004/01/01", nullptr},     // 16 bits
      {"2024/259/258", 9000, "2024/03/02", nullptr},  // 8 bits
      {"2024/3-5", 9002, "", ""},                     // no second "/"
      {"2024/3/5 -9-8", 9000, "2024/03/05", "2024/09/08"},
      {"2024-3/5-7", 9001, "", "2024/03/07"},
      {"2024/13/01", 9002, "", nullptr},
      {"2024/2/29", 9003, "", nullptr},
      {"20240431", 9003, "", nullptr},
      {"2024/03", 9002, "", nullptr},
      {"2024035", 9001, "", nullptr},
      {"abc", 9001, "", nullptr},
      {"/", 9002, "", nullptr},
      {"99999999999999999999/1/1", 9001, "", nullptr},
      {"2024/99999999999999999999/1", 9002, "", nullptr},
  };
  for (const auto& c : cases) {
    TDateTime date = kUntouched;
    EXPECT_EQ(StrToDateEx(date, c.text), c.code) << c.text;
    EXPECT_EQ(date == kUntouched ? "" : DateToStr(date), c.date) << c.text;
    EXPECT_EQ(CheckStrDate(c.text), c.code == 9000) << c.text;
    const TDateTime date2 = StrToDate2(c.text);
    EXPECT_EQ(date2 == 0 ? "" : DateToStr(date2), c.date2 == nullptr ? c.date : c.date2) << c.text;
  }
}

TEST(QXDateTools, AnEmptyTextStoresZero) {
  TDateTime date = kUntouched;
  EXPECT_EQ(StrToDateEx(date, ""), 9001);
  EXPECT_EQ(date, 0);
  EXPECT_EQ(StrToDate2(""), 0);
  EXPECT_FALSE(CheckStrDate(""));
}

TEST(QXDateTools, DatesAreWrittenInFixedForms) {
  const TDateTime date = EncodeDate(2024, 3, 5) + 0.75;
  EXPECT_EQ(DateToStrEx(date, '-'), "2024-03-05");
  EXPECT_EQ(DateToStrEx(EncodeDate(5, 1, 1), '/'), "0005/01/01");
  EXPECT_EQ(DateToFile(date), "20240305");
  EXPECT_EQ(ChinaDate(date),
            "2024\xA6\x7E"
            "3\xA4\xEB"
            "5\xA4\xE9");
  EXPECT_EQ(ChinaDate("99/12/31"),
            "1999\xA6\x7E"
            "12\xA4\xEB"
            "31\xA4\xE9");
  EXPECT_EQ(YearMonthCn(date),
            "2024\xA6\x7E"
            "3\xA4\xEB");
  EXPECT_EQ(YearMonthCn("5/1/1"),
            "2005\xA6\x7E"
            "1\xA4\xEB");
  EXPECT_EQ((std::array{Year(date), Month(date), Day(date)}), (std::array{2024, 3, 5}));
}

TEST(QXDateTools, SundayIsBothZeroAndSeven) {
  const std::string week = "\xAC\x50\xB4\xC1";  // 星期
  const char* const names[] = {"\xA4\xE9", "\xA4\x40", "\xA4\x47", "\xA4\x54",
                               "\xA5\x7C", "\xA4\xAD", "\xA4\xBB", "\xA4\xE9"};
  for (Integer i = 0; i < 8; ++i) EXPECT_EQ(ChinaWeek(i), week + names[i]);
  EXPECT_EQ(ChinaWeek(8) + ChinaWeek(-1), "");
  EXPECT_EQ(ChinaWeek(EncodeDate(2024, 1, 1)), ChinaWeek(1));
}

TEST(QXDateTools, WeekdaysFollowEachOther) {
  for (TDateTime date = EncodeDate(1, 1, 1), last = EncodeDate(9999, 12, 31); date <= last; date += 97)
    ASSERT_EQ(Week(date), (static_cast<Integer>(date) % 7 + 13) % 7) << date;
  EXPECT_EQ(Week(2024, 1, 1), 1);
  EXPECT_EQ(Week("2024/1/1"), 1);
  EXPECT_EQ(Week(0, 3, 0), 2);
  for (const Integer odd : {kMin, kMax}) {  // sums wrap
    const Integer week = Week(odd, odd, odd);
    EXPECT_TRUE(week >= 0 && week < 7) << week;
  }
}

TEST(QXDateTools, MonthsKnowTheirDays) {
  EXPECT_EQ(DaysPerMonth(1900, 2) * 10000 + DaysPerMonth(2000, 2) * 100 + DaysPerMonth(2024, 2), 282929);
  EXPECT_TRUE(IsLeapYear(-4) && IsLeapYear(0) && !IsLeapYear(-100));
  for (const Integer month : {0, 13, kMin, kMax}) EXPECT_EQ(DaysPerMonth(2024, month), 0);
  for (TDateTime date = EncodeDate(1899, 1, 1); date < EncodeDate(1905, 1, 1);) {
    EXPECT_EQ(FirstDayOfMonth(date + 0.5), date);
    const TDateTime last = LastDayOfMonth(date + 20.5);
    EXPECT_EQ(last - date + 1, DaysPerMonth(date));
    EXPECT_EQ(Day(last + 1), 1);
    date = last + 1;
  }
}

TEST(QXDateTools, BothEndsCountBetweenDates) {
  EXPECT_EQ(DaysOfBetween(45000, 45000), 1);
  EXPECT_EQ(DaysOfBetween(45000, 44999), 0);
  EXPECT_EQ(DaysOfBetween(0.0, 0.5), 1);  // ties to even
  EXPECT_EQ(DaysOfBetween(0.0, 1.5), 3);
  EXPECT_EQ(DaysOfBetween("2024/2/28", "2024/3/1"), 3);
  EXPECT_EQ(DaysOfBetween(-1e300, 1e300), kMax);
  EXPECT_EQ(DaysOfBetween(1e300, -1e300), kMin);
  EXPECT_EQ(DaysOfBetween(0.0, std::numeric_limits<double>::quiet_NaN()), 1);
  EXPECT_EQ(MessageOf([] { DaysOfBetween("first", "second"); }), "'second' is not a valid date");
}

TEST(QXDateTools, AddingFollowsTheShortDateFormat) {
  EXPECT_EQ(DateAdd(45000.5, -1), 44999.5);
  EXPECT_EQ(DateAdd("2024/2/28", 2), "2024/03/01");
  GetFormatSettings().ShortDateFormat = "d/m/yyyy";
  EXPECT_EQ(DateAdd("28/2/2024", 2), "1/3/2024");
  GetFormatSettings() = FormatSettings();
  for (const auto& call :
       std::initializer_list<void (*)()>{[] { DateAdd("2024-3-5", 1); }, [] { Week("2024-3-5"); },
                                         [] { ChinaDate("2024-3-5"); }, [] { YearMonthCn("2024-3-5"); }})
    EXPECT_EQ(MessageOf(call), "'2024-3-5' is not a valid date");
  EXPECT_THROW(DateAdd("9999/12/31", 1), EConvertError);
}

}  // namespace
