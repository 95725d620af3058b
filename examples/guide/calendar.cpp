// Dates, times of day and numbers as text.
#include <qxTools/base/CodePage950.h>
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/calendar/QXTimeTools.h>
#include <qxTools/calendar/QXToDigit.h>
#include <qxTools/runtime/DateTime.h>

#include <iostream>

using namespace qxTools;
using namespace qxTools::QXDateTools;

int main() {
  const TDateTime day = EncodeDate(2024, 3, 5);
  std::cout << DateToStrEx(day, '-') << " " << BytesToUtf8(ChinaDate(day)) << " "
            << BytesToUtf8(ChinaWeek(day)) << "\n";
  std::cout << "last day of the month " << DateToStr(LastDayOfMonth(day)) << ", both ends counted "
            << DaysOfBetween(day, LastDayOfMonth(day)) << " days\n";

  // Reading: a code and no exception. 29 February is valid only if 400 divides the year.
  TDateTime date = 0;
  std::cout << StrToDateEx(date, "2024/3/5") << " " << StrToDateEx(date, "2024/13/1") << " "
            << StrToDateEx(date, "2024/2/29") << " " << StrToDateEx(date, "2000/2/29") << "\n";

  // The ROC calendar: strict, with the reason for a refusal and a report of how an ambiguous text was read.
  using namespace QXMinguoDate;
  std::cout << MinguoToStr(day, mfSlash, true) << " " << BytesToUtf8(MinguoToStr(day, mfChinese, false))
            << " " << BytesToUtf8(MinguoToStr(day, mfNumerals, false)) << "\n";
  std::cout << "112/2/29: " << ReadMinguo("112/2/29").Error << "\n";
  const TMinguoReading reading = ReadMinguo("99/1/2");
  std::cout << "99/1/2: " << DateToStr(reading.Date) << " and not " << DateToStr(reading.Gregorian) << ": "
            << reading.Rule << "\n";

  // Times of day wrap at an hour of the caller's choice.
  std::cout << QXTimeTools::AddTime("23:30", 60, 24) << " " << QXTimeTools::SubTime("01:00", 120, 24) << " "
            << QXTimeTools::TimetoMin("08:15", 24) << " " << BytesToUtf8(QXTimeTools::ChinaTime("08:15"))
            << "\n";

  std::cout << QXToDigit::ToDigit("NT$ 1234.5") << " " << QXToDigit::ToKiloBit("-1234567.5") << "\n";
}
