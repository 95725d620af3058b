// Dates of the ROC calendar from a form, a file and a database, and back.
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/QXSqlTools.h>

#include <iostream>

using namespace qxTools;
using namespace qxTools::QXMinguoDate;

// 民國前1年12月31日
constexpr char kBeforeTheFirstYear[] =
    "\xA5\xC1\xB0\xEA\xAB\x65"
    "1\xA6\x7E"
    "12\xA4\xEB"
    "31\xA4\xE9";

int main() {
  const char* texts[] = {
      "113/5/1", "1130501", kBeforeTheFirstYear, "99/1/2", "112/2/29", "2024/5/1",
  };
  for (const char* text : texts) {
    const TMinguoReading reading = ReadMinguo(text);
    std::cout << BytesToUtf8(text) << ": ";
    if (*reading.Error != '\0')
      std::cout << reading.Error;
    else
      std::cout << DateToStr(reading.Date);
    if (*reading.Rule != '\0') std::cout << ", not " << DateToStr(reading.Gregorian) << ": " << reading.Rule;
    std::cout << "\n";
  }

  // From a text to SQL, or an exception that says why not.
  std::cout << QXSqlTools::VarToSql(Variant::FromDate(MinguoToDate("113/5/1"))) << "\n";
  const TDateTime day = EncodeDate(2024, 5, 1);
  std::cout << MinguoToStr(day, mfSlash, true) << " " << MinguoToStr(day, mfCompact, true) << " "
            << BytesToUtf8(MinguoToStr(day, mfChinese, false)) << " " << BytesToUtf8(MinguoYearCn(day))
            << "\n";
}
