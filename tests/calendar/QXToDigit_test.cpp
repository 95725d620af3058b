#include <gtest/gtest.h>
#include <qxTools/calendar/QXToDigit.h>

#include <limits>

namespace {

using namespace qxTools;
using namespace qxTools::QXToDigit;

TEST(QXToDigit, ToDigitFindsTheNumber) {
  const char* const cases[][2] = {
      {"", ""},        {"x", ""},        {"a1b2.3c4", "12.34"}, {".5", "0.5"},
      {"-.5", "-0.5"}, {"1.2.3", "1.2"}, {"1..2", "1.2"},       {"..5", "0.5"},
      {"1.a.2", "1."}, {"12-3", "12"},   {"x-y", "-"},          {"--5", "-"},
      {"+7", "7"},     {"-a.-5", "-0."}, {"1.2..3", "1.2"},     {"$ -1,234.50 TWD", "-1234.50"},
  };
  for (const auto& [text, want] : cases) EXPECT_EQ(ToDigit(text), want) << text;
}

TEST(QXToDigit, ToKiloBitGroupsByThreeFromTheRight) {
  const char* const cases[][2] = {
      {"", ""},
      {"-", "-"},
      {"999", "999"},
      {"1000", "1,000"},
      {"-999", "-999"},
      {"123456", "123,456"},
      {"1234567", "1,234,567"},
      {"-1234.5", "-1,234.5"},
      {".5", ".5"},
      {"12.345", "12.345"},
      {"1234.56.7", "1,234.56.7"},
      {"--1234", "--1,234"},
      {"-+123", "-+,123"},
      {"abcd", "a,bcd"},
  };
  for (const auto& [text, want] : cases) EXPECT_EQ(ToKiloBit(text), want) << text;
}

TEST(QXToDigit, FilterLEDFillsAField) {
  struct {
    const char* text;
    Integer width;
    bool padLeft;
    const char* want;
  } const cases[] = {
      {"12.34", 6, true, "  12.34"},  {"12.34", 6, false, "12.34"},
      {"1234567", 5, true, "123456"}, {"A1..2,,3", 9, false, "1.2,3"},
      {"1.,.2", 3, true, " 1.,2"},    {"E-F gG", 9, false, "E-F "},
      {"123.45", 2, false, "123."},   {"", 2, true, "  "},
      {".5", -1, true, "."},          {".5", std::numeric_limits<Integer>::min(), true, "."},
  };
  for (const auto& c : cases) EXPECT_EQ(FilterLED(c.text, c.width, c.padLeft), c.want) << c.text;
}

TEST(QXToDigit, SpaceIsNeverNegative) {
  EXPECT_EQ(Space(3), "   ");
  EXPECT_EQ(Space(0) + Space(-3), "");
}

}  // namespace
