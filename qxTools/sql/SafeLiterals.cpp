#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/runtime/Numbers.h>
#include <qxTools/sql/SafeLiterals.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>

namespace qxTools::qxSqlSafeCall {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr int kTrimBoth = 0;
constexpr VarType kByteArray = varArray | varByte;

// --- Texts -------------------------------------------------------------------------------------------

/// The position behind the next backslash that stands right before a line end.
std::size_t FindContinuation(std::string_view text) {
  for (std::size_t mark = text.find('\\'); mark != kNone; mark = text.find('\\', mark + 1))
    if (mark + 1 < text.size() && (text[mark + 1] == '\r' || text[mark + 1] == '\n')) return mark + 1;
  return kNone;
}

void AppendDoubled(std::string& out, std::string_view text) {
  for (std::size_t quote = text.find('\''); quote != kNone; quote = text.find('\'')) {
    out.append(text, 0, quote + 1) += '\'';
    text.remove_prefix(quote + 1);
  }
  out.append(text);
}

/// Moves the line end at the front of `text` behind `out`, as characters that are added by their codes.
void AppendLineEnd(std::string& out, std::string_view& text, bool national) {
  for (const char c : {'\r', '\n'}) {
    if (!text.starts_with(c)) continue;
    out += (national ? " + NCHAR(" : " + CHAR(") + std::to_string(int{c}) + ")";
    text.remove_prefix(1);
  }
  out += " + ";
}

void CheckCharacters(std::string_view text) {
  const std::size_t stray = FindStrayByte(text);
  if (stray != kNone) throw Exception("byte " + std::to_string(stray + 1) + " begins no character");
}

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::size_t UnitCount(std::string_view text) { return BytesToWide(text).size(); }

/// Whether literals that are joined to this text would be cut, as none of them is of a (max) type.
bool NeedsMax(std::string_view text, bool national) {
  constexpr std::size_t kMostUnits = 4000;
  constexpr std::size_t kMostBytes = 8000;
  return national ? text.size() > kMostUnits && UnitCount(text) > kMostUnits : text.size() > kMostBytes;
}

std::size_t SizeIn(TypeKind kind, std::string_view text) {
  return kind == TypeKind::kUnits ? UnitCount(text) : text.size();
}

// --- Numbers -----------------------------------------------------------------------------------------

void CheckFinite(double value) {
  if (!std::isfinite(value)) throw Exception("not a number, or infinite");
}

template <class Real>
std::string Digits(Real value, std::chars_format format) {
  CheckFinite(value);
  char text[400];  // the smallest double has 326
  return {text, std::to_chars(text, std::end(text), value, format).ptr};
}

/// A number in plain digits, nothing for other values.
std::optional<std::string> NumberText(const Variant& value) {
  switch (value.Type()) {
    case varSingle:
      return Digits(static_cast<float>(value.AsDouble()), std::chars_format::fixed);
    case varDouble:
      return Digits(value.AsDouble(), std::chars_format::fixed);
    case varBoolean:
      return value.AsBoolean() ? "1" : "0";
    case varCurrency: {
      std::string text = value.AsString();
      std::ranges::replace(text, GetFormatSettings().DecimalSeparator, '.');
      return text;
    }
    case varSmallint:
    case varInteger:
    case varShortInt:
    case varByte:
    case varWord:
    case varLongWord:
    case varInt64:
      return value.AsString();
    default:
      return std::nullopt;
  }
}

/// The shortest text that reads back as the same number; its exponent makes it a Float: 1.5E-1.
std::string FloatLiteral(const Variant& value) {
  const std::string text = value.Type() == varSingle
                               ? Digits(static_cast<float>(value.AsDouble()), std::chars_format::scientific)
                               : Digits(value.AsDouble(), std::chars_format::scientific);
  const std::size_t mark = text.find('e');
  return text.substr(0, mark) + "E" + std::to_string(StrToInt(text.substr(mark + 1)));
}

// --- Dates and bytes ---------------------------------------------------------------------------------

/// In the forms that no language and no date format changes.
std::string DateLiteral(TDateTime date) {
  const DateParts day = DecodeDate(date);
  const TimeParts time = DecodeTime(date);
  char text[64];
  if (time == TimeParts())
    std::snprintf(text, sizeof text, "'%04d%02d%02d'", day.Year, day.Month, day.Day);
  else
    std::snprintf(text, sizeof text, "'%04d-%02d-%02dT%02d:%02d:%02d.%03d'", day.Year, day.Month, day.Day,
                  time.Hour, time.Minute, time.Second, time.Millisecond);
  return text;
}

std::span<const std::uint8_t> BytesOf(const Variant& value) {
  if (value.DimCount() != 1) throw Exception("an array of several dimensions has no literal");
  return value.Bytes();
}

std::string BinaryLiteral(const Variant& value) {
  constexpr char kHex[] = "0123456789ABCDEF";
  std::string literal = "0x";
  for (const std::uint8_t byte : BytesOf(value))
    literal.append(1, kHex[byte >> 4]).append(1, kHex[byte & 15]);
  return literal;
}

// --- Types -------------------------------------------------------------------------------------------

TSafeParam Named(const char* type, Integer length = 0) { return {.Type = type, .Length = length}; }

bool HasSize(TypeKind kind) {
  return kind == TypeKind::kBytes || kind == TypeKind::kUnits || kind == TypeKind::kBinary;
}

TSafeParam TypeOfText(std::string_view text, const TSafeCallOptions& options) {
  const SafeType& type = FindSafeType(IsNational(text, options) ? "NVarchar" : "Varchar");
  return Sized(type, SizeIn(type.kind, text), options.Lengths);
}

TSafeParam TypeOfSingle(const Variant& value) {
  TSafeParam param = Named("Decimal");
  return FindPrecision(param, NumberText(value).value_or("")) ? param : Named("Float");
}

TSafeParam TypeOfDate(TDateTime date, const TSafeCallOptions& options) {
  constexpr int kFirstYear = 1753;  // of Datetime
  if (options.Date == sdDate) return Named("Date");
  const bool isOld = DecodeDate(date).Year < kFirstYear;
  return options.Date == sdDatetime && !isOld ? Named("Datetime") : Named("Datetime2", 3);
}

void CheckSize(std::size_t size, const TSafeParam& param) {
  if (param.Max || size <= static_cast<std::size_t>(param.Length)) return;
  throw Exception("the length " + std::to_string(size) + " is beyond " + TypeText(param));
}

void CheckInteger(const std::string& number, const SafeType& type) {
  std::int64_t whole = 0;
  const char* const end = number.data() + number.size();
  const auto [stop, error] = std::from_chars(number.data(), end, whole);
  if (error != std::errc() || stop != end || whole < type.low || whole > type.high)
    throw Exception(number + " is no " + std::string(type.name));
}

void CheckNumber(const std::string& number, const TSafeParam& param, const SafeType& type) {
  if (type.kind == TypeKind::kInteger) CheckInteger(number, type);
  if (type.kind == TypeKind::kDecimal && !HoldsDigits(number, param.Length, param.Scale))
    throw Exception("the digits of " + number + " are beyond " + TypeText(param));
}

/// The literal of a number. A Float is written as such where its type does not want the digits as they are.
std::string NumberLiteral(const Variant& value, const std::string& digits, TypeKind kind) {
  const bool isPlain = kind == TypeKind::kDecimal || kind == TypeKind::kInteger;
  const bool isReal = value.Type() == varDouble || value.Type() == varSingle;
  return isReal && !isPlain ? FloatLiteral(value) : digits;
}

[[noreturn]] void ThrowNoLiteral(const Variant& value) {
  throw Exception(value.IsEmpty() ? "an empty variant has no literal" : "the value has no literal");
}

/// The literal of a value that is no text.
std::string OtherFor(const Variant& value, const TSafeParam& param, const SafeType& type) {
  if (value.Type() == varDate) return DateLiteral(value.AsDouble());
  if (value.Type() == kByteArray) return BinaryLiteral(value);
  const std::optional<std::string> digits = NumberText(value);
  if (!digits) ThrowNoLiteral(value);
  CheckNumber(*digits, param, type);
  return NumberLiteral(value, *digits, type.kind);
}

/// How long the value is in a type that has a length; a value that is no text, as long as its literal.
std::size_t SizeFor(const Variant& value, const SafeType& type, const TSafeCallOptions& options) {
  if (value.IsString() || value.IsNull()) return SizeIn(type.kind, TextOf(value, options));
  if (value.Type() == kByteArray && type.kind == TypeKind::kBinary) return BytesOf(value).size();
  return OtherFor(value, {}, type).size();
}

std::string TextFor(const Variant& value, const TSafeCallOptions& options) {
  const std::string text = TextOf(value, options);
  if (text.empty() && options.EmptyIsNull) return "NULL";
  std::string literal;
  AppendTextLiteral(literal, text, IsNational(text, options));
  return literal;
}

}  // namespace

