#include "RunStatement.h"

#include <cstdio>
#include <memory>

#include "Csv.h"
#include "StatementWatch.h"
#include "TextIo.h"
#include "TextTable.h"
#include "Utf8Width.h"
#include "database/Odbc.h"
#include "platform/System.h"

namespace qxtool {

namespace {

using database::Charset;

/// A message of the driver, for standard error.
std::string Readable(const std::string& message) {
  const std::string text = database::ConvertVisibly(message, Charset::kUtf8, MessageCharset());
  return MessageCharset() == Charset::kUtf8 ? VisibleUtf8(text) : Visible(text);
}

/// The connection string, which is an argument, as UTF-8.
std::string Target(const std::string& argument) {
  if (auto target = database::Convert(argument, MessageCharset(), Charset::kUtf8)) return *std::move(target);
  throw Failure("--run: a byte of the connection string is no character");
}

/// One run of a statement: executes it and prints result after result.
class Run {
 public:
  /// `shown` counts the results of all batches.
  Run(const RunOptions& options, const database::Connection& connection, int& shown)
      : csv_(options.csv), statement_(connection), watch_(statement_, ShowsProgress()), shown_(shown) {}

  void Execute(const std::string& text, const std::vector<database::Parameter>& parameters) {
    watch_.During([&] {
      statement_.Execute(text, parameters);
      return true;
    });
    try {
      ShowResults();
    } catch (const database::Error& e) {
      auto messages = e.Messages();
      messages.push_back({.text = "results behind it were not read, and statements behind it may have run"});
      throw database::Error(std::move(messages));
    }
  }

 private:
  /// Rows that stream to the terminal show by themselves that something goes on.
  bool ShowsProgress() const { return IsTerminal(stderr) && !(csv_ && IsTerminal(stdout)); }

  bool Fetch() {
    if (!watch_.During([&] { return statement_.Fetch(); })) return false;
    watch_.CountRow();
    return true;
  }

  void ShowResults() {
    do {
      TellMessages();
      if (statement_.ColumnCount() > 0)
        ShowRows();
      else
        TellAffectedRows();
    } while (watch_.During([&] { return statement_.NextResult(); }));
    TellMessages();
  }

  void ShowRows() {
    if (shown_++ > 0) PrintBytes(csv_ ? "\r\n" : "\n");
    if (csv_)
      ShowCsv();
    else
      ShowTable();
    TellMessages();
  }

  // --- The table for people ---

  std::string Visibly(const std::string& text) const {
    return database::ConvertVisibly(text, Charset::kUtf8, OutputCharset());
  }

  /// NULL as such; a text of those letters is told from it by quotes.
  std::string TableCell(const std::optional<std::string>& value) const {
    if (!value) return "NULL";
    return *value == "NULL" ? "'NULL'" : Visibly(*value);
  }

  void ReadRows(int columns, std::vector<TextRow>& rows) {
    while (Fetch()) {
      TextRow& row = rows.emplace_back();
      for (int i = 1; i <= columns; ++i) row.push_back(TableCell(statement_.Value(i)));
    }
  }

  void ShowTable() {
    const int columns = statement_.ColumnCount();
    TextRow head;
    for (int i = 1; i <= columns; ++i) head.push_back(Visibly(statement_.ColumnName(i)));
    std::vector<TextRow> rows;
    const auto show = [&] {
      watch_.Clear();
      PrintBytes(OutputCharset() == Charset::kUtf8 ? AlignUtf8Rows(head, rows) : AlignRows(head, rows));
    };
    try {
      ReadRows(columns, rows);
    } catch (const database::Error&) {
      for (TextRow& row : rows) row.resize(head.size());  // the last one may have been cut short
      show();
      throw;
    }
    show();
  }

  // --- CSV for programs ---

