// qxtool table: look into a string table, change it, and exchange it with CSV.
#include <qxTools/stores/FieldMarks.h>
#include <qxTools/stores/QXStringTable.h>

#include <memory>

#include "Commands.h"
#include "Csv.h"
#include "DateColumns.h"
#include "TextIo.h"
#include "TextTable.h"

namespace qxtool {

namespace {

using namespace qxTools;
using QXStringTable::FieldMarks;
using QXStringTable::GenField;
using QXStringTable::TQXStringTable;

struct Options {
  std::string file;
  int record = 0;
  std::string field;
  std::string text;
  std::string csv;
  std::vector<std::string> values;
  DateColumnNames dates;
  bool json = false;
};

/// The texts of a line's fields, front to back.
TextRow FieldsOf(std::string_view line) {
  const FieldMarks marks(line);
  TextRow fields;
  for (std::size_t i = 0; i < marks.Count(); ++i) fields.emplace_back(marks.Text(line, i));
  return fields;
}

void LoadText(TQXStringTable& table, const Options& options, const std::string& text) {
  table.SetText(text);
  if (table.GetEmpty()) throw Failure(Visible(options.file) + ": no header line");
  if (table.GetFieldCount() == 0)
    throw Failure(Visible(options.file) +
                  ": this is not a string table: its first line names no field, as in [#Name#]");
}

void Load(TQXStringTable& table, const Options& options) {
  LoadText(table, options, ReadInput(options.file));
}

void GoTo(TQXStringTable& table, const Options& options) {
  if (options.record > table.GetReccount())
    throw NotThere(Visible(options.file) + ": no record " + std::to_string(options.record));
  for (table.Top(); table.GetRecNo() < options.record;) table.Next();
}

void CheckField(const TQXStringTable& table, const Options& options) {
  if (QXStringTable::FieldIndex(table.GetView(0), FromArgument(options.field)) < 1)
    throw NotThere(Visible(options.file) + ": no field " + Visible(options.field));
}

/// Refuses a field whose text would be read as another one.
void CheckText(const std::string& field) {
  const FieldMarks marks(field);
  if (marks.Begins().size() != 1 || marks.Ends().size() != 1 ||
      field.find_first_of("\r\n") != std::string::npos)
    throw Failure(Visible(field) + ": a text cannot hold [#, #] or a line break, begin with ] or end with [");
}

// --- Actions -----------------------------------------------------------------------------------------

void Show(const Options& options) {
  TQXStringTable table("#TEMP");
  Load(table, options);
  const auto line = [&](const std::string& number, Integer i) {
    TextRow row = FieldsOf(table.GetView(i));
    row.insert(row.begin(), number);
    return row;
  };
  const auto rows = [&](const auto& visit) {
    for (Integer i = 1; i <= table.GetReccount(); ++i) visit(line(std::to_string(i), i));
  };
  PrintList({line("No.", 0), rows, {0}}, options.json);
}

ExitStatus Get(const Options& options) {
  TQXStringTable table("#TEMP");
  Load(table, options);
  return Ask([&] {
    CheckField(table, options);
    GoTo(table, options);
    Print(table.GetField(FromArgument(options.field)) + "\n");
  });
}

void Set(const Options& options) {
  HeldText held(options.file, IfMissing::kFail);
  TQXStringTable table("#TEMP");
  LoadText(table, options, held.Read());
  CheckField(table, options);
  GoTo(table, options);
  const auto number = QXStringTable::FieldIndex(table.GetView(0), FromArgument(options.field));
  if (FieldMarks(table.GetView(options.record)).Count() < static_cast<std::size_t>(number))
    throw Failure(Visible(options.file) + ": record " + std::to_string(options.record) +
                  " has no such field");
  const std::string value = FromArgument(options.text);
  CheckText("[#" + value + "#]");
  table.SetField(FromArgument(options.field), value);
  held.Save(table.GetText());
}

void Append(const Options& options) {
  HeldText held(options.file, IfMissing::kFail);
  TQXStringTable table("#TEMP");
  LoadText(table, options, held.Read());
  if (options.values.size() > static_cast<std::size_t>(table.GetFieldCount()))
    throw Failure(Visible(options.file) + ": more values than fields");
  TextRow values;
  for (const std::string& value : options.values) {
    values.push_back(FromArgument(value));
    CheckText(GenField(values.back()));
  }
  table.AddRecord(values);
  held.Save(table.GetText());
}

// --- CSV ---------------------------------------------------------------------------------------------

void ToCsv(const Options& options) {
  TQXStringTable table("#TEMP");
  Load(table, options);
  std::vector<TextRow> rows;
  for (Integer i = 0; i < table.GetCount(); ++i) rows.push_back(FieldsOf(table.GetView(i)));
  ChangeDateColumns(options.file, rows, options.dates);
  std::string text;
  for (const TextRow& row : rows) text += CsvLine(row);
  Print(text);
}

void FromCsv(const Options& options) {
  std::vector<TextRow> rows = WithSubject(options.csv, [&] { return ReadCsv(ReadInput(options.csv)); });
  if (rows.empty()) throw Failure(Visible(options.csv) + ": no header line");
  ChangeDateColumns(options.csv, rows, options.dates);
  TQXStringTable table("#TEMP");
  std::string header;
  for (const std::string& name : rows.front()) {
    CheckText(GenField(name));
    header += GenField(name);
  }
  table.Add(std::move(header));
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (rows[i].size() > rows.front().size())
      throw Failure(Visible(options.csv) + ": row " + std::to_string(i + 1) +
                    " has more cells than the header");
    for (const std::string& cell : rows[i]) CheckText(GenField(cell));
    table.AddRecord(rows[i]);
  }
  SaveText(options.file, table.GetText());
}

}  // namespace

void AddTableCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command table = program.Add("table", "Look into a string table, change it, exchange it with CSV");
  table.Text("FILE", options->file, "Table file").Required();
  table.Example("table people.tbl show");
  const auto place = [&](Command made) {
    made.Number("RECORD", options->record, "Counted from 1").Required().Positive();
    made.Text("FIELD", options->field).Required();
  };
  Command show = table.Add("show", "Show the records, aligned", options, Show);
  show.Example("table people.tbl show");
  show.Json(options->json);
  place(table.Add("get", "Print one text", options, Get).Example("table people.tbl get 1 Name"));
  Command set = table.Add("set", "Set one text", options, Set);
  set.Example("table people.tbl set 1 Phone 555-0100");
  place(set);
  set.Text("TEXT", options->text).Required();
  table.Add("append", "Append a record", options, Append)
      .Example("table people.tbl append Wang 555-0199")
      .Texts("TEXT", options->values, "Its texts, in the header's order");
  Command toCsv = table.Add("to-csv", "Print the table as CSV", options, ToCsv);
  toCsv.Example("table people.tbl to-csv >people.csv");
  AddDateColumnOptions(toCsv, options->dates);
  Command fromCsv = table.Add("from-csv", "Make the table anew from a CSV file", options, FromCsv);
  fromCsv.Example("table people.tbl from-csv people.csv");
  fromCsv.Text("CSV", options->csv, "CSV file; its first row names the fields").Required();
  AddDateColumnOptions(fromCsv, options->dates);
}

}  // namespace qxtool
