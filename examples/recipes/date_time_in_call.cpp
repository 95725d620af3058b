// A date with its time of day in a call. A date value is written without the time; a text in ISO 8601 form
// that is declared as Datetime keeps it, and SQL Server reads that form whatever its language.
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <cstdio>
#include <iostream>

using namespace qxTools;
using namespace qxTools::qxSqlStoreProc;

namespace {

std::string IsoText(TDateTime moment) {
  const DateParts date = DecodeDate(moment);
  const TimeParts time = DecodeTime(moment);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", date.Year, date.Month, date.Day,
                time.Hour, time.Minute, time.Second);
  return text;
}

}  // namespace

int main() {
  const TDateTime moment = EncodeDate(2024, 5, 1) + (8 + 15 / 60.0) / 24;  // 08:15
  TQXSqlStoreProc call;
  call.LoadStoreProc(u"select * from Visits where Day = @MM_Day and Start < @MM_Start");
  call.SetValue("@MM_Day", Variant::FromDate(moment));  // the day alone
  TQXSqlStoreProcItem* start = call.GetParams("@MM_Start");
  start->SetAutoStyle(false);
  start->SetStyle(spDatetime);
  start->SetValue(IsoText(moment));
  std::cout << call.GetStoreProc()->GetText();
}
