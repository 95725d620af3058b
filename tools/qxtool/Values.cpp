#include "Values.h"

#include <qxTools/runtime/Ascii.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/Exceptions.h>
#include <qxTools/runtime/Numbers.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

#include "Edge.h"

namespace qxtool {

namespace {

using qxTools::Variant;

template <class Number>
Variant ToInteger(const std::string& text) {
  Number value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end)
    throw Failure("not an integer from " + std::to_string(std::numeric_limits<Number>::min()) + " to " +
                  std::to_string(std::numeric_limits<Number>::max()));
  return value;
}

Variant ToMoney(const std::string& text) {
  const double scaled = qxTools::StrToFloat(text) * 10000;
  if (std::fabs(scaled) >= 9.2e18) throw Failure("beyond the range of money");
  return Variant::FromCurrency(std::llround(scaled));
}

Variant ToBit(const std::string& text) {
  if (text != "0" && text != "1") throw Failure("not 0 or 1");
  return text == "1";
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
    {"date", [](const std::string& text) { return Variant::FromDate(qxTools::StrToDate(text)); }},
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

std::string ValueTypes() {
  std::string names;
  for (const ValueType& type : kTypes) names += std::string(type.name) + ", ";
  return names + "null";
}

}  // namespace qxtool
