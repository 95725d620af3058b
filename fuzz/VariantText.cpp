// Variants and numbers as text.
#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/Numbers.h>
#include <qxTools/runtime/Variant.h>
#include <qxTools/sql/QXSqlTools.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
namespace plain = fuzz::plain;

std::optional<Integer> ReadInteger(const std::string& text) {
  std::size_t i = std::min(text.find_first_not_of(' '), text.size());
  const bool negative = i < text.size() && text[i] == '-';
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
  if (i == text.size() || text.size() - i > 4000) return std::nullopt;
  std::int64_t value = 0;
  for (; i < text.size(); ++i) {
    if (text[i] < '0' || text[i] > '9') return std::nullopt;
    value = std::min<std::int64_t>(value * 10 + (text[i] - '0'), std::int64_t{1} << 40);
  }
  if (negative) value = -value;
  return value == static_cast<Integer>(value) ? std::optional(static_cast<Integer>(value)) : std::nullopt;
}

void CheckText(const std::string& text) {
  std::string error;
  const auto number = fuzz::Try([&] { return StrToInt(text); }, &error);
  FUZZ_CHECK(number == ReadInteger(text) &&
             (number || error == fuzz::Message("'" + text + "' is not a valid integer value")));
  FUZZ_CHECK(fuzz::Try([&] { return Variant(text).AsInteger(); }) == number);

  error.clear();
  const auto real = fuzz::Try([&] { return StrToFloat(text); }, &error);
  FUZZ_CHECK(real || error == fuzz::Message("'" + text + "' is not a valid floating point value"));
  if (number) FUZZ_CHECK(real == static_cast<double>(*number));
  if (real) {
    const std::string trimmed = plain::Trim(text);
    FUZZ_CHECK(*real == std::strtod(trimmed.c_str(), nullptr));
    FUZZ_CHECK(trimmed.find_first_not_of("+-.0123456789eE") == plain::kNone);
  }

  const Variant value(text);
  FUZZ_CHECK(value.AsString() == text && value.AsWideString() == BytesToWide(text));
  FUZZ_CHECK(Variant(value.AsWideString()).AsString() == WideToBytes(BytesToWide(text)));
  FUZZ_CHECK(QXSqlTools::VarToSql(value) == plain::Quoted(plain::Trim(text)));
  const std::string upper = plain::Upper(text);
  const auto boolean = fuzz::Try([&] { return value.AsBoolean(); });
  if (upper == "TRUE" || upper == "FALSE")
    FUZZ_CHECK(boolean == (upper == "TRUE"));
  else
    FUZZ_CHECK(boolean == (real ? std::optional(*real != 0) : std::nullopt));
}

/// The digits that printf gives, put together as the text form is worded.
std::string FloatText(double value, int digits) {
  if (std::isnan(value)) return "NAN";
  if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
  if (value == 0) return "0";
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*e", digits - 1, std::fabs(value));
  const int exponent = std::atoi(std::strchr(buffer, 'e') + 1);
  std::string mantissa;
  for (const char* c = buffer; *c != 'e'; ++c)
    if (*c != '.') mantissa += *c;
  while (mantissa.size() > 1 && mantissa.back() == '0') mantissa.pop_back();
  std::string text = value < 0 ? "-" : "";
  if (exponent >= 15 || exponent < -5) {
    text += mantissa[0];
    if (mantissa.size() > 1) text += "." + mantissa.substr(1);
    return text + "E" + std::to_string(exponent);
  }
  if (exponent < 0) return text + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + mantissa;
  for (int i = 0; i <= exponent || i < static_cast<int>(mantissa.size()); ++i) {
    if (i == exponent + 1) text += '.';
    text += i < static_cast<int>(mantissa.size()) ? mantissa[static_cast<std::size_t>(i)] : '0';
  }
  return text;
}

void CheckReal(double value) {
  const std::string text = FloatToStr(value);
  FUZZ_CHECK(text == FloatText(value, 15) && Variant(value).AsString() == text);
  const auto single = static_cast<float>(value);
  FUZZ_CHECK(Variant(single).AsString() == FloatText(single, 7));
  // The largest number is rounded up to one beyond the range; the tiniest have fewer digits than 15.
  if (std::isnormal(value) && std::fabs(value) < 1.797e308) FUZZ_CHECK(FloatToStr(StrToFloat(text)) == text);
  const double rounded = std::nearbyint(value);
  const bool fits = std::fabs(rounded) <= 2147483648.0 && rounded != 2147483648.0;
  const auto number = fuzz::Try([&] { return Variant(value).AsInteger(); });
  FUZZ_CHECK(number.has_value() == fits && (!fits || *number == static_cast<Integer>(rounded)));
  fuzz::Try([&] { return Variant::FromDate(value).AsString(); });
}

void CheckCurrency(std::int64_t scaled) {
  const Variant value = Variant::FromCurrency(scaled);
  const std::string text = value.AsString();
  // All the digits of the amount, the point left out and zeros put back.
  std::string digits = text;
  const std::size_t point = digits.find('.');
  const std::size_t decimals = point == plain::kNone ? 0 : digits.size() - point - 1;
  FUZZ_CHECK(decimals <= 4 && (decimals == 0 || digits.back() != '0'));
  if (point != plain::kNone) digits.erase(point, 1);
  digits.append(4 - decimals, '0');
  std::int64_t read = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), read);
  FUZZ_CHECK(end.ec == std::errc() && end.ptr == digits.data() + digits.size() && read == scaled);
  const auto number = fuzz::Try([&] { return value.AsInteger(); });
  if (number) FUZZ_CHECK(std::abs(scaled - std::int64_t{*number} * 10000) <= 5000);
}

}  // namespace

FUZZ_TARGET(VariantText) {
  const auto bits = input.Number<std::uint64_t>();
  CheckReal(std::bit_cast<double>(bits));
  CheckReal(static_cast<double>(static_cast<std::int64_t>(bits)) / 10000);
  CheckCurrency(static_cast<std::int64_t>(bits));
  FUZZ_CHECK(Variant(static_cast<std::int64_t>(bits)).AsString() ==
             std::to_string(static_cast<std::int64_t>(bits)));
  CheckText(input.Rest(400));
}
