// qxtool command: a command file with its values filled in.
#include <qxTools/base/Ascii.h>
#include <qxTools/sql/QXSqlTools.h>

#include <memory>

#include "BindValues.h"
#include "CallCheck.h"
#include "Commands.h"
#include "RunOptions.h"
#include "RunStatement.h"
#include "StatementFile.h"
#include "StatementReport.h"
#include "TextIo.h"
#include "TextTable.h"
#include "Values.h"

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::QXSqlTools;

struct Options {
  std::string file;
  std::vector<std::string> set;
  bool list = false;
  bool json = false;
  bool batches = false;
  bool check = false;
  RunOptions run;
};

/// A batch, filled in by its own command.
struct FilledBatch {
  Batch batch;
  std::unique_ptr<TQXSQL> command = std::make_unique<TQXSQL>();
};

std::vector<FilledBatch> ReadBatches(const Options& options) {
  const std::string text = ReadStatement(options.file);
  std::vector<FilledBatch> filled;
  for (Batch& batch : options.batches ? SplitBatches(text) : std::vector<Batch>{{text}}) {
    filled.push_back({std::move(batch)});
    filled.back().command->GetInLines().SetText(filled.back().batch.text);
  }
  return filled;
}

void SetValue(const std::vector<FilledBatch>& batches, const Options& options, const NamedValue& value) {
  bool isKnown = false;
  for (const FilledBatch& batch : batches) {
    if (batch.command->GetParams().FindByName(value.name) == nullptr) continue;
    isKnown = true;
    batch.command->GetParams().SetItemsValue(value.name, value.value);
  }
  if (!isKnown) throw Failure(Visible(options.file) + ": no parameter " + VisibleText(value.name));
  // A command leaves a value of another type aside; here that would pass unseen.
  if (value.value.Type() == varInt64)
    throw Failure("--set " + VisibleText(value.name) + ": a command takes no bigint");
}

TextList ListOf(const std::vector<FilledBatch>& batches) {
  static const char* const styles[] = {"string", "integer", "real", "date", "time", "boolean", "function"};
  std::vector<TextRow> rows;
  for (const FilledBatch& batch : batches) {
    auto& params = batch.command->GetParams();
    for (Integer i = 0; i < params.GetCount(); ++i) {
      const TQXSQLItem& item = *params.GetItems(i);
      rows.push_back({item.GetName(), styles[item.Style], item.Text});
    }
  }
  return {{"Name", "Style", "Text"}, RowsOf(rows)};
}

std::vector<std::string> Problems(const std::vector<FilledBatch>& batches,
                                  const std::vector<NamedValue>& values) {
  std::vector<std::string> all;
  for (const FilledBatch& batch : batches)
    for (std::string& problem : ProblemsOf(*batch.command, values)) all.push_back(std::move(problem));
  return all;
}

/// What is sent for each batch.
std::vector<Batch> Texts(const std::vector<FilledBatch>& batches) {
  std::vector<Batch> texts;
  for (const FilledBatch& filled : batches)
    texts.push_back({filled.command->GetOutLines().GetText(), filled.batch.firstLine, filled.batch.count});
  return texts;
}

ExitStatus RunCheck(const std::vector<FilledBatch>& batches, const Options& options) {
  std::vector<const TQXSQLItems*> commands;
  for (const FilledBatch& filled : batches) commands.push_back(&filled.command->GetParams());
  return CheckCommandValues(options.file, commands);
}

// --- --bind ---

/// The value as it was set; a text that names its style is written, and has no type that can be bound.
Variant BoundValue(const TQXSQLItem& item) {
  if (item.Value.IsString() && item.Style != stString)
    throw Failure("--bind: " + VisibleText(item.GetName()) +
                  ": a text that names its style cannot be bound; NAME:TYPE=VALUE can");
  return item.Value;
}

BindableValues ValuesOf(TQXSQLItems& params, const std::vector<NamedValue>& values) {
  BindableValues bindable;
  for (Integer i = 0; i < params.GetCount(); ++i) bindable[UpperCase(params.GetItems(i)->GetName())];
  for (const NamedValue& value : values)
    if (const TQXSQLItem* const item = params.FindByName(value.name))
      bindable[UpperCase(item->GetName())] = BoundValue(*item);
  return bindable;
}

/// The batches as they were read, with their values bound.
std::vector<Batch> Bound(const std::vector<FilledBatch>& batches, const std::vector<NamedValue>& values) {
  std::vector<Batch> bound;
  for (const FilledBatch& filled : batches) {
    bound.push_back(filled.batch);
    BindValues(bound.back(), ValuesOf(filled.command->GetParams(), values));
  }
  return bound;
}

ExitStatus Run(const Options& options) {
  const std::vector<FilledBatch> batches = ReadBatches(options);
  const std::vector<NamedValue> values = ReadValues(options.set);
  for (const NamedValue& value : values) SetValue(batches, options, value);
  if (options.check) return RunCheck(batches, options);
  if (options.list) {
    PrintList(ListOf(batches), options.json);
    return kDone;
  }
  if (options.run.bind) {
    RunBatches(options.run, Bound(batches, values));
    return kDone;
  }
  if (!Report(options.file, Problems(batches, values), options.run)) return kFound;
  RunOrPrint(options.run, Texts(batches));
  return kDone;
}

}  // namespace

void AddFillCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command command = program.Add("command", "Fill in a command's @ parameters", options, Run);
  command.Example("command search.sql --set '@MM_Qty:int=10' --set '@MM_Customer=Lee%'");
  command.Text("FILE", options->file, "Command text with @ parameters; - is standard input").Required();
  command
      .Repeated("--set", options->set,
                "NAME=VALUE, NAME:TYPE=VALUE or NAME:null; TYPE is one of " + ValueTypes() +
                    "; a text may name its style, as in @NID=@N:15")
      .Placeholder("NAME=VALUE");
  const Option list = command.Flag("--list", options->list, "Show the parameters instead of the text");
  command.Json(options->json).Needs(list);
  command.Flag("--batches", options->batches, "The file is a script: its GO lines end batches");
  Option check = command.Flag("--check", options->check, "Report what in the values does harm silently");
  AddRunOptions(command, options->run).Excludes(list).Excludes(check);
  check.Excludes(list);
}

}  // namespace qxtool
