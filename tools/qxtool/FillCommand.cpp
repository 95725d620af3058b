// qxtool command: a command file with its values filled in.
#include <qxTools/sql/QXSqlTools.h>

#include <memory>

#include "Commands.h"
#include "RunOptions.h"
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
  RunOptions run;
};

void SetValues(TQXSQL& command, const Options& options, const std::vector<NamedValue>& values) {
  for (const NamedValue& value : values) {
    if (command.GetParams().FindByName(value.name) == nullptr)
      throw Failure(Visible(options.file) + ": no parameter " + VisibleText(value.name));
    // A command leaves a value of another type aside; here that would pass unseen.
    if (value.value.Type() == varInt64)
      throw Failure("--set " + VisibleText(value.name) + ": a command takes no bigint");
    command.GetParams().SetItemsValue(value.name, value.value);
  }
}

TextList ListOf(TQXSQL& command) {
  static const char* const styles[] = {"string", "integer", "real", "date", "time", "boolean", "function"};
  std::vector<TextRow> rows;
  for (Integer i = 0; i < command.GetParams().GetCount(); ++i) {
    const TQXSQLItem& item = *command.GetParams().GetItems(i);
    rows.push_back({item.GetName(), styles[item.Style], item.Text});
  }
  return {{"Name", "Style", "Text"}, RowsOf(rows)};
}

ExitStatus Run(const Options& options) {
  TQXSQL command;
  command.GetInLines().SetText(ReadInput(options.file));
  const std::vector<NamedValue> values = ReadValues(options.set);
  SetValues(command, options, values);
  if (options.list) {
    PrintList(ListOf(command), options.json);
    return kDone;
  }
  if (!Report(options.file, ProblemsOf(command, values), options.run)) return kFound;
  RunOrPrint(options.run, command.GetOutLines().GetText());
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
  AddRunOptions(command, options->run).Excludes(list);
}

}  // namespace qxtool
