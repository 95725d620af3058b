#include <qxTools/base/CodePage950.h>
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/strings/QXStrTools.h>

#include <fstream>

#include "support/Testing.h"

namespace qxTools::QXMinguoDate {
namespace {

using QXDateTools::DateToStrEx;
using QXStrTools::GetAt;
using test::MessageOf;

const TMinguoForm kForms[] = {mfSlash, mfPoint, mfDash, mfCompact, mfChinese, mfNumerals};

std::string Iso(TDateTime date) { return date == 0 ? "" : DateToStrEx(date, '-'); }

TEST(QXMinguoDate, TextsAreReadOrRefusedWithTheReason) {
  std::ifstream rows(QXTOOLS_TEST_DATA "/minguo_dates.txt");
  int count = 0;
  for (std::string line; std::getline(rows, line);) {
    if (line.starts_with('#')) continue;
    const std::string text = Utf8ToBytes(GetAt("\t", line, 1));
    const std::string want = GetAt("\t", line, 2);
    const std::string more = GetAt("\t", line, 3);
    const TMinguoReading reading = ReadMinguo(text);
    ++count;
    if (want == "no date") {
      EXPECT_NE(std::string(reading.Error).find(more), std::string::npos) << line << ": " << reading.Error;
      EXPECT_EQ(MessageOf([&] { MinguoToDate(text); }), "'" + text + "' is not a ROC date: " + reading.Error);
      EXPECT_EQ(reading.Date, 0) << line;
    } else {
      EXPECT_EQ(Iso(reading.Date), want) << line << ": " << reading.Error;
      EXPECT_EQ(MinguoToDate(text), reading.Date) << line;
    }
    const bool refusedOther = want != "no date" && !more.empty();
    EXPECT_EQ(Iso(reading.Gregorian), refusedOther ? more : "") << line;
    EXPECT_EQ(*reading.Rule != '\0', refusedOther) << line;
  }
  EXPECT_EQ(count, 74);
}

TEST(QXMinguoDate, EachFormIsWritten) {
  std::ifstream rows(QXTOOLS_TEST_DATA "/minguo_forms.txt");
  int count = 0;
  for (std::string line; std::getline(rows, line); ++count) {
    const TDateTime date = QXDateTools::StrToDate2(GetAt("\t", line, 1)) + 0.75;
    const std::string zeros = GetAt("\t", line, 2);
    std::string written = DateToStrEx(date, '-') + "\t" + zeros;
    for (const TMinguoForm form : kForms) written += "\t" + MinguoToStr(date, form, zeros == "zeros");
    EXPECT_EQ(BytesToUtf8(written), line);
  }
  EXPECT_EQ(count, 10);
  EXPECT_EQ(MinguoToStr(EncodeDate(2024, 5, 1), static_cast<TMinguoForm>(9), false), "113/5/1");
}

TEST(QXMinguoDate, YearsAreCountedAndHaveLimits) {
  const struct {
    int year;
    Integer minguo;
    bool written;
  } cases[] = {{1, -1911, false}, {912, -1000, false}, {913, -999, true},   {1911, -1, true},
               {1912, 1, true},   {2910, 999, true},   {2911, 1000, false}, {9999, 8088, false}};
  for (const auto& [year, minguo, written] : cases) {
    const TDateTime date = EncodeDate(year, 6, 30);
    EXPECT_EQ(MinguoYear(date), minguo);
    EXPECT_EQ(MessageOf([&] { EXPECT_NE(MinguoYearCn(date), ""); }),
              written ? "(nothing thrown)"
                      : "The year " + std::to_string(year) + " has no ROC form: it is not 913 to 2910");
  }
  EXPECT_EQ(MessageOf([] { MinguoToStr(1e9, mfSlash, false); }), "'1000000000' is not a valid date");
}

TEST(QXMinguoDate, EveryDayOfTwoCenturiesIsReadBack) {
  const TDateTime last = EncodeDate(2100, 12, 31);
  for (TDateTime date = EncodeDate(1900, 1, 1); date <= last; ++date) {
    for (const TMinguoForm form : kForms)
      for (const bool zeros : {false, true})
        ASSERT_EQ(MinguoToDate(MinguoToStr(date, form, zeros)), date) << MinguoToStr(date, form, zeros);
    const std::string year = MinguoYearCn(date);
    ASSERT_TRUE(MinguoToStr(date, mfNumerals, false).starts_with(year) && year.ends_with("\xA6\x7E"));  // 年
  }
}

}  // namespace
}  // namespace qxTools::QXMinguoDate
