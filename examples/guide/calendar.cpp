// Dates, times of day and numbers as text.
#include <qxTools/base/CodePage950.h>
#include <qxTools/calendar/QXDateTools.h>
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

  // Reading: a code and no exception. 29 February is good in years that 400 divides, and in no others.
  TDateTime date = 0;
  std::cout << StrToDateEx(date, "2024/3/5") << " " << StrToDateEx(date, "2024/13/1") << " "
            << StrToDateEx(date, "2024/2/29") << " " << StrToDateEx(date, "2000/2/29") << "\n";

  // Times of day wrap at an hour of the caller's choice.
  std::cout << QXTimeTools::AddTime("23:30", 60, 24) << " " << QXTimeTools::SubTime("01:00", 120, 24) << " "
            << QXTimeTools::TimetoMin("08:15", 24) << " " << BytesToUtf8(QXTimeTools::ChinaTime("08:15"))
            << "\n";

  std::cout << QXToDigit::ToDigit("NT$ 1234.5") << " " << QXToDigit::ToKiloBit("-1234567.5") << "\n";
}