bool HasContinuation(std::string_view text) { return FindContinuation(text) != kNone; }

void AppendTextLiteral(std::string& out, std::string_view text, bool national) {
  const std::string_view open = national ? "N'" : "'";
  out.reserve(out.size() + text.size() +
              static_cast<std::size_t>(std::count(text.begin(), text.end(), '\'')) + 4);
  std::size_t cut = FindContinuation(text);
  if (cut != kNone && NeedsMax(text, national))
    out += national ? "CAST(N'' AS nvarchar(max)) + " : "CAST('' AS varchar(max)) + ";
  for (; cut != kNone; cut = FindContinuation(text)) {
    AppendDoubled(out += open, text.substr(0, cut));
    text.remove_prefix(cut);
    AppendLineEnd(out += '\'', text, national);
  }
  AppendDoubled(out += open, text);
  out += '\'';
}

std::string TextOf(const Variant& value, const TSafeCallOptions& options) {
  std::string text = value.AsString();
  if (value.Type() == varOleStr && BytesToWide(text) != value.AsWideString())
    throw Exception("a character has no form in code page 950");
  CheckCharacters(text);
  return options.TrimText ? QXStrTools::Trim(text, kTrimBoth) : text;
}

bool IsNational(std::string_view text, const TSafeCallOptions& options) {
  return options.Text == stNVarchar || (options.Text == stByContent && !IsAscii(text));
}

