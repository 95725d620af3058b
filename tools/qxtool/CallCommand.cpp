// qxtool call: the sp_executesql call of a statement file.
#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <filesystem>
#include <memory>

#include "BindValues.h"
#include "CallCheck.h"
#include "Commands.h"
#include "PathOf.h"
#include "RunOptions.h"
#include "RunStatement.h"
#include "SafeOptions.h"
#include "StatementFile.h"
#include "StatementReport.h"
#include "TextIo.h"
#include "TextTable.h"
#include "Values.h"

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::qxSqlStoreProc;

struct Options {
  std::string file;
  std::vector<std::string> set;
  std::string declare;
  bool all = false;
  bool list = false;
  bool json = false;
  bool check = false;
  SafeOptions safe;
  RunOptions run;
};

void LoadStatement(TQXSqlStoreProc& procedure, const Options& options) {
  procedure.SetSearchParamType(options.all ? spAll : spAuto);
  TStringList lines;
  lines.SetText(ReadStatement(options.file));
  procedure.LoadStoreProc(&lines);
}

/// A declaration list from a file of that name, or else the argument itself.
std::string ReadDeclarations(const std::string& argument) {
  std::error_code ignored;
  const bool isFile = std::filesystem::exists(PathOf(argument), ignored);
  return isFile ? ReadInput(argument) : FromArgument(argument);
}

/// Runs `load` with the declarations, if there are any.
template <class Load>
void WithDeclarations(const std::string& argument, Load&& load) {
  if (argument.empty()) return;
  const std::string declarations = ReadDeclarations(argument);
  try {
    load(declarations);
  } catch (const Exception& e) {
    throw Failure("--declare " + Visible(argument) + ": " + VisibleText(e.what()));
  }
}

void LoadDeclarations(TQXSqlStoreProc& procedure, const std::string& declarations) {
  TStringList lines;
  lines.SetText(declarations);
  procedure.LoadParams(&lines);
}

/// Declared parameters that the statement's text does not show belong to the call, too.
void AddDeclared(TQXSqlStoreProc& procedure, const std::vector<qxSqlSafeCall::TSafeParam>& params) {
  for (const qxSqlSafeCall::TSafeParam& param : params)
    if (procedure.FindParam(param.Name) < 0) procedure.Add()->SetName(param.Name);
}

bool IsKnown(const TQXSqlStoreProc& procedure, const std::string& name) {
  if (name.starts_with('@')) return procedure.FindParam(name) >= 0;
  if (name.starts_with("[$")) return procedure.FindFunc(name) >= 0;
  return name.starts_with('$') && procedure.FindFunc("[" + name + "]") >= 0;
}

void SetValues(TQXSqlStoreProc& procedure, const std::string& file, const std::vector<NamedValue>& values) {
  for (const NamedValue& value : values) {
    if (!IsKnown(procedure, value.name))
      throw Failure(Visible(file) + ": no parameter or macro " + VisibleText(value.name));
    procedure.SetValue(value.name, value.value);
  }
}

TextRow RowOf(const char* kind, const TQXSqlStoreProcItem& item) {
  const std::string length = item.GetLength() != 0 ? std::to_string(item.GetLength()) : "";
  return {kind, item.GetName(), StoreProcParamTypeStr[item.GetStyle()], length, item.GetSqlValue()};
}

TextList ListOf(const TQXSqlStoreProc& procedure) {
  std::vector<TextRow> rows;
  for (Integer i = 0; i < procedure.GetParamCount(); ++i)
    rows.push_back(RowOf("parameter", *procedure.GetItems(i)));
  for (Integer i = 0; i < procedure.GetFuncCount(); ++i)
    rows.push_back(RowOf("macro", *procedure.GetFuncItems(i)));
  return {{"Kind", "Name", "Type", "Length", "Value"}, RowsOf(rows), {3}};
}

/// A list that LoadParams refuses is still checked: a rule says what is wrong with it.
ExitStatus RunCheck(TQXSqlStoreProc& procedure, const Options& options) {
  std::string declarations;
  std::string refused;
  try {
    WithDeclarations(options.declare, [&](const std::string& text) {
      declarations = text;
      LoadDeclarations(procedure, text);
    });
  } catch (const Failure& e) {
    refused = e.what();
  }
  if (refused.empty()) SetValues(procedure, options.file, ReadValues(options.set));
  const ExitStatus status = CheckCallValues(options.file, procedure, declarations);
  if (status == kDone && !refused.empty()) throw Failure(refused);
  return status;
}

