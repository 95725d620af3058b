// Numbers cleaned for display, against their wording.
#include <qxTools/calendar/QXToDigit.h>
#include <qxTools/strings/QXStrTools.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
namespace plain = fuzz::plain;

std::string ToDigit(const std::string& text) {
  std::string number;
  bool point = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] >= '0' && text[i] <= '9') {
      number += text[i];
    } else if (text[i] == '.') {
      if (number.empty() || number == "-") {
        number += "0.";
        point = true;
      } else if (!point) {
        number += ".";
        point = true;
      } else if (text[i - 1] != '.') {
        return number;
      }
    } else if (text[i] == '-') {
      if (!number.empty()) return number;
      number = "-";
    }
  }
  return number;
}

/// Group by group from the left, in its own counting from 1.
std::string ToKiloBit(std::string text) {
  if (text.empty()) return "";
  std::string grouped;
  if (text[0] == '-') grouped = "-", text.erase(0, 1);
  const auto n = static_cast<std::int64_t>(std::min(text.find('.'), text.size()));
  std::int64_t r = n % 3;
  std::int64_t i = 1;
  do {
    const bool first = grouped.empty() || grouped == "-";
    grouped += first ? plain::Substr(text, i, r) : "," + plain::Substr(text, i, 3);
    i = r + 1;
    r += 3;
  } while (n >= r);
  return grouped + text.substr(static_cast<std::size_t>(n));
}

std::string FilterLED(const std::string& text, Integer width, bool padLeft) {
  std::string field;
  std::int64_t count = 0;
  bool point = false;
  bool comma = false;
  for (const char c : text) {
    if (c == ' ' || c == '-' || c == 'E' || c == 'F' || (c >= '0' && c <= '9')) {
      if (count > width) break;
      ++count;
      field += c;
      point = comma = false;
    } else if ((c == '.' && !std::exchange(point, true)) || (c == ',' && !std::exchange(comma, true))) {
      field += c;
    }
  }
  for (; padLeft && count < width; ++count) field.insert(0, 1, ' ');
  return field;
}

}  // namespace

FUZZ_TARGET(Digits) {
  const Integer width = input.Small();
  const bool padLeft = input.Bit();
  const std::string text = input.Rest(300);
  const std::string number = QXToDigit::ToDigit(text);
  FUZZ_CHECK(number == ToDigit(text) && QXToDigit::ToDigit(number) == number);
  FUZZ_CHECK(QXToDigit::ToKiloBit(text) == ToKiloBit(text));
  FUZZ_CHECK(QXToDigit::FilterLED(text, width, padLeft) == FilterLED(text, width, padLeft));
  FUZZ_CHECK(QXStrTools::IntEx(text) == plain::IntEx(text));
}
