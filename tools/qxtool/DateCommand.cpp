// qxtool date: how each of the date functions reads a text.
#include <qxTools/base/Exceptions.h>
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/runtime/FormatSettings.h>

#include <algorithm>
#include <memory>

#include "Commands.h"
#include "TextIo.h"
#include "TextTable.h"

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

void Run(const std::string& text) {
  std::vector<TextRow> rows = {StrToDateExRow(text), StrToDate2Row(text), CheckStrDateRow(text)};
  for (const Formatted& function : kFormatted) rows.push_back(FormattedRow(function, text));
  Display(AlignRows({"Function", "Code", "Value", "Weekday", "Refused by"}, rows));
}

}  // namespace

void AddDateCommand(Command program) {
  const auto text = std::make_shared<std::string>();
  Command command = program.Add("date", "Show how each function reads a date");
  command.Example("date 2024/02/29");
  command.Text("TEXT", *text, "The date; put -- in front of one that begins with -").Required();
  command.OnRun([text] {
    Run(FromArgument(*text));
    return kDone;
  });
}

}  // namespace qxtool
