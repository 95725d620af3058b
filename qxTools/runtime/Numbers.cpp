#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/runtime/Numbers.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace qxTools {

namespace {

constexpr int kMaxIntegerDigits = 15;
constexpr int kMinExponent = -5;

std::string_view SkipSpaces(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

/// std::from_chars knows no plus sign; what follows one must not be a second sign.
bool DropPlus(std::string_view& text) {
  if (!text.starts_with('+')) return true;
  text.remove_prefix(1);
  return !text.starts_with('-');
}

/// The significant digits of a finite value, without trailing zeros, and the decimal exponent of the first.
std::string SignificantDigits(double magnitude, int digits, int& exponent) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                 std::chars_format::scientific, digits - 1)
                       .ptr;
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t mark = text.find('e');
  const std::size_t number = mark + (text[mark + 1] == '+' ? 2 : 1);  // from_chars knows no plus sign
  std::from_chars(text.data() + number, text.data() + text.size(), exponent);
  std::string mantissa(text.substr(0, mark));
  std::erase(mantissa, '.');
  mantissa.resize(std::max<std::size_t>(mantissa.find_last_not_of('0') + 1, 1));
  return mantissa;
}

std::string WithPoint(const std::string& mantissa, std::size_t integerDigits, char separator) {
  if (mantissa.size() <= integerDigits) return mantissa + std::string(integerDigits - mantissa.size(), '0');
  return mantissa.substr(0, integerDigits) + separator + mantissa.substr(integerDigits);
}

}  // namespace

Integer StrToInt(std::string_view text) {
  std::string_view digits = SkipSpaces(text);
  Integer value = 0;
  if (DropPlus(digits)) {
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error == std::errc() && stop == end) return value;
  }
  throw EConvertError("'" + std::string(text) + "' is not a valid integer value");
}

std::string FloatToStr(double value, int digits) {
  if (std::isnan(value)) return "NAN";
  if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
  if (value == 0) return "0";
  const char separator = GetFormatSettings().DecimalSeparator;
  int exponent = 0;
  const std::string mantissa = SignificantDigits(std::fabs(value), digits, exponent);
  std::string text;
  if (exponent >= kMaxIntegerDigits || exponent < kMinExponent)
    text = WithPoint(mantissa, 1, separator) + "E" + std::to_string(exponent);
  else if (exponent >= 0)
    text = WithPoint(mantissa, static_cast<std::size_t>(exponent) + 1, separator);
  else
    text =
        std::string("0") + separator + std::string(static_cast<std::size_t>(-exponent - 1), '0') + mantissa;
  return value < 0 ? "-" + text : text;
}

double StrToFloat(std::string_view text) {
  std::string number(SkipSpaces(text));
  number.resize(number.find_last_not_of(' ') + 1);
  const char separator = GetFormatSettings().DecimalSeparator;
  // The other mark is no part of a number: with a comma as separator "1.5" is refused.
  const bool foreignPoint = separator != '.' && number.find('.') != std::string::npos;
  std::replace(number.begin(), number.end(), separator, '.');
  std::string_view digits = number;
  double value = 0;
  if (!foreignPoint && DropPlus(digits)) {
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error == std::errc() && stop == end && std::isfinite(value)) return value;
  }
  throw EConvertError("'" + std::string(text) + "' is not a valid floating point value");
}

Integer RoundToInteger(long double value) {
  using Limits = std::numeric_limits<Integer>;
  if (std::isnan(value)) return 0;
  return static_cast<Integer>(std::rint(std::clamp<long double>(value, Limits::min(), Limits::max())));
}

}  // namespace qxTools
