#include <qxTools/base/Ascii.h>
#include <qxTools/calendar/QXToDigit.h>

#include <algorithm>

namespace qxTools::QXToDigit {

namespace {

bool HasSegments(char c) { return IsDigit(c) || c == ' ' || c == '-' || c == 'E' || c == 'F'; }

}  // namespace

std::string ToDigit(std::string_view text) {
  std::string number;
  bool hasPoint = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (IsDigit(c)) {
      number += c;
    } else if (c == '-') {
      if (!number.empty()) break;
      number = "-";
    } else if (c == '.') {
      if (hasPoint && text[i - 1] != '.') break;
      if (hasPoint) continue;
      number += number.empty() || number == "-" ? "0." : ".";
      hasPoint = true;
    }
  }
  return number;
}

std::string ToKiloBit(std::string_view text) {
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  const std::size_t point = std::min(text.find('.'), text.size());
  std::size_t next =
      point - sign > 3 ? sign + (point - sign - 1) % 3 + 1 : point;  // where the next "," belongs
  std::string grouped;
  grouped.reserve(text.size() + (point - sign) / 3);
  grouped += text.substr(0, next);
  for (; next < point; next += 3) (grouped += ',').append(text, next, 3);
  grouped += text.substr(point);
  return grouped;
}

std::string Space(Integer count) { return std::string(count > 0 ? static_cast<std::size_t>(count) : 0, ' '); }

std::string FilterLED(std::string_view text, Integer width, bool padLeft) {
  std::string field;
  std::int64_t kept = 0;
  bool pointPasses = true;
  bool commaPasses = true;
  for (const char c : text) {
    if (HasSegments(c)) {
      if (kept > width) break;
      ++kept;
      field += c;
      pointPasses = commaPasses = true;
    } else if (c == '.' && pointPasses) {
      field += c;
      pointPasses = false;
    } else if (c == ',' && commaPasses) {
      field += c;
      commaPasses = false;
    }
  }
  if (padLeft && kept < width) field.insert(0, static_cast<std::size_t>(width - kept), ' ');
  return field;
}

}  // namespace qxTools::QXToDigit
