#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/sql/SafeLiterals.h>
#include <qxTools/sql/StoreProcText.h>

#include <algorithm>

namespace qxTools::qxSqlSafeCall {

namespace {

constexpr std::string_view kItemSeparator = " , ";

/// The names of the styles. On purpose not StoreProcParamTypeStr, which can be written.
constexpr const char* kStyleNames[] = {"Unknown",  "Bigint",      "Bit",     "Char",      "NChar",
                                       "Datetime", "Decimal",     "Float",   "Int",       "Money",
                                       "Smallint", "Sql_variant", "Tinyint", "Varbinary", "Varchar"};

/// Runs `body`; its exceptions get the item's name in front.
template <class Body>
auto Naming(const TQXSqlStoreProcItem& item, Body&& body) {
  try {
    return body();
  } catch (const Exception& e) {
    throw Exception(item.GetName() + ": " + e.what());
  }
}

bool WasNeverSet(const TQXSqlStoreProcItem& item) {
  return item.GetAutoStyle() && item.GetStyle() == qxSqlStoreProc::spUnknown && item.GetValue().IsNull();
}

/// Whether the value decides style and length.
bool FollowsValue(const TQXSqlStoreProcItem& item) {
  return item.GetAutoStyle() && item.GetStyle() == qxSqlStoreProc::VarToParamType(item.GetValue()) &&
         item.GetLength() == qxSqlStoreProc::VarLength(item.GetValue());
}

const TSafeParam* FindDeclared(std::string_view name, const TSafeCallOptions& options) {
  const auto found = std::ranges::find_if(
      options.Params, [&](const TSafeParam& param) { return SameText(param.Name, name); });
  return found != options.Params.end() ? &*found : nullptr;
}

/// The item's declared type, complete.
TSafeParam TypeOfItem(const TQXSqlStoreProcItem& item, const TSafeCallOptions& options) {
  const TSafeParam* const declared = FindDeclared(item.GetName(), options);
  if (WasNeverSet(item) && (declared == nullptr || !declared->Output)) throw Exception("no value was set");
  if (declared == nullptr && FollowsValue(item)) return TypeOfValue(item.GetValue(), options);
  TSafeParam param;
  if (declared != nullptr) {
    param = *declared;
  } else {
    param.Type = kStyleNames[item.GetStyle()];
    param.Length = item.GetLength();
  }
  CompleteType(param, item.GetValue(), options);
  return param;
}

void AppendDeclaration(std::string& list, const TQXSqlStoreProcItem& item, const TSafeParam& param) {
  CheckName(item.GetName());
  if (!list.empty()) list += kItemSeparator;
  list.append(item.GetName()).append(" ").append(TypeText(param));
  if (param.Output) list += " OUTPUT";
}

/// The parts of a call behind its statement.
struct Arguments {
  std::vector<std::string> variables;  // a DECLARE each
  std::string declarations;
  std::string values;
  std::string returned;  // what the last SELECT shows
};

void Append(std::string& list, std::string_view separator, std::string_view item) {
  if (!list.empty()) list += separator;
  list += item;
}

std::string Variable(std::string_view name, std::string_view type, std::string_view value) {
  std::string line = "DECLARE ";
  line.append(name).append(" ").append(type).append(" = ").append(value);
  return line;
}

const char* MaxType(bool national) { return national ? "nvarchar(max)" : "varchar(max)"; }

/// The type of the variable that a value needs because its literal is cut; "" if it needs none.
std::string VariableType(const Variant& value, const TSafeCallOptions& options) {
  if (!value.IsString()) return "";
  const std::string text = TextOf(value, options);
  return HasContinuation(text) ? MaxType(IsNational(text, options)) : "";
}

void AddArgument(Arguments& arguments, const TQXSqlStoreProcItem& item, const TSafeCallOptions& options) {
  const TSafeParam param = TypeOfItem(item, options);
  AppendDeclaration(arguments.declarations, item, param);
  std::string value = LiteralFor(item.GetValue(), param, options);
  const std::string type = param.Output ? TypeText(param) : VariableType(item.GetValue(), options);
  if (!type.empty()) {
    const std::string name = "@v" + std::to_string(arguments.variables.size() + 1);
    arguments.variables.push_back(Variable(name, type, value));
    value = name + (param.Output ? " OUTPUT" : "");
    if (param.Output) Append(arguments.returned, ", ", name + " AS [" + item.GetName().substr(1) + "]");
  }
  Append(arguments.values, kItemSeparator, value);
}

std::string MacroText(const TQXSqlStoreProcItem& macro) {
  if (WasNeverSet(macro)) throw Exception("no value was set");
  return TextOf(macro.GetValue(), {});
}

std::string StatementText(TQXSqlStoreProc& set) {
  std::vector<qxSqlStoreProc::Macro> macros;
  for (Integer i = 0; i < set.GetFuncCount(); ++i) {
    const TQXSqlStoreProcItem& macro = *set.GetFuncItems(i);
    macros.emplace_back(macro.GetName(), Naming(macro, [&] { return MacroText(macro); }));
  }
  std::string text = "\r\n" + set.GetStatement().GetText();
  return macros.empty() ? text : qxSqlStoreProc::ExpandMacros(text, macros);
}

void CheckStatement(std::string_view text) {
  const std::size_t stray = FindStrayByte(text);
  if (stray == std::string_view::npos) return;
  const auto line = std::ranges::count(text.substr(0, stray), '\n');  // the text begins with a line end
  throw Exception("line " + std::to_string(line) + " of the statement holds a byte that begins no character");
}

/// The first lines of the call: the statement, in a variable if its literal is cut.
std::vector<std::string> Head(const std::string& statement, const Arguments& arguments, bool writeExec) {
  const bool isCut = HasContinuation(statement);
  std::vector<std::string> lines = arguments.variables;
  std::string text = isCut ? Variable("@v", MaxType(true), "") : "";
  const std::string command =
      std::string(writeExec || isCut || !lines.empty() ? "EXEC " : "") + "sp_executesql ";
  if (!isCut) text = command;
  AppendTextLiteral(text, statement, true);
  lines.push_back(std::move(text));
  if (isCut) lines.push_back(command + "@v");
  return lines;
}

}  // namespace

AnsiString SafeDeclaration(const TQXSqlStoreProcItem& item, const TSafeCallOptions& options) {
  std::string declaration;
  Naming(item, [&] { AppendDeclaration(declaration, item, TypeOfItem(item, options)); });
  return declaration;
}

AnsiString SafeLiteral(const Variant& value, const TSafeCallOptions& options) {
  return value.IsNull() ? "NULL" : LiteralFor(value, TypeOfValue(value, options), options);
}

void GetSafeStoreProc(TQXSqlStoreProc& set, TStrings& call, const TSafeCallOptions& options) {
  Arguments arguments;
  for (Integer i = 0; i < set.GetParamCount(); ++i) {
    const TQXSqlStoreProcItem& item = *set.GetItems(i);
    Naming(item, [&] { AddArgument(arguments, item, options); });
  }
  const std::string statement = StatementText(set);
  CheckStatement(statement);
  std::vector<std::string> lines = Head(statement, arguments, options.WriteExec);
  if (!arguments.values.empty()) {
    lines.back() += ',';
    lines.push_back("N'" + arguments.declarations + "', ");
    lines.push_back(std::move(arguments.values));
  }
  if (!arguments.returned.empty()) lines.push_back("SELECT " + arguments.returned);
  call.BeginUpdate();
  call.Clear();
  for (std::string& line : lines) call.Add(std::move(line));
  call.EndUpdate();
}

}  // namespace qxTools::qxSqlSafeCall
