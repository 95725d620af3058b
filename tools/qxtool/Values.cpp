#include "Values.h"

#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/Numbers.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <iterator>
#include <limits>

#include "TextIo.h"

namespace qxtool {

namespace {

using qxTools::Variant;

template <class Number>
bool ReadNumber(const std::string& text, Number& value) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return error == std::errc() && stop == end;
}

template <class Number>
Variant ToInteger(const std::string& text) {
  Number value = 0;
  if (!ReadNumber(text, value))
    throw Failure("not an integer from " + std::to_string(std::numeric_limits<Number>::min()) + " to " +
                  std::to_string(std::numeric_limits<Number>::max()));
  return value;
}

/// By its digits: a double does not hold as many as an amount can have.
Variant ToMoney(const std::string& text) {
  constexpr std::size_t kDecimals = 4;
  const std::size_t point = std::min(text.find('.'), text.size());
  const bool hasWhole = point > 0 && std::isdigit(static_cast<unsigned char>(text[point - 1])) != 0;
  std::string digits = text;
  digits.erase(point, 1);
  const std::size_t decimals = digits.size() - point;
  if (decimals < kDecimals) digits.append(kDecimals - decimals, '0');
  std::int64_t scaled = 0;
  if (!hasWhole || decimals > kDecimals || !ReadNumber(digits, scaled))
    throw Failure("not an amount like 12.5, with up to four decimals and within the range of money");
  return Variant::FromCurrency(scaled);
}

Variant ToBit(const std::string& text) {
  if (text != "0" && text != "1") throw Failure("not 0 or 1");
  return text == "1";
}

Variant ToDate(const std::string& text) {
  try {
    return Variant::FromDate(qxTools::StrToDate(InDateFormat(text)));
  } catch (const qxTools::EConvertError& e) {
    throw Failure(std::string(e.what()) + "; a date is written 2003/01/31 or 2003-01-31");
  }
}

struct ValueType {
  const char* name;
  Variant (*read)(const std::string& text);
};

const ValueType kTypes[] = {
    {"text", [](const std::string& text) { return Variant(text); }},
    {"int", ToInteger<std::int32_t>},
    {"smallint", ToInteger<std::int16_t>},
    {"tinyint", ToInteger<std::uint8_t>},
    {"bigint", ToInteger<std::int64_t>},
    {"bit", ToBit},
    {"float", [](const std::string& text) { return Variant(qxTools::StrToFloat(text)); }},
    {"money", ToMoney},
    {"date", ToDate},
};

Variant ReadValue(const std::string& type, const std::string& text, bool hasText) {
  if (type == "null") {
    if (hasText) throw Failure("null takes no value");
    return Variant::Null();
  }
  const auto found =
      std::ranges::find(kTypes, type, [](const ValueType& known) { return std::string(known.name); });
  if (found == std::end(kTypes)) throw Failure("unknown type \"" + type + "\"; known are " + ValueTypes());
  if (!hasText) throw Failure("\"=VALUE\" is missing");
  return found->read(text);
}

NamedValue ReadNamedValue(const std::string& argument) {
  const std::size_t equals = argument.find('=');
  const std::string left = argument.substr(0, equals);
  const bool hasText = equals != std::string::npos;
  const std::size_t colon = left.find(':');
  const std::string type = colon == std::string::npos ? "text" : qxTools::LowerCase(left.substr(colon + 1));
  return {left.substr(0, colon), ReadValue(type, hasText ? argument.substr(equals + 1) : "", hasText)};
}

}  // namespace

std::vector<NamedValue> ReadValues(const std::vector<std::string>& arguments) {
  std::vector<NamedValue> values;
  for (const std::string& argument : arguments) {
    const std::string text = FromArgument(argument);
    try {
      values.push_back(ReadNamedValue(text));
    } catch (const std::exception& e) {
      throw Failure("--set " + Visible(argument) + ": " + VisibleText(e.what()));
    }
  }
  return values;
}

std::string InDateFormat(std::string text) {
  const bool isIso = text.size() == 10 && text[4] == '-' && text[7] == '-';
  if (isIso) text[4] = text[7] = '/';
  return text;
}

std::string ValueTypes() {
  std::string names;
  for (const ValueType& type : kTypes) names += std::string(type.name) + ", ";
  return names + "null";
}

}  // namespace qxtool
