#include <qxTools/calendar/QXToDigit.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXToDigit;

TEST(QXToDigit, ToDigitFindsTheNumber) {
  const char* const cases[][2] = {{"", ""},         {"x", ""},         {"a1b2.3c4", "12.34"},
                                  {".5", "0.5"},    {"-.5", "-0.5"},   {"1.2.3", "1.2"},
                                  {"1..2", "1.2"},  {"..5", "0.5"},    {"1.a.2", "1."},
                                  {"12-3", "12"},   {"x-y", "-"},      {"--5", "-"},
                                  {"-a.-5", "-0."}, {"1.2..3", "1.2"}, {"$ -1,234.50 TWD", "-1234.50"}};
  for (const auto& [text, want] : cases) EXPECT_EQ(ToDigit(text), want) << text;
}

TEST(QXToDigit, ToKiloBitGroupsByThreeFromTheRight) {
  for (const std::string want : {"", "-", "999", "1,000", "-999", "123,456", "1,234,567", "-1,234.5", ".5",
                                 "12.345", "1,234.56.7", "-+,123", "a,bcd"}) {
    std::string text = want;
    std::erase(text, ',');
    EXPECT_EQ(ToKiloBit(text), want);
  }
}

TEST(QXToDigit, FilterLEDFillsAField) {
  const std::tuple<const char*, Integer, bool, const char*> cases[] = {
      {"12.34", 6, true, "  12.34"},   {"12.34", 6, false, "12.34"}, {"1234567", 5, true, "123456"},
      {"A1..2,,3", 9, false, "1.2,3"}, {"1.,.2", 3, true, " 1.,2"},  {"E-F gG", 9, false, "E-F "},
      {"123.45", 2, false, "123."},    {"", 2, true, "  "},          {".5", -1, true, "."},
      {".5", INT32_MIN, true, "."}};
  for (const auto& [text, width, padLeft, want] : cases) EXPECT_EQ(FilterLED(text, width, padLeft), want);
  EXPECT_EQ(Space(3) + Space(0) + Space(-3), "   ");
}

}  // namespace
