#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>

#include <cmath>

#include "support/Sources.h"
#include "support/Testing.h"

namespace qxTools::QXDateTools {
namespace {

using test::MessageOf;

/// What StrToDateEx and StrToDate2 make of a text: a date; otherwise the code, and nothing.
std::string Read(std::string_view text) {
  TDateTime date = -1;
  const Integer code = StrToDateEx(date, text);
  EXPECT_TRUE(code == 9000 || date == -1) << text;
  EXPECT_EQ(CheckStrDate(text), code == 9000) << text;
  const TDateTime date2 = StrToDate2(text);
  return (code == 9000 ? DateToFile(date) : std::to_string(code)) + "|" +
         (date2 == 0 ? "" : DateToFile(date2));
}

TEST(QXDateTools, NumericFormsAreRead) {
  const std::pair<const char*, std::vector<const char*>> cases[] = {
      {"20240305|20240305", {"2024/3/5", "2024-3-5", "2024/03/05 10:20", "20240305", "2024/259/261"}},
      {"00990315|00990315", {"990315", "65635/3/15"}},
      {"19000511|19000511", {"0/5/11", " 2024/5/11", "-5-1-1"}},
      {"20000229|20000229", {"2000/2/29", "20000229"}},
      {"9001|", {"2024035", "00000000", "abc", "10000/1/1", "99999999999999999999/1/1"}},
      {"9002|", {"2024/13/01", "20240032", "2024/03", "/", "2024/99999999999999999999/1", "2024/3-5"}},
      {"9003|",
       {"2024/2/29", "1900/2/29", "2000/2/30", "2023/4/31", "20240100", "20240132", "20240431", "2024/3/"}},
      {"20240305|20240908", {"2024/3/5 -9-8"}},  // of both separators each takes its own
      {"9001|20240307", {"2024-3/5-7"}},
      {"18950101|", {"-5/1/1"}}};
  for (const auto& [want, texts] : cases)
    for (const char* text : texts) EXPECT_EQ(Read(text), want) << text;
  TDateTime date = 1;
  EXPECT_EQ(StrToDateEx(date, ""), 9001);
  EXPECT_EQ(date, 0);
  EXPECT_FALSE(CheckStrDate("") || StrToDate2("") != 0);
  EXPECT_EQ(EnCodeDateEx(date, 65535, 0, 0), 9001);
  EXPECT_EQ(EnCodeDateEx(date, 9999, 12, 31) + Year(date), 9000 + 9999);
  std::uint16_t year = 7;
  std::uint8_t month = 8, day = 9;
  EXPECT_EQ(DeCodeDateEx(45000, year, month, day), 9000);
  EXPECT_EQ(year * 10000 + month * 100 + day, 70809);  // on purpose: everything is left as it was
}

TEST(QXDateTools, DatesAreWrittenInFixedForms) {
  const std::string yearMark = "\xA6\x7E", monthMark = "\xA4\xEB", dayMark = "\xA4\xE9";  // 年 月 日
  const TDateTime date = EncodeDate(2024, 3, 5) + 0.75;
  EXPECT_EQ(DateToStrEx(date, '-') + DateToStrEx(EncodeDate(5, 1, 1), '/'), "2024-03-050005/01/01");
  EXPECT_EQ(ChinaDate(date), "2024" + yearMark + "3" + monthMark + "5" + dayMark);
  EXPECT_EQ(ChinaDate("99/12/31"), "1999" + yearMark + "12" + monthMark + "31" + dayMark);
  EXPECT_EQ(YearMonthCn(date) + YearMonthCn("5/1/1"),
            "2024" + yearMark + "3" + monthMark + "2005" + yearMark + "1" + monthMark);
  EXPECT_EQ(Year(date) * 10000 + Month(date) * 100 + Day(date), 20240305);
}

TEST(QXDateTools, SundayIsBothZeroAndSeven) {
  const std::string days =
      "\xA4\xE9\xA4\x40\xA4\x47\xA4\x54\xA5\x7C\xA4\xAD\xA4\xBB\xA4\xE9";  // 日一二三四五六日
  for (Integer i = 0; i < 8; ++i)
    EXPECT_EQ(ChinaWeek(i), "\xAC\x50\xB4\xC1" + days.substr(static_cast<std::size_t>(i) * 2, 2));
  EXPECT_EQ(ChinaWeek(8) + ChinaWeek(-1) + ChinaWeek(EncodeDate(2024, 1, 1)), ChinaWeek(1));
  EXPECT_EQ(Week(2024, 1, 1) * 100 + Week("2024/2/29") * 10 + Week(1, 3, 1), 144);
  for (const Integer odd : {INT32_MIN, INT32_MAX}) EXPECT_EQ(Week(odd, odd, odd) / 7, 0);  // sums wrap
}

TEST(QXDateTools, MonthsKnowTheirDays) {
  EXPECT_EQ(DaysPerMonth(1900, 2) * 10000 + DaysPerMonth(2000, 2) * 100 + DaysPerMonth(2024, 2), 282929);
  EXPECT_TRUE(IsLeapYear(-4) && IsLeapYear(0) && !IsLeapYear(-200));
  for (const Integer month : {0, 13, INT32_MIN, INT32_MAX}) EXPECT_EQ(DaysPerMonth(2024, month), 0);
  for (TDateTime date = EncodeDate(1899, 1, 1); date < EncodeDate(1905, 1, 1);) {
    EXPECT_EQ(FirstDayOfMonth(date + 0.5), date);
    date = LastDayOfMonth(date + 20.5) + 1;
    EXPECT_EQ(Day(date), 1);
  }
}

TEST(QXDateTools, BothEndsCountBetweenDates) {
  const std::tuple<TDateTime, TDateTime, Integer> cases[] = {
      {45000, 45000, 1},          {45000, 44999, 0},          {0, 0.5, 1}, {0, 1.5, 3},
      {-1e300, 1e300, INT32_MAX}, {1e300, -1e300, INT32_MIN}, {0, NAN, 1}};
  for (const auto& [first, second, want] : cases) EXPECT_EQ(DaysOfBetween(first, second), want) << second;
  EXPECT_EQ(DaysOfBetween("2024/2/28", "2024/3/1"), 3);
  EXPECT_EQ(MessageOf([] { DaysOfBetween("first", "second"); }), "'second' is not a valid date");
}

TEST(QXDateTools, TheOthersFollowTheShortDateFormat) {
  GetFormatSettings().ShortDateFormat = "d/m/yyyy";
  EXPECT_EQ(DateAdd("28/2/2024", 2), "1/3/2024");
  GetFormatSettings() = FormatSettings();
  EXPECT_EQ(DateAdd(45000.5, -1), 44999.5);
  const test::FixedClock clock(45000.75);
  EXPECT_EQ(Today(), 45000);
  for (void (*const call)() : {+[] { DateAdd("2024-3-5", 1); }, +[] { Week("2024-3-5"); },
                               +[] { ChinaDate("2024-3-5"); }, +[] { YearMonthCn("2024-3-5"); }})
    EXPECT_EQ(MessageOf(call), "'2024-3-5' is not a valid date");
}

}  // namespace
}  // namespace qxTools::QXDateTools