  std::string Exactly(const std::string& text, int column, std::uint64_t row) const {
    if (auto converted = database::Convert(text, Charset::kUtf8, OutputCharset()))
      return *std::move(converted);
    const std::string place = row > 0 ? "row " + std::to_string(row) : "the head";
    const char* const where = OutputCharset() == Charset::kUtf8
                                  ? "UTF-8; without --utf8 it has one"
                                  : "code page 950; with --utf8-terminal it has one";
    throw Failure(place + ", column " + std::to_string(column) + ": a character has no form in " + where);
  }

  /// The only cell of a row: an empty line would be the one between two results.
  static std::string LoneCell(const std::optional<std::string>& value) {
    if (!value) return "NULL";
    return *value == "NULL" ? "\"NULL\"" : CsvCell(value);
  }

  void ShowCsv() {
    const int columns = statement_.ColumnCount();
    TextRow head;
    for (int i = 1; i <= columns; ++i) head.push_back(Exactly(statement_.ColumnName(i), i, 0));
    PrintBytes(CsvLine(head));
    for (std::uint64_t row = 1; Fetch(); ++row) {
      std::string line;
      for (int i = 1; i <= columns; ++i) {
        std::optional<std::string> value = statement_.Value(i);
        if (value) value = Exactly(*value, i, row);
        line += columns == 1 ? LoneCell(value) : (i > 1 ? "," : "") + CsvCell(value);
      }
      PrintBytes(line + "\r\n");
    }
    watch_.Clear();
  }

  // --- What goes to standard error ---

  void Tell(const std::string& line) {
    watch_.Clear();
    FlushOutput();  // rows and messages that go to one file keep their order
    Write(stderr, line + "\n", GetEncoding().utf8Terminal);
  }

  void TellMessages() {
    for (const database::Message& message : statement_.TakeMessages())
      Tell(Readable(message.Printed().value_or(message.AsText())));
  }

  void TellAffectedRows() {
    const std::int64_t rows = statement_.AffectedRows();
    if (rows >= 0) Tell(std::to_string(rows) + (rows == 1 ? " row affected" : " rows affected"));
  }

  const bool csv_;
  database::Statement statement_;
  StatementWatch watch_;
  int& shown_;
};

}  // namespace

namespace {

/// The messages of a failure, for standard error.
std::string Failures(const database::Error& e) {
  std::string text;
  for (const database::Message& message : e.Messages())
    text += (text.empty() ? "" : "\n        ") + Readable(message.AsText());
  return text;
}

/// Which batch of several this is.
std::string PlaceOf(const Batch& batch, const std::vector<Batch>& batches) {
  return batches.size() == 1 ? "" : "the batch from line " + std::to_string(batch.firstLine) + " on: ";
}

/// A batch as it is sent.
struct Request {
  explicit Request(const Batch& batch) : text(database::ForServer(batch.text, Charset::kUtf8)) {
    for (const qxTools::Variant& value : batch.values) parameters.push_back(database::ToParameter(value));
  }

  std::string text;
  std::vector<database::Parameter> parameters;
};

/// Runs `body`; what came before a failure is shown before it. `place` goes in front of its messages.
template <class Body>
auto WithPlace(const std::string& place, Body&& body) {
  try {
    return body();
  } catch (const qxTools::Exception& e) {
    FlushOutput();
    const auto* failure = dynamic_cast<const database::Error*>(&e);
    throw Failure(place + (failure != nullptr ? Failures(*failure) : e.what()));
  }
}

}  // namespace

void RunBatches(const RunOptions& options, const std::vector<Batch>& batches) {
  std::vector<Request> requests;  // all of them, so that none runs if one cannot be sent
  for (const Batch& batch : batches)
    requests.push_back(WithPlace(PlaceOf(batch, batches), [&] { return Request(batch); }));
  const auto connection =
      WithPlace("", [&] { return std::make_unique<database::Connection>(Target(options.connection)); });
  int shown = 0;
  for (std::size_t i = 0; i < batches.size(); ++i)
    for (int count = 0; count < batches[i].count; ++count)
      WithPlace(PlaceOf(batches[i], batches),
                [&] { Run(options, *connection, shown).Execute(requests[i].text, requests[i].parameters); });
}

}  // namespace qxtool