ExitStatus RunOrdinary(TQXSqlStoreProc& procedure, const Options& options) {
  WithDeclarations(options.declare, [&](const std::string& text) { LoadDeclarations(procedure, text); });
  const std::vector<NamedValue> values = ReadValues(options.set);
  SetValues(procedure, options.file, values);
  if (options.list) {
    PrintList(ListOf(procedure), options.json);
    return kDone;
  }
  if (!Report(options.file, ProblemsOf(procedure, values), options.run)) return kFound;
  RunOrPrint(options.run, {{procedure.GetStoreProc()->GetText()}});
  return kDone;
}

ExitStatus RunSafe(TQXSqlStoreProc& procedure, const Options& options) {
  qxSqlSafeCall::TSafeCallOptions call = CallOptions(options.safe);
  WithDeclarations(options.declare, [&](const std::string& text) {
    call.Params = qxSqlSafeCall::ReadSafeParams(text);
    AddDeclared(procedure, call.Params);
  });
  SetValues(procedure, options.file, ReadValues(options.set));
  TStringList lines;
  try {
    GetSafeStoreProc(procedure, lines, call);
  } catch (const Exception& e) {
    throw Failure(Visible(options.file) + ": " + VisibleText(e.what()));
  }
  RunOrPrint(options.run, {{lines.GetText()}});
  return kDone;
}

/// The statement that the call gives to the server: its literal, without the apostrophes that it needs there.
std::string StatementOfCall(TQXSqlStoreProc& procedure) {
  const std::string line = procedure.GetStoreProc()->GetStrings(1);
  const std::size_t end = line.rfind('\'');
  std::string statement;
  for (std::size_t i = 0; i < end; i += line[i] == '\'' ? 2 : 1) statement += line[i];
  return statement;
}

/// On its own the statement is no call, so that it runs on every server.
ExitStatus RunBound(TQXSqlStoreProc& procedure, const Options& options) {
  if (options.safe.isOn || !options.declare.empty())
    throw Failure("--bind declares nothing itself: not together with --safe or --declare");
  const std::vector<NamedValue> values = ReadValues(options.set);
  SetValues(procedure, options.file, values);
  BindableValues bindable;
  for (Integer i = 0; i < procedure.GetParamCount(); ++i) bindable[procedure.GetItems(i)->GetUpperName()];
  for (const NamedValue& value : values)
    if (value.name.starts_with('@')) bindable[UpperCase(value.name)] = value.value;
  for (Integer i = 0; i < procedure.GetFuncCount(); ++i)
    if (const auto& macro = *procedure.GetFuncItems(i); macro.GetValue().IsNull())
      throw Failure("--bind: " + VisibleText(macro.GetName()) + " has no value");
  Batch batch{StatementOfCall(procedure)};
  BindValues(batch, bindable);
  RunBatches(options.run, {batch});
  return kDone;
}

ExitStatus Run(const Options& options) {
  TQXSqlStoreProc procedure;
  LoadStatement(procedure, options);
  if (options.check) return RunCheck(procedure, options);
  if (options.run.bind) return RunBound(procedure, options);
  return options.safe.isOn ? RunSafe(procedure, options) : RunOrdinary(procedure, options);
}

}  // namespace

void AddCallCommand(Command program) {
  const auto options = std::make_shared<Options>();
  Command command = program.Add("call", "Write the sp_executesql call of a statement", options, Run);
  command.Example("call search.sql --set '$Orders=OrderHead' --set '@MM_From:date=2003/01/31'");
  command.Text("FILE", options->file, "Statement with @ parameters and [$...] macros; - is standard input")
      .Required();
  command
      .Repeated("--set", options->set,
                "NAME=VALUE, NAME:TYPE=VALUE or NAME:null; NAME is @Parameter or $Macro, TYPE one of " +
                    ValueTypes())
      .Placeholder("NAME=VALUE");
  command.Text("--declare", options->declare, "Declaration list, a file or the text itself")
      .Placeholder("FILE|TEXT");
  command.Flag("--all", options->all, "Use every @ name, not only @MM and @MM_...");
  const Option list = command.Flag("--list", options->list, "Show parameters and macros instead of the call");
  command.Json(options->json).Needs(list);
  Option check = command.Flag("--check", options->check, "Report what in the values does harm silently");
  AddSafeOptions(command, options->safe).Excludes(list).Excludes(check);
  AddRunOptions(command, options->run).Excludes(list).Excludes(check);
  check.Excludes(list);
}

}  // namespace qxtool
