#include <qxTools/calendar/QXTimeTools.h>

#include "support/Testing.h"

namespace qxTools::QXTimeTools {
namespace {

using test::MessageOf;

std::string Misshapen(const std::string& text) { return "'" + text + "' is invalid TSTime format."; }

TEST(QXTimeTools, TheFormatIsStrict) {
  std::string good;
  for (const char* text : {"00:00", "24:00", "24:59", "", "25:00", "12:60", "1:30", "12-30", "1:030", "-1:00",
                           "12:+5", "12:300", "09:05"})
    if (CheckTimeFormat(text, 24)) good += text + std::string(" ");
  EXPECT_EQ(good, "00:00 24:00 24:59 09:05 ");
}

TEST(QXTimeTools, CheckingNormalises) {
  EXPECT_EQ(CheckTime("", 24), "00:00");
  const std::tuple<const char*, Integer, const char*> cases[] = {
      {"12:60", 24, "12:60"}, {"12:61", 24, "13:01"}, {"12:99", 24, "13:39"},   {"25:10", 24, "01:10"},
      {"24:00", 24, "24:00"}, {"24:05", 24, "00:05"}, {"23:61", 24, "00:01"},   {"-5:-5", 24, "00:00"},
      {"1:345", 24, "01:45"}, {"x2:3x", 24, "00:03"}, {"99:75", 200, "100:15"}, {"00:00", 0, "00:00"},
      {"00:05", 0, "00:05"},  {"12:00", -5, "02:00"}};
  for (const auto& [text, maxHour, want] : cases) EXPECT_EQ(CheckTime(text, maxHour), want) << text;
  for (const char* text : {"9:30", "12-30", "012:30", " "})
    EXPECT_EQ(MessageOf([&] { CheckTime(text, 24); }), Misshapen(text));
  for (const auto& [base, minutes] : {std::pair("08:30, but unchecked", 510), std::pair("8", 480)}) {
    BaseTime = base;
    EXPECT_EQ(CheckTime("", 24), base);
    EXPECT_EQ(TimetoMin("", 24) + Hour("", 24), minutes);
  }
  BaseTime = "00:00";
}

TEST(QXTimeTools, MinutesBecomeTimesAndSumsWrapRoundTheDay) {
  const std::tuple<Integer, Integer, const char*> cases[] = {
      {59, 24, "00:59"},   {1439, 24, "23:59"}, {1440, 24, "24:00"}, {1450, 24, "00:10"},
      {1500, 24, "01:00"}, {-30, 24, "00:00"},  {-90, 24, "00:00"},  {30, 0, "00:30"}};
  for (const auto& [minutes, maxHour, want] : cases) EXPECT_EQ(MintoTime(minutes, maxHour), want) << minutes;
  EXPECT_EQ(TimetoMin("99:75", 200), 600);  // of 100:15, by position
  EXPECT_EQ(TimeToTST(45000.25 + 59.4 / 86400), "06:00");
  EXPECT_EQ(AddTime("23:30", 60, 24) + AddTime("23:30", "01:00", 24), "00:3000:30");
  EXPECT_EQ(AddTime("00:01", INT32_MAX, 24), "00:00");  // 32 bits
  const std::tuple<const char*, Integer, Integer, const char*> differences[] = {
      {"01:00", 120, 24, "23:00"}, {"00:30", 60, 24, "23:30"},        {"01:00", 3000, 24, "23:00"},
      {"01:00", -60, 24, "02:00"}, {"00:00", INT32_MAX, 24, "21:53"}, {"00:00", 1, INT32_MAX, "00:00"}};
  for (const auto& [text, n, maxHour, want] : differences) EXPECT_EQ(SubTime(text, n, maxHour), want) << n;
  EXPECT_EQ(SubTime("00:30", "24:00", 24), "00:30");
}

TEST(QXTimeTools, ComparisonsAndOtherForms) {
  EXPECT_EQ(CompTime("09:00", "10:30", 24), -90);
  for (const char* text : {"11:00", "12:00", "13:00"}) EXPECT_TRUE(BetWeen(text, "13:00", "11:00", 24));
  EXPECT_FALSE(BetWeen("23:00", "22:00", "02:00", 24));
  EXPECT_EQ(Minute("10:75", 24) + Hour("30:00", 24), 75 + 30);       // as they stand in the text
  const std::string hourMark = "\xAE\xC9", minuteMark = "\xA4\xC0";  // 時 分
  EXPECT_EQ(ChinaTime("09:05"), "09" + hourMark + "05" + minuteMark);
  EXPECT_EQ(ChinaTime("9:5"), "9:" + hourMark + std::string(2, '\0') + minuteMark);
}

TEST(QXTimeTools, FailuresAreTold) {
  const std::pair<void (*)(), std::string> cases[] = {
      {[] { Hour("9:30", 24); }, Misshapen("9:30")},
      {[] { AddTime("1", "2", 24); }, Misshapen("1")},  // the text that is read first is named
      {[] { SubTime("1", "2", 24); }, Misshapen("2")},
      {[] { BetWeen("1", "2", "3", 24); }, Misshapen("2")},
      {[] { BetWeen("1", "09:00", "3", 24); }, Misshapen("3")},
      {[] { CheckTime("01:00", 0); }, "Division by zero"},
      {[] { MintoTime(60, 0); }, "Division by zero"},
      {[] { SubTime("00:00", 1, 0); }, "Division by zero"},
      {[] { SubTime("00:00", 1, 1 << 30); }, "Division by zero"}};  // a day of 0 minutes, wrapped
  for (const auto& [call, want] : cases) EXPECT_EQ(MessageOf(call), want);
}

}  // namespace
}  // namespace qxTools::QXTimeTools
