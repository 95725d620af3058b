// Columns of dates, changed between the Gregorian and the ROC calendar.
#pragma once

#include <qxTools/base/Types.h>

#include <string>
#include <vector>

#include "CommandLine.h"
#include "TextTable.h"

namespace qxtool {

/// Reads a Gregorian date with a year of four digits, 2024/5/1 or 2024-05-01, which can be nothing else.
/// @throws qxTools::EConvertError for any other text.
qxTools::TDateTime ReadGregorian(std::string text);

/// The names of the columns, as the options of a command give them.
struct DateColumnNames {
  std::vector<std::string> toMinguo;
  std::vector<std::string> toGregorian;
};

/// Adds --minguo and --gregorian to a command.
void AddDateColumnOptions(Command command, DateColumnNames& names);

/// Changes the cells of these columns in all rows but the first, which names the columns. Empty cells are
/// unchanged. Reports on standard error how many dates could also have been Gregorian ones.
/// @throws Failure, naming `file`, row and column, if a cell is not a date or there is no such column.
void ChangeDateColumns(const std::string& file, std::vector<TextRow>& rows, const DateColumnNames& names);

}  // namespace qxtool