TSafeParam TypeOfValue(const Variant& value, const TSafeCallOptions& options) {
  if (value.IsString() || value.IsNull()) return TypeOfText(TextOf(value, options), options);
  switch (value.Type()) {
    case varBoolean:
      return Named("Bit");
    case varByte:
      return Named("Tinyint");
    case varShortInt:
    case varSmallint:
      return Named("Smallint");
    case varInteger:
    case varWord:
      return Named("Int");
    case varLongWord:
    case varInt64:
      return Named("Bigint");
    case varSingle:
      return TypeOfSingle(value);
    case varDouble:
      CheckFinite(value.AsDouble());
      return Named("Float");
    case varCurrency:
      return Named("Money");
    case varDate:
      return TypeOfDate(value.AsDouble(), options);
    case kByteArray:
      return Sized(FindSafeType("Varbinary"), BytesOf(value).size(), options.Lengths);
    default:
      ThrowNoLiteral(value);
  }
}

void CompleteType(TSafeParam& param, const Variant& value, const TSafeCallOptions& options) {
  const SafeType& type = FindSafeType(param.Type);
  if (param.Length != 0 || param.Max) return;
  if (type.kind == TypeKind::kDecimal) {
    const auto digits = value.IsNull() ? "0" : NumberText(value);
    if (!digits || !FindPrecision(param, *digits)) SetWidestPrecision(param);
  } else if (HasSize(type.kind)) {
    const TSafeParam sized = Sized(type, SizeFor(value, type, options), options.Lengths);
    param.Length = sized.Length;
    param.Max = sized.Max;
  }
}

std::string LiteralFor(const Variant& value, const TSafeParam& param, const TSafeCallOptions& options) {
  if (value.IsNull()) return "NULL";
  const SafeType& type = FindSafeType(param.Type);
  if (HasSize(type.kind)) CheckSize(SizeFor(value, type, options), param);
  if (value.IsString()) return TextFor(value, options);
  return OtherFor(value, param, type);
}

}  // namespace qxTools::qxSqlSafeCall
