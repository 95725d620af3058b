// Dates before 1900. A TDateTime is negative before 30 December 1899, and its fraction still counts forward
// from midnight.
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/runtime/DateTime.h>

#include <iostream>

using namespace qxTools;

int main() {
  std::cout.precision(10);
  const TDateTime born = EncodeDate(1866, 11, 12);
  std::cout << born << " is " << DateToStr(born) << ", weekday " << QXDateTools::Week(born) << ", ROC year "
            << QXMinguoDate::MinguoYear(born) << "\n";
  std::cout << QXDateTools::DaysOfBetween(born, EncodeDate(1900, 1, 1)) << " days, both included\n";

  const TDateTime morning =
      born - 0.25;  // at six in the morning: the day, then a quarter of a day further from 0
  std::cout << morning << " is " << DateTimeToStr(morning) << "\n";

  // Four digits: a year of two digits is 1950 to 2049 for StrToDate and 1900 to 1999 for StrToDateEx.
  std::cout << DateToStr(StrToDate("1866/11/12")) << " " << DateToStr(StrToDate("66/11/12")) << "\n";

  // SQL Server's Datetime begins in 1753: a query must not compare it with an earlier date.
  const bool fitsDatetime = born >= EncodeDate(1753, 1, 1);
  std::cout << (fitsDatetime ? "fits" : "does not fit") << " into Datetime\n";
}
