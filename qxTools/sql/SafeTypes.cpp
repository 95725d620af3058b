#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/sql/NameScanner.h>
#include <qxTools/sql/SafeTypes.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace qxTools::qxSqlSafeCall {

namespace {

template <class T>
constexpr std::int64_t kLow = std::numeric_limits<T>::min();
template <class T>
constexpr std::int64_t kHigh = std::numeric_limits<T>::max();

// clang-format off
constexpr SafeType kTypes[] = {
    {"Bigint",           TypeKind::kInteger,  0,    false, kLow<std::int64_t>, kHigh<std::int64_t>},
    {"Binary",           TypeKind::kBinary,   8000},
    {"Bit",              TypeKind::kOther},
    {"Char",             TypeKind::kBytes,    8000},
    {"Date",             TypeKind::kOther},
    {"Datetime",         TypeKind::kOther},
    {"Datetime2",        TypeKind::kOther,    7},
    {"Decimal",          TypeKind::kDecimal,  38},
    {"Float",            TypeKind::kFraction, 53},
    {"Int",              TypeKind::kInteger,  0,    false, kLow<std::int32_t>, kHigh<std::int32_t>},
    {"Money",            TypeKind::kOther},
    {"NChar",            TypeKind::kUnits,    4000},
    {"Numeric",          TypeKind::kDecimal,  38},
    {"NVarchar",         TypeKind::kUnits,    4000, true},
    {"Real",             TypeKind::kFraction},
    {"Smalldatetime",    TypeKind::kOther},
    {"Smallint",         TypeKind::kInteger,  0,    false, kLow<std::int16_t>, kHigh<std::int16_t>},
    {"Sql_variant",      TypeKind::kOther},
    {"Time",             TypeKind::kOther,    7},
    {"Tinyint",          TypeKind::kInteger,  0,    false, kLow<std::uint8_t>, kHigh<std::uint8_t>},
    {"Uniqueidentifier", TypeKind::kOther},
    {"Varbinary",        TypeKind::kBinary,   8000, true},
    {"Varchar",          TypeKind::kBytes,    8000, true},
};
// clang-format on

/// With these an amount, a rate and a quotient find their place, and a statement has few plans.
constexpr std::pair<Integer, Integer> kPrecisions[] = {{19, 4}, {28, 9}, {38, 18}};

bool IsIdentifierChar(char c) {
  return IsNameChar(c) || c == '#' || c == '$' || c == '@' || static_cast<unsigned char>(c) >= 0x80;
}

std::string ScaleText(Integer scale) { return scale != 0 ? "," + std::to_string(scale) : ""; }

}  // namespace

const SafeType& FindSafeType(std::string_view name) {
  const auto* found = std::ranges::find_if(kTypes, [&](const SafeType& type) {
    return type.name.size() == name.size() && SameText(type.name, name);
  });
  if (found == std::end(kTypes)) throw Exception("unknown type \"" + std::string(name) + "\"");
  return *found;
}

std::string TypeText(const TSafeParam& param) {
  const SafeType& type = FindSafeType(param.Type);
  std::string text(type.name);
  if (param.Max) text += "(max)";
  if (param.Length != 0) text += "(" + std::to_string(param.Length) + ScaleText(param.Scale) + ")";
  const bool isScaled =
      param.Scale == 0 || (type.kind == TypeKind::kDecimal && param.Scale > 0 && param.Scale <= param.Length);
  if (param.Length < 0 || param.Length > type.most || !isScaled || (param.Max && !type.hasMax))
    throw Exception(text + " is no type");
  return text;
}

TSafeParam Sized(const SafeType& type, std::size_t size, const std::vector<Integer>& lengths) {
  TSafeParam param;
  param.Type = type.name;
  const auto holds = [&](Integer length) {
    return length > 0 && length <= type.most && static_cast<std::size_t>(length) >= size;
  };
  for (const Integer length : lengths.empty() ? std::vector<Integer>{type.most} : lengths)
    if (holds(length) && (param.Length == 0 || length < param.Length)) param.Length = length;
  param.Max = param.Length == 0 && type.hasMax;
  if (!param.Max && param.Length == 0) param.Length = type.most;
  return param;
}

bool HoldsDigits(std::string_view number, Integer precision, Integer scale) {
  const std::string_view digits = number.substr(number.starts_with('-') ? 1 : 0);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t whole = digits.starts_with('0') ? 0 : point;
  const std::size_t decimals = digits.size() - std::min(point + 1, digits.size());
  return whole <= static_cast<std::size_t>(precision - scale) && decimals <= static_cast<std::size_t>(scale);
}

bool FindPrecision(TSafeParam& param, std::string_view number) {
  const auto* found = std::ranges::find_if(
      kPrecisions, [&](const auto& size) { return HoldsDigits(number, size.first, size.second); });
  if (found == std::end(kPrecisions)) return false;
  std::tie(param.Length, param.Scale) = *found;
  return true;
}

void SetWidestPrecision(TSafeParam& param) {
  std::tie(param.Length, param.Scale) = *std::rbegin(kPrecisions);
}

void CheckName(std::string_view name) {
  if (name.size() < 2 || name[0] != '@' || !std::ranges::all_of(name, IsIdentifierChar))
    throw Exception("\"" + std::string(name) + "\" is no name of a parameter");
}

}  // namespace qxTools::qxSqlSafeCall
