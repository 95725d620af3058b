// In every build; RunStatement.cpp or NoDatabase.cpp does the rest.
#include "RunOptions.h"

#include "RunStatement.h"
#include "TextIo.h"

namespace qxtool {

namespace {

database::Charset CharsetOf(bool isUtf8) {
  return isUtf8 ? database::Charset::kUtf8 : database::Charset::kCodePage950;
}

}  // namespace

database::Charset OutputCharset() { return CharsetOf(GetEncoding().utf8Output); }

database::Charset MessageCharset() { return CharsetOf(GetEncoding().utf8Terminal); }

Option AddRunOptions(Command& command, RunOptions& options) {
  Option run =
      command.Text("--run", options.connection,
                   "Run the text over ODBC and show its rows: a connection string or a data source's name");
  run.Placeholder("CONNECTION").NotEmpty();
  command.Text("--client-charset", options.charset, "Changes nothing any more: text goes as UTF-16")
      .OneOf({"utf8", "cp950"})
      .Needs(run);
  command.Flag("--csv", options.csv, "Show rows as CSV, not as a table").Needs(run);
  const Option strict =
      command.Flag("--strict", options.strict,
                   "Refuse a statement of which something is reported, with status 1; so does "
                   "--run");
  const Option noStrict = command.Flag("--no-strict", options.noStrict, "Run it all the same");
  Option(noStrict).Needs(run).Excludes(strict);
  command
      .Flag("--bind", options.bind,
            "Bind the values instead of writing them: texts as WVARCHAR, int as INTEGER, bigint as BIGINT, "
            "bit as BIT, float as DOUBLE, money as DECIMAL(19,4), date as DATE")
      .Needs(run)
      .Excludes(noStrict);
  return run;
}

void RunOrPrint(const RunOptions& options, const std::vector<Batch>& batches) {
  if (!options.connection.empty()) return RunBatches(options, batches);
  std::string text;
  for (const Batch& batch : batches) {
    text += database::ForServer(batch.text, OutputCharset());
    const bool isLast = &batch == &batches.back();
    if (batch.count > 1) text += "GO " + std::to_string(batch.count) + "\r\n";
    if (batch.count == 1 && !isLast) text += "GO\r\n";
  }
  PrintBytes(text);
}

}  // namespace qxtool
