// qxtool date: how each of the date functions reads a text.
#include <qxTools/base/Exceptions.h>
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/runtime/FormatSettings.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "Commands.h"
#include "DateColumns.h"
#include "TextIo.h"
#include "TextTable.h"
#include "Values.h"

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::QXDateTools;

bool Holds(const std::string& text, char c) { return text.find(c) != std::string::npos; }

std::string NumericRule(Integer code, const std::string& text) {
  const bool isCompact = !Holds(text, '/') && !Holds(text, '-');
  if (code == kDateValid) return "";
  if (text.empty()) return "an empty text";
  if (isCompact && text.size() != 6 && text.size() != 8)
    return "no separator, and neither YYMMDD nor YYYYMMDD by its length";
  if (code == kBadYear) return "the year is not 1 to 9999";
  if (code == kBadMonth) return "the month is not 1 to 12";
  return "the month has no such day (29 February: only if 400 divides the year)";
}

TextRow StrToDateExRow(const std::string& text) {
  TDateTime date = 0;
  const Integer code = StrToDateEx(date, text);
  TextRow row = {"StrToDateEx", std::to_string(code), "unchanged", "", NumericRule(code, text)};
  if (text.empty()) row[2] = "0";
  if (code == kDateValid) {
    row[2] = DateToStrEx(date, '-');
    row[3] = ChinaWeek(date);
  }
  return row;
}

TextRow StrToDate2Row(const std::string& text) {
  // It gives no code; the sibling does, once it takes the same separator. IntEx stops at either byte.
  std::string likewise = text;
  if (Holds(text, '-')) std::replace(likewise.begin(), likewise.end(), '/', ' ');
  TDateTime ignored = 0;
  const Integer code = StrToDateEx(ignored, likewise);
  if (code != kDateValid) return {"StrToDate2", "", "0", "", NumericRule(code, text)};
  const TDateTime date = StrToDate2(text);
  return {"StrToDate2", "", DateToStrEx(date, '-'), ChinaWeek(date), ""};
}

TextRow CheckStrDateRow(const std::string& text) {
  TDateTime ignored = 0;
  return {"CheckStrDate", "", CheckStrDate(text) ? "true" : "false", "",
          NumericRule(StrToDateEx(ignored, text), text)};
}

/// The functions that read the short date format, each with what it makes of the text.
struct Formatted {
  const char* name;
  std::string (*read)(const std::string& text);
};

constexpr Formatted kFormatted[] = {
    {"ChinaDate", [](const std::string& text) { return ChinaDate(text); }},
    {"YearMonthCn", [](const std::string& text) { return YearMonthCn(text); }},
    {"Week", [](const std::string& text) { return std::to_string(Week(text)); }},
    {"DaysOfBetween", [](const std::string& text) { return std::to_string(DaysOfBetween(text, text)); }},
    {"DateAdd", [](const std::string& text) { return DateAdd(text, 0); }},
};

TextRow FormattedRow(const Formatted& function, const std::string& text) {
  try {
    return {function.name, "", function.read(text), ChinaWeek(Week(text)), ""};
  } catch (const EConvertError&) {
    return {function.name, "", "", "", "no date in the format " + GetFormatSettings().ShortDateFormat};
  }
}

void ShowFunctions(const std::string& text, bool json) {
  std::vector<TextRow> rows = {StrToDateExRow(text), StrToDate2Row(text), CheckStrDateRow(text)};
  for (const Formatted& function : kFormatted) rows.push_back(FormattedRow(function, InDateFormat(text)));
  PrintList({{"Function", "Code", "Value", "Weekday", "Refused by"}, RowsOf(rows), {1}}, json);
}

// --- The ROC calendar --------------------------------------------------------------------------------

std::optional<TDateTime> GregorianDate(const std::string& text) {
  try {
    return ReadGregorian(text);
  } catch (const EConvertError&) {
    return std::nullopt;
  }
}

/// The text as a ROC date, and as a Gregorian one if that is another reading: each with what refuses it.
std::vector<TextRow> MinguoReadings(const std::string& text, const QXMinguoDate::TMinguoReading& reading,
                                    const std::optional<TDateTime>& gregorian) {
  const bool isMinguo = *reading.Error == '\0';
  std::vector<TextRow> rows = {{"ROC", isMinguo ? DateToStrEx(reading.Date, '-') : "", "", reading.Error}};
  if (!isMinguo)
    rows.push_back({"Gregorian", gregorian ? DateToStrEx(*gregorian, '-') : "", "",
                    gregorian ? "" : "'" + text + "' is not a date with a year of four digits"});
  else if (*reading.Rule != '\0')
    rows.push_back({"Gregorian", DateToStrEx(reading.Gregorian, '-'), "", reading.Rule});
  return rows;
}

void AddMinguoForms(TDateTime date, std::vector<TextRow>& rows) {
  using namespace QXMinguoDate;
  constexpr std::pair<const char*, TMinguoForm> kForms[] = {
      {"mfSlash", mfSlash},     {"mfPoint", mfPoint},     {"mfDash", mfDash},
      {"mfCompact", mfCompact}, {"mfChinese", mfChinese}, {"mfNumerals", mfNumerals}};
  for (const auto& [name, form] : kForms)
    rows.push_back({name, MinguoToStr(date, form, false), MinguoToStr(date, form, true), ""});
}

/// Shows a date of either calendar in both: a text that is not a ROC date is read as a Gregorian one.
void ShowMinguo(const std::string& text, bool json) {
  const QXMinguoDate::TMinguoReading reading = QXMinguoDate::ReadMinguo(text);
  const std::optional<TDateTime> date = *reading.Error == '\0' ? reading.Date : GregorianDate(text);
  std::vector<TextRow> rows = MinguoReadings(text, reading, date);
  if (date) AddMinguoForms(*date, rows);
  PrintList({{"Reading or form", "Text", "With zeros", "Refused by"}, RowsOf(rows)}, json);
}

struct Options {
  std::string text;
  bool minguo = false;
  bool json = false;
};

void Run(const Options& options) {
  (options.minguo ? ShowMinguo : ShowFunctions)(FromArgument(options.text), options.json);
}

}  // namespace

void AddDateCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command command = program.Add("date", "Show how each function reads a date", options, Run);
  command.Example("date 2024-02-28");
  command.Text("TEXT", options->text, "The date; put -- in front of one that begins with -").Required();
  command.Flag("--minguo", options->minguo, "Show the date in the ROC calendar and in the Gregorian one");
  command.Json(options->json);
}

}  // namespace qxtool
