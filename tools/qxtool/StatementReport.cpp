#include "StatementReport.h"

#include <qxTools/base/Ascii.h>

#include <algorithm>

#include "TextIo.h"

namespace qxtool {

namespace {

using namespace qxTools::qxSqlStoreProc;

constexpr int kMostBytes = 8000;  // of a type with a length

/// Whether a value was given for the name; `$Macro` is short for `[$Macro]`.
bool IsGiven(const std::string& name, const std::vector<NamedValue>& values) {
  return std::ranges::any_of(values, [&](const NamedValue& value) {
    const std::string full = value.name.starts_with('$') ? "[" + value.name + "]" : value.name;
    return qxTools::SameText(full, name);
  });
}

void AddProblems(std::vector<std::string>& problems, const TQXSqlStoreProcItem& item, bool isGiven) {
  const std::string& name = item.GetName();
  const bool isUnknown = item.GetStyle() == spUnknown;
  if (!isGiven)
    problems.push_back(name + " has no value: it is " + (isUnknown ? "declared Unknown and " : "") +
                       "passed as NULL");
  else if (isUnknown)
    problems.push_back(name + " is declared Unknown, which is no type of a server");
  if (item.GetLength() > kMostBytes)
    problems.push_back(name + " is declared with the length " + std::to_string(item.GetLength()) +
                       "; a server has up to " + std::to_string(kMostBytes));
}

/// Whether a text holds the name, so that it is replaced there. Where the mark is the second byte of a
/// character, the scanner finds a name that the text does not hold.
bool Holds(const std::string& upperText, const std::string& name) {
  return upperText.find(qxTools::UpperCase(name)) != std::string::npos;
}

}  // namespace

std::vector<std::string> ProblemsOf(const TQXSqlStoreProc& procedure, const std::vector<NamedValue>& values) {
  std::vector<std::string> problems;
  for (qxTools::Integer i = 0; i < procedure.GetParamCount(); ++i) {
    const TQXSqlStoreProcItem& item = *procedure.GetItems(i);
    AddProblems(problems, item, IsGiven(item.GetName(), values));
  }
  for (qxTools::Integer i = 0; i < procedure.GetFuncCount(); ++i) {
    const std::string& name = procedure.GetFuncItems(i)->GetName();
    if (!IsGiven(name, values)) problems.push_back(name + " has no value: nothing is written in its place");
  }
  return problems;
}

std::vector<std::string> ProblemsOf(qxTools::QXSqlTools::TQXSQL& command,
                                    const std::vector<NamedValue>& values) {
  const std::string text = qxTools::UpperCase(command.GetInLines().GetText());
  std::vector<std::string> problems;
  for (qxTools::Integer i = 0; i < command.GetParams().GetCount(); ++i) {
    const std::string& name = command.GetParams().GetItems(i)->GetName();
    if (!IsGiven(name, values) && Holds(text, name))
      problems.push_back(name + " has no value: NULL is written in its place");
  }
  return problems;
}

bool Report(const std::string& file, const std::vector<std::string>& problems, const RunOptions& options) {
  for (const std::string& problem : problems) PrintReport(Visible(file) + ": " + VisibleText(problem));
  if (problems.empty() || !options.IsStrict()) return true;
  PrintReport(Visible(file) + (options.connection.empty()
                                   ? ": nothing is written (--strict)"
                                   : ": nothing is sent; --no-strict sends it as it is"));
  return false;
}

}  // namespace qxtool
