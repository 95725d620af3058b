#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/runtime/Numbers.h>

#include <clocale>
#include <cmath>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

class DateTime : public ::testing::Test {
 protected:
  ~DateTime() override { GetFormatSettings() = FormatSettings(); }
};

TEST_F(DateTime, DaysCountFrom30December1899) {
  // Moments are rounded to the millisecond first; before the first day the fraction still counts forward.
  const auto written = [](double date) {
    EXPECT_EQ(StrToDate(DateToStr(date)), DayNumber(date));
    return DateTimeToStr(date);
  };
  // clang-format off
  Rows<double, std::string>(written)
      (0.0, "1899/12/30")(2.0, "1900/01/01")(45351.0, "2024/02/29")(-693593.0, "0001/01/01")
      (2958465.0, "9999/12/31")(1 - 1e-10, "1899/12/31")(-1.25, "1899/12/29 06:00:00")
      (2.75, "1900/01/01 18:00:00");
  // clang-format on
  EXPECT_EQ(DecodeTime(45000 + 1.0 / 86400000), (TimeParts{0, 0, 0, 1}));
  for (const double bad : {2958466.0, -693594.5, 1e300, std::nan("")})
    EXPECT_THROW(DecodeDate(bad), EConvertError) << bad;
  EXPECT_EQ(MessageOf([] { EncodeDate(2023, 2, 29); }), "Invalid argument to date encode");
}

TEST_F(DateTime, TextsAreReadInTheOrderOfTheFormat) {
  // clang-format off
  const std::tuple<const char*, char, const char*, const char*, int> cases[] = {
    {"yyyy/mm/dd", '/', " 2024 / 3/ 5 ", "2024/03/05", 2024}, {"yyyy/mm/dd", '/', "49/3/5", "2049/03/05", 2049},
    {"yyyy/mm/dd", '/', "50/3/5", "1950/03/05", 1950}, {"yyyy/mm/dd", '/', "099/3/5", "0099/03/05", 99},
    {"d/m/yy", '.', "5.3.2004", "5.3.04", 2004}, {"mm/dd/yyyy", '-', "3-5-1999", "03-05-1999", 1999}};
  // clang-format on
  for (const auto& [format, separator, text, written, year] : cases) {
    GetFormatSettings().ShortDateFormat = format;
    GetFormatSettings().DateSeparator = separator;
    EXPECT_EQ(StrToDate(text), EncodeDate(year, 3, 5)) << text;
    EXPECT_EQ(DateToStr(StrToDate(text)), written);
  }
  GetFormatSettings() = FormatSettings();
  for (const char* text :
       {"", "2024", "2024/3", "2024/3/5/", "2024/3/5 10:00", "2024-3-5", "2023/2/29", "2024/13/1",
        "2024/4/31", "2024/1/0", "10000/1/1", "0/0/0", "2024/-3/5", "4294969320/3/5", "a/b/c", "2024/3/5x"})
    EXPECT_EQ(MessageOf([&] { StrToDate(text); }), "'" + std::string(text) + "' is not a valid date");
}

#if !defined(_WIN32)  // there the settings of the system's user count, whatever setlocale says
TEST_F(DateTime, TheLocaleGivesOrderAndSeparators) {
  for (const auto& [locale, written] : {std::pair("de_DE.UTF-8", "05.03.2024 1,5"),
                                        {"zh_TW.BIG5", "2024/03/05 1.5"},  // it has 年 (A6 7E) there
                                        {"C", "03/05/24 1.5"}}) {
    if (std::setlocale(LC_ALL, locale) == nullptr) continue;  // "C" is everywhere
    GetFormatSettings() = FormatSettings();
    UseLocale();
    EXPECT_EQ(DateToStr(EncodeDate(2024, 3, 5)) + " " + FloatToStr(1.5), written) << locale;
  }
}
#endif

}  // namespace
