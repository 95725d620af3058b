#include "database/Parameter.h"

#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/DateTime.h>

#include <algorithm>
#include <cmath>

#include "OdbcHeaders.h"
#include "database/Charset.h"
#include "database/Utf16.h"

namespace qxtool::database {

namespace {

using qxTools::Variant;

constexpr std::size_t kMostUnits = 4000;  // of a text type with a length

template <class Value>
std::string BytesOf(const Value& value) {
  return {reinterpret_cast<const char*>(&value), sizeof value};
}

Parameter TextParameter(const Variant& value) {
  auto utf8 = Convert(value.AsString(), Charset::kCodePage950, Charset::kUtf8);
  if (!utf8) throw qxTools::Exception("a byte of the value is no character");
  return {.source = SQL_C_WCHAR, .type = SQL_WVARCHAR, .bytes = *std::move(utf8)};
}

Parameter IntegerParameter(const Variant& value) {
  const bool isLong = value.Type() == qxTools::varInt64;
  const SQLBIGINT number = std::stoll(value.AsString());
  return {.source = SQL_C_SBIGINT,
          .type = static_cast<std::int16_t>(isLong ? SQL_BIGINT : SQL_INTEGER),
          .size = isLong ? 19u : 10u,
          .bytes = BytesOf(number)};
}

Parameter BitParameter(const Variant& value) {
  const SQLCHAR bit = value.AsBoolean() ? 1 : 0;
  return {.source = SQL_C_BIT, .type = SQL_BIT, .size = 1, .bytes = BytesOf(bit)};
}

Parameter DoubleParameter(const Variant& value) {
  return {.source = SQL_C_DOUBLE, .type = SQL_DOUBLE, .size = 15, .bytes = BytesOf(value.AsDouble())};
}

/// By its digits, so that none is rounded.
Parameter MoneyParameter(const Variant& value) {
  return {.source = SQL_C_CHAR, .type = SQL_DECIMAL, .size = 19, .scale = 4, .bytes = value.AsString()};
}

Parameter DateParameter(const Variant& value) {
  const double days = value.AsDouble();
  if (days != std::floor(days)) throw qxTools::Exception("a date with a time of day");
  const auto parts = qxTools::DecodeDate(days);
  const SQL_DATE_STRUCT date = {static_cast<SQLSMALLINT>(parts.Year), static_cast<SQLUSMALLINT>(parts.Month),
                                static_cast<SQLUSMALLINT>(parts.Day)};
  return {.source = SQL_C_TYPE_DATE, .type = SQL_TYPE_DATE, .size = 10, .bytes = BytesOf(date)};
}

void ChooseTextForm(Parameter& parameter, bool isWide) {
  if (isWide) {
    const std::u16string units = ToUtf16(parameter.bytes).value();
    parameter.bytes.assign(reinterpret_cast<const char*>(units.data()), 2 * units.size());
    parameter.size = std::max<std::size_t>(units.size(), 1);
    if (units.size() > kMostUnits) parameter.type = SQL_WLONGVARCHAR;
  } else {
    parameter.source = SQL_C_CHAR;
    parameter.type = SQL_VARCHAR;
    parameter.size = std::max<std::size_t>(parameter.bytes.size(), 1);
  }
}

}  // namespace

bool Parameter::IsText() const { return source == SQL_C_WCHAR; }

Parameter ToParameter(const Variant& value) {
  switch (value.Type()) {
    case qxTools::varNull:
      return {.source = SQL_C_WCHAR, .type = SQL_WVARCHAR, .isNull = true};
    case qxTools::varBoolean:
      return BitParameter(value);
    case qxTools::varSmallint:
    case qxTools::varInteger:
    case qxTools::varByte:
    case qxTools::varInt64:
      return IntegerParameter(value);
    case qxTools::varSingle:
    case qxTools::varDouble:
      return DoubleParameter(value);
    case qxTools::varCurrency:
      return MoneyParameter(value);
    case qxTools::varDate:
      return DateParameter(value);
    default:
      return TextParameter(value);
  }
}

std::int16_t Bind(Parameter& parameter, void* statement, std::uint16_t place, bool isWide) {
  if (parameter.IsText()) ChooseTextForm(parameter, isWide);
  parameter.length = parameter.isNull ? SQL_NULL_DATA : static_cast<SQLLEN>(parameter.bytes.size());
  return SQLBindParameter(statement, place, SQL_PARAM_INPUT, parameter.source, parameter.type, parameter.size,
                          parameter.scale, parameter.bytes.data(),
                          static_cast<SQLLEN>(parameter.bytes.size()), &parameter.length);
}

}  // namespace qxtool::database
