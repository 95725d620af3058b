#include <gtest/gtest.h>
#include <qxTools/calendar/QXTimeTools.h>

#include <limits>

#include "support/MessageOf.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXTimeTools;
using test::MessageOf;

constexpr Integer kMin = std::numeric_limits<Integer>::min();
constexpr Integer kMax = std::numeric_limits<Integer>::max();

std::string Misshapen(const std::string& text) { return "'" + text + "' is invalid TSTime format."; }

TEST(QXTimeTools, TheFormatIsStrict) {
  for (const char* text : {"00:00", "24:00", "24:59", "09:05"})
    EXPECT_TRUE(CheckTimeFormat(text, 24)) << text;
  for (const char* text : {"", "25:00", "12:60", "1:30", "12-30", "1:030", "-1:00", "12:+5", "12:300"})
    EXPECT_FALSE(CheckTimeFormat(text, 24)) << text;
}

TEST(QXTimeTools, CheckingNormalises) {
  struct {
    const char* text;
    Integer maxHour;
    const char* want;
  } const cases[] = {
      {"", 24, "00:00"},      {"12:60", 24, "12:60"}, {"12:61", 24, "13:01"}, {"12:99", 24, "13:39"},
      {"25:10", 24, "01:10"}, {"24:00", 24, "24:00"}, {"24:05", 24, "00:05"}, {"23:61", 24, "00:01"},
      {"-5:-5", 24, "00:00"}, {"1:345", 24, "01:45"}, {"x2:3x", 24, "00:03"}, {"99:75", 200, "100:15"},
      {"00:00", 0, "00:00"},  {"00:05", 0, "00:05"},  {"12:00", -5, "02:00"}, {"+9:30", 24, "09:30"},
  };
  for (const auto& c : cases) EXPECT_EQ(CheckTime(c.text, c.maxHour), c.want) << c.text;
  for (const char* text : {"9:30", "12-30", "012:30", " "})
    EXPECT_EQ(MessageOf([&] { CheckTime(text, 24); }), Misshapen(text));
  EXPECT_THROW(CheckTime("01:00", 0), EDivByZero);
}

TEST(QXTimeTools, AnEmptyTextIsBaseTime) {
  BaseTime = "08:30, but unchecked";
  EXPECT_EQ(CheckTime("", 24), BaseTime);
  EXPECT_EQ(TimetoMin("", 24), 510);
  EXPECT_EQ(Minute("", 24), 0);
  BaseTime = "8";
  EXPECT_EQ(TimetoMin("", 24), 480);
  BaseTime = "00:00";
}

TEST(QXTimeTools, MinutesBecomeTimes) {
  struct {
    Integer minutes, maxHour;
    const char* want;
  } const cases[] = {{0, 24, "00:00"},    {59, 24, "00:59"},   {1439, 24, "23:59"}, {1440, 24, "24:00"},
                     {1450, 24, "00:10"}, {1500, 24, "01:00"}, {-30, 24, "00:00"},  {-90, 24, "00:00"},
                     {30, 0, "00:30"},    {kMin, 24, "00:00"}, {kMax, 24, "02:07"}};
  for (const auto& c : cases) EXPECT_EQ(MintoTime(c.minutes, c.maxHour), c.want) << c.minutes;
  EXPECT_EQ(TimetoMin("99:75", 200), 600);  // of 100:15, by position
  EXPECT_THROW(MintoTime(60, 0), EDivByZero);
}

TEST(QXTimeTools, SumsWrapRoundTheDay) {
  EXPECT_EQ(AddTime("23:30", 60, 24), "00:30");
  EXPECT_EQ(AddTime("23:30", "01:00", 24), "00:30");
  EXPECT_EQ(SubTime("01:00", 120, 24), "23:00");
  EXPECT_EQ(SubTime("00:30", 60, 24), "23:30");
  EXPECT_EQ(SubTime("00:30", "24:00", 24), "00:30");
  EXPECT_EQ(SubTime("01:00", 3000, 24), "23:00");
  EXPECT_EQ(SubTime("01:00", -60, 24), "02:00");
}

TEST(QXTimeTools, SumsWrapAt32Bits) {
  EXPECT_EQ(AddTime("00:01", kMax, 24), "00:00");
  EXPECT_EQ(AddTime("00:00", kMin, 24), "00:00");
  EXPECT_EQ(SubTime("00:00", kMin, 24), "00:00");
  EXPECT_EQ(SubTime("00:00", kMax, 24), "21:53");
  EXPECT_EQ(SubTime("00:00", 1, kMax), "00:00");
  EXPECT_THROW(SubTime("00:00", 1, 0), EDivByZero);
  EXPECT_THROW(SubTime("00:00", 1, 1 << 30), EDivByZero);  // a day of 0 minutes, wrapped
}

TEST(QXTimeTools, TimesCompareInMinutes) {
  EXPECT_EQ(CompTime("09:00", "10:30", 24), -90);
  EXPECT_TRUE(BetWeen("12:00", "13:00", "11:00", 24));
  EXPECT_TRUE(BetWeen("11:00", "13:00", "11:00", 24) && BetWeen("13:00", "13:00", "11:00", 24));
  EXPECT_FALSE(BetWeen("23:00", "22:00", "02:00", 24));
}

TEST(QXTimeTools, TheFirstMisshapenTextIsNamed) {
  EXPECT_EQ(MessageOf([] { AddTime("1", "2", 24); }), Misshapen("1"));
  EXPECT_EQ(MessageOf([] { SubTime("1", "2", 24); }), Misshapen("2"));
  EXPECT_EQ(MessageOf([] { CompTime("1", "2", 24); }), Misshapen("1"));
  EXPECT_EQ(MessageOf([] { BetWeen("1", "2", "3", 24); }), Misshapen("2"));
  EXPECT_EQ(MessageOf([] { BetWeen("1", "09:00", "3", 24); }), Misshapen("3"));
}

TEST(QXTimeTools, HourAndMinuteStandAsGiven) {
  EXPECT_EQ(Minute("10:75", 24), 75);
  EXPECT_EQ(Hour("30:00", 24), 30);
  EXPECT_EQ(Hour("-3:00", 24), -3);
  EXPECT_EQ(MessageOf([] { Hour("9:30", 24); }), Misshapen("9:30"));
}

TEST(QXTimeTools, OtherForms) {
  EXPECT_EQ(ChinaTime("09:05"),
            "09\xAE\xC9"
            "05\xA4\xC0");
  EXPECT_EQ(ChinaTime("9:5"), std::string("9:\xAE\xC9\0\0\xA4\xC0", 8));
  EXPECT_EQ(ChinaTime(""), "\xAE\xC9\xA4\xC0");
  EXPECT_EQ(TimeToTST(45000 + 9.0 / 24 + 5.0 / 1440 + 59.4 / 86400), "09:05");
  EXPECT_EQ(TimeToTST(-1.25), "06:00");
}

}  // namespace
