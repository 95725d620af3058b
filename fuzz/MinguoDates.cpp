// Dates of the ROC calendar: what is read is written and read again, and numbers with separators are read as
// a plain reading does.
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/runtime/DateTime.h>

#include <regex>

#include "Target.h"

namespace {

using namespace qxTools;
using namespace QXMinguoDate;

void CheckWritten(TDateTime date) {
  for (const TMinguoForm form : {mfSlash, mfPoint, mfDash, mfCompact, mfChinese, mfNumerals})
    for (const bool zeros : {false, true}) FUZZ_CHECK(MinguoToDate(MinguoToStr(date, form, zeros)) == date);
}

void CheckText(const std::string& text) {
  const TMinguoReading reading = ReadMinguo(text);
  const bool isDate = *reading.Error == '\0';
  FUZZ_CHECK(fuzz::Try([&] { return MinguoToDate(text); }).has_value() == isDate);
  FUZZ_CHECK((*reading.Rule != '\0') == (reading.Gregorian != 0));
  if (isDate) CheckWritten(reading.Date);

  static const std::regex form("(\\d{1,3})([/.-])(\\d\\d?)\\2(\\d\\d?)");
  std::smatch found;
  if (!std::regex_match(text, found, form)) return;
  const int year = std::stoi(found[1]);
  const int month = std::stoi(found[3]);
  const int day = std::stoi(found[4]);
  FUZZ_CHECK(isDate == (year > 0 && IsValidDate(1911 + year, month, day)));
  FUZZ_CHECK(!isDate || reading.Date == EncodeDate(1911 + year, month, day));
}

}  // namespace

FUZZ_TARGET(MinguoDates) {
  const TDateTime day = input.Number<std::uint16_t>() * 12;
  if (day < EncodeDate(2910, 12, 31)) CheckWritten(day);
  CheckText(input.Rest(100));
}
