#include <qxTools/base/Ascii.h>
#include <qxTools/base/Lines.h>
#include <qxTools/base/Search.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>

namespace qxTools::QXSqlTools {

using QXSqlDefine::SqlStruct;
using QXSqlDefine::SqlStructEmpty;

namespace {

constexpr int kTrimBoth = 0;

void AppendSQLStr(std::string& out, std::string_view s) {
  if (s.empty()) {
    out += "NULL";
    return;
  }
  out += '\'';
  std::size_t done = 0;
  Search::VisitApart("'", s, [&](std::size_t quote) {
    out.append(s, done, quote + 1 - done) += '\'';
    done = quote + 1;
    return true;
  });
  out.append(s, done) += '\'';
}

std::size_t QuotedSize(std::string_view s) { return s.size() + CountByte(s, '\'') + 2; }

bool IsQuotedType(char type) { return std::string_view("CSDTcsdt").find(type) != std::string_view::npos; }
bool IsPlainType(char type) { return std::string_view("FNfn").find(type) != std::string_view::npos; }

}  // namespace

std::string ToSQLStr(std::string_view s) {
  std::string literal;
  literal.reserve(QuotedSize(s));
  AppendSQLStr(literal, s);
  return literal;
}

std::string ToSQLint(std::string_view s) { return std::string(s.empty() ? "NULL" : s); }

std::string ToSQLEx(std::span<const std::string> values, std::string_view types) {
  std::string list;
  const std::size_t count = std::min(values.size(), types.size());
  for (std::size_t i = 0; i < count; ++i) {
    const bool quoted = IsQuotedType(types[i]);
    if (!quoted && !IsPlainType(types[i])) continue;
    if (!list.empty()) list += ',';
    if (quoted)
      AppendSQLStr(list, values[i]);
    else
      list += values[i].empty() ? "NULL" : values[i];
  }
  return list;
}

std::string VarToSql(const Variant& value) {
  if (value.IsNull()) return "NULL";
  if (value.Type() == varDate) return ToSQLStr(DateToStr(value.AsDouble()));
  if (value.Type() == varBoolean) return value.AsBoolean() ? "1" : "0";
  if (!value.IsString()) return value.AsString();
  return ToSQLStr(QXStrTools::Trim(value.AsString(), kTrimBoth));
}

std::string ToSQLinlist(std::string_view list) {
  std::string out;
  out.reserve(QuotedSize(list) + 4 + 3 * CountByte(list, ','));
  std::size_t comma = list.find(',');
  const bool several = comma != std::string_view::npos;
  out += several ? " (" : "(";
  for (; comma != std::string_view::npos; comma = list.find(',')) {
    AppendSQLStr(out, list.substr(0, comma));
    out += ',';
    list.remove_prefix(comma + 1);
  }
  AppendSQLStr(out, list);
  out += several ? ") " : ")";
  return out;
}

std::string ToSQLBetween(std::string_view range) {
  const std::size_t mark = range.find('~');
  if (mark == std::string_view::npos) return ToSQLStr(range) + " and " + ToSQLStr(range);
  return ToSQLStr(range.substr(0, mark)) + " and " + ToSQLStr(range.substr(mark + 1));
}

std::string SQLAdd(std::string_view condition, std::string_view more) {
  return QXStrTools::CommaAdd(condition, more, " and ");
}

std::string SQLStrNO(std::string_view field, Integer width) {
  const std::string digits = "LTRIM(STR(" + std::string(field) + "))";
  return "REPLICATE('0', " + QXStrTools::StrEx(width, 0) + " - LEN(" + digits + "))+ " + digits;
}

std::string SQLNumCaption(std::string_view field, Integer width, std::string_view caption) {
  return SQLStrNO(field, width) + "+ ' - ' + " + std::string(caption);
}

std::string FormatFieldName(std::string_view name, TFieldNameType kind) {
  switch (kind) {
    case fnUpperCase:
      return UpperCase(name);
    case fnLowerCase:
      return LowerCase(name);
    case fnSqlCase:
      break;
    default:
      return std::string(name);
  }
  std::string result = LowerCase(name);
  const std::size_t capital = name.find('_') == 2 ? 3 : 0;
  if (capital < result.size()) result[capital] = UpperChar(result[capital]);
  return result;
}

std::string FieldToParam(std::string_view field, std::string_view prefix) {
  return std::string(prefix) + "_" + std::string(field.substr(field.find('_') + 1));
}

TSqlTypeStruct FindSqlStructByName(std::string_view name) {
  const std::string upper = UpperCase(name);
  const auto found =
      std::ranges::find_if(SqlStruct, [&](const auto& type) { return UpperCase(type.Name) == upper; });
  return found != SqlStruct.end() ? *found : SqlStructEmpty;
}

TSqlTypeStruct FindSqlStructByDataType(Integer dataType) {
  const auto found = std::ranges::find(SqlStruct, dataType, &TSqlTypeStruct::DataType);
  return found != SqlStruct.end() ? *found : SqlStructEmpty;
}

}  // namespace qxTools::QXSqlTools
