#include "DateColumns.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/runtime/DateTime.h>

#include <algorithm>
#include <iostream>

#include "TextIo.h"

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::QXMinguoDate;

/// The dates that could also have been Gregorian ones.
struct Ambiguous {
  int count = 0;
  std::string first;
};

std::size_t ColumnOf(const std::string& file, const TextRow& head, const std::string& name) {
  const auto found = std::find(head.begin(), head.end(), FromArgument(name));
  if (found == head.end()) throw Failure(Visible(file) + ": no field " + Visible(name));
  return static_cast<std::size_t>(found - head.begin());
}

std::string ToMinguo(const std::string& text, Ambiguous&) {
  return MinguoToStr(ReadGregorian(text), mfSlash, true);
}

std::string ToGregorian(const std::string& text, Ambiguous& ambiguous) {
  const TDateTime date = MinguoToDate(text);
  if (*ReadMinguo(text).Rule != '\0' && ambiguous.count++ == 0) ambiguous.first = text;
  return DateToStr(date);
}

template <class Change>
void ChangeColumn(const std::string& file, std::vector<TextRow>& rows, const std::string& name,
                  Change change) {
  const std::size_t column = ColumnOf(file, rows.front(), name);
  Ambiguous ambiguous;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (column >= rows[i].size() || rows[i][column].empty()) continue;
    try {
      rows[i][column] = change(rows[i][column], ambiguous);
    } catch (const EConvertError& e) {
      throw Failure(Visible(file) + ": record " + std::to_string(i) + ", " + Visible(name) + ": " +
                    VisibleText(e.what()));
    }
  }
  if (ambiguous.count > 0)
    std::cerr << "qxtool: " << Visible(name) << ": " << ambiguous.count
              << " years of one or two digits were read as ROC years, the first in "
              << VisibleText(ambiguous.first) << "\n";
}

}  // namespace

TDateTime ReadGregorian(std::string text) {
  const bool fourDigits = text.size() > 4 && std::all_of(text.begin(), text.begin() + 4, IsDigit);
  if (!fourDigits || (text[4] != '/' && text[4] != '-'))
    throw EConvertError("'" + text + "' is not a date with a year of four digits");
  std::replace(text.begin(), text.end(), '-', '/');
  return StrToDate(text);
}

void AddDateColumnOptions(Command command, DateColumnNames& names) {
  command.Repeated("--minguo", names.toMinguo, "Change this field's dates to the ROC calendar: 113/05/01")
      .Placeholder("FIELD");
  command
      .Repeated("--gregorian", names.toGregorian,
                "Change this field's ROC dates to Gregorian ones: 2024/05/01")
      .Placeholder("FIELD");
}

void ChangeDateColumns(const std::string& file, std::vector<TextRow>& rows, const DateColumnNames& names) {
  for (const std::string& name : names.toMinguo) ChangeColumn(file, rows, name, ToMinguo);
  for (const std::string& name : names.toGregorian) ChangeColumn(file, rows, name, ToGregorian);
}

}  // namespace qxtool
