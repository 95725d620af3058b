#include <qxTools/base/Ascii.h>
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/Numbers.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace qxTools::QXDateTools {

namespace {

using QXStrTools::IntEx;

// Source files are UTF-8; text that must be BIG5 is written as bytes.
constexpr char kYearMark[] = "\xA6\x7E";   // 年
constexpr char kMonthMark[] = "\xA4\xEB";  // 月
constexpr char kDayMark[] = "\xA4\xE9";    // 日

// On purpose: Sunday is at both ends, so that it can be counted as 0 or as 7.
constexpr const char* kWeekNames[] = {
    "\xAC\x50\xB4\xC1\xA4\xE9",  // 星期日
    "\xAC\x50\xB4\xC1\xA4\x40",  // 星期一
    "\xAC\x50\xB4\xC1\xA4\x47",  // 星期二
    "\xAC\x50\xB4\xC1\xA4\x54",  // 星期三
    "\xAC\x50\xB4\xC1\xA5\x7C",  // 星期四
    "\xAC\x50\xB4\xC1\xA4\xAD",  // 星期五
    "\xAC\x50\xB4\xC1\xA4\xBB",  // 星期六
    "\xAC\x50\xB4\xC1\xA4\xE9",  // 星期日
};

constexpr Integer kDaysPerMonth[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

/// On purpose by its own rule for 29 February.
Integer LastDayToEncode(unsigned year, unsigned month) {
  return month == 2 && year % 400 == 0 ? 29 : kDaysPerMonth[month];
}

Integer Encode(TDateTime& date, Integer year, Integer month, Integer day) {
  return EnCodeDateEx(date, static_cast<std::uint16_t>(year), static_cast<std::uint8_t>(month),
                      static_cast<std::uint8_t>(day));
}

Integer ReadCompact(TDateTime& date, std::string_view text) {
  if (text.size() != 6 && text.size() != 8) return kBadYear;
  const std::size_t yearDigits = text.size() - 4;
  return Encode(date, IntEx(text.substr(0, yearDigits)), IntEx(text.substr(yearDigits, 2)),
                IntEx(text.substr(yearDigits + 2)));
}

bool Holds(std::string_view text, char c) { return text.find(c) != std::string_view::npos; }

struct Field {
  Integer number;
  std::size_t end;
};

/// The field from `begin` to the separator, or to the end of the text. Nearly all are digits and nothing
/// else: these are read in the pass that looks for the separator.
Field ReadField(std::string_view text, std::size_t begin, char separator) {
  std::uint32_t number = 0;
  std::size_t end = begin;
  for (; end < text.size() && IsDigit(text[end]); ++end)
    number = number * 10 + static_cast<std::uint32_t>(text[end] - '0');
  if (end == text.size() || text[end] == separator) return {static_cast<Integer>(number), end};
  end = std::min(text.find(separator, end), text.size());
  return {IntEx(text.substr(begin, end - begin)), end};
}

Integer ReadDate(TDateTime& date, std::string_view text, char separator) {
  const Field year = ReadField(text, 0, separator);
  if (year.end == text.size()) return ReadCompact(date, text);
  const Integer fullYear = year.number < 100 ? year.number + 1900 : year.number;
  const Field month = ReadField(text, year.end + 1, separator);
  if (month.end == text.size()) return Encode(date, fullYear, 0, 0);
  return Encode(date, fullYear, month.number, IntEx(text.substr(month.end + 1)));
}

/// 00 to 99: a date is written in pairs of digits.
constexpr auto kPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i)
    pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
  return pairs;
}();

void PutPair(std::string& text, std::size_t position, int value) {
  std::copy_n(&kPairs[static_cast<std::size_t>(value) * 2], 2, &text[position]);
}

std::string YearMonthCn(const DateParts& date) {
  return std::to_string(date.Year) + kYearMark + std::to_string(date.Month) + kMonthMark;
}

}  // namespace

Integer EnCodeDateEx(TDateTime& date, std::uint16_t year, std::uint8_t month, std::uint8_t day) {
  if (year < 1 || year > 9999) return kBadYear;
  if (month < 1 || month > 12) return kBadMonth;
  if (day < 1 || day > LastDayToEncode(year, month)) return kBadDay;
  date = EncodeDate(year, month, day);
  return kDateValid;
}

Integer DeCodeDateEx(TDateTime, std::uint16_t&, std::uint8_t&, std::uint8_t&) { return kDateValid; }

Integer StrToDateEx(TDateTime& date, std::string_view text) {
  if (text.empty()) date = 0;
  return ReadDate(date, text, Holds(text, '/') ? '/' : '-');
}

TDateTime StrToDate2(std::string_view text) {
  TDateTime date = 0;
  ReadDate(date, text, Holds(text, '-') ? '-' : '/');
  return date;
}

bool CheckStrDate(std::string_view text) {
  TDateTime date = 0;
  return StrToDateEx(date, text) == kDateValid;
}

std::string DateToStrEx(TDateTime date, char separator) {
  const DateParts parts = DecodeDate(date);
  std::string text = "0000-00-00";
  text[4] = text[7] = separator;
  PutPair(text, 0, parts.Year / 100);
  PutPair(text, 2, parts.Year % 100);
  PutPair(text, 5, parts.Month);
  PutPair(text, 8, parts.Day);
  return text;
}

std::string DateToFile(TDateTime date) {
  const DateParts parts = DecodeDate(date);
  std::string text = "00000000";
  PutPair(text, 0, parts.Year / 100);
  PutPair(text, 2, parts.Year % 100);
  PutPair(text, 4, parts.Month);
  PutPair(text, 6, parts.Day);
  return text;
}

std::string ChinaDate(TDateTime date) {
  const DateParts parts = DecodeDate(date);
  return YearMonthCn(parts) + std::to_string(parts.Day) + kDayMark;
}

std::string ChinaDate(std::string_view text) { return ChinaDate(StrToDate(text)); }

std::string YearMonthCn(TDateTime date) { return YearMonthCn(DecodeDate(date)); }

std::string YearMonthCn(std::string_view text) { return YearMonthCn(StrToDate(text)); }

std::string ChinaWeek(Integer index) {
  return index >= 0 && index < std::ssize(kWeekNames) ? kWeekNames[index] : "";
}

std::string ChinaWeek(TDateTime date) { return ChinaWeek(Week(date)); }

Integer Year(TDateTime date) { return DecodeDate(date).Year; }

Integer Month(TDateTime date) { return DecodeDate(date).Month; }

Integer Day(TDateTime date) { return DecodeDate(date).Day; }

bool IsLeapYear(Integer year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

Integer DaysPerMonth(Integer year, Integer month) {
  if (month < 1 || month > 12) return 0;
  return kDaysPerMonth[month] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

Integer DaysPerMonth(TDateTime date) {
  const DateParts parts = DecodeDate(date);
  return DaysPerMonth(parts.Year, parts.Month);
}

Integer Week(Integer year, Integer month, Integer day) {
  // The year begins in March. Sums are made in 64 bits and cut, so that they wrap.
  const bool lastYear = month < 3;
  const Integer m = lastYear ? month + 10 : month - 2;
  const auto y = static_cast<Integer>(std::int64_t{year} - lastYear);
  const Integer century = y / 100;
  const Integer k = y % 100;
  const auto thirteenths = static_cast<Integer>(std::int64_t{26} * m - 2);
  const auto sum = static_cast<Integer>(std::int64_t{thirteenths / 10} + day + k + k / 4 + century / 4 -
                                        std::int64_t{2} * century);
  const Integer week = sum % 7;
  return week < 0 ? week + 7 : week;
}

Integer Week(TDateTime date) {
  constexpr Integer kWholeWeeks = 700000;          // makes the sum positive, from the year 1 on
  return (DayNumber(date) + kWholeWeeks + 6) % 7;  // day 0 is a Saturday
}

Integer Week(std::string_view text) { return Week(StrToDate(text)); }

Integer DaysOfBetween(TDateTime first, TDateTime second) {
  const double distance = second - first;
  if (std::abs(distance) < 1e9 && distance == static_cast<Integer>(distance))  // whole days, as nearly always
    return static_cast<Integer>(distance) + 1;
  const double days = std::rint(distance);
  return RoundToInteger(std::isnan(days) ? 1 : days + 1);
}

Integer DaysOfBetween(std::string_view first, std::string_view second) {
  const TDateTime last = StrToDate(second);
  return DaysOfBetween(StrToDate(first), last);
}

TDateTime DateAdd(TDateTime date, Integer days) { return date + days; }

std::string DateAdd(std::string_view text, Integer days) { return DateToStr(StrToDate(text) + days); }

TDateTime FirstDayOfMonth(TDateTime date) {
  const DateParts parts = DecodeDate(date);
  return EncodeDate(parts.Year, parts.Month, 1);
}

TDateTime LastDayOfMonth(TDateTime date) {
  const DateParts parts = DecodeDate(date);
  return EncodeDate(parts.Year, parts.Month, DaysPerMonth(parts.Year, parts.Month));
}

TDateTime Today() { return Date(); }

}  // namespace qxTools::QXDateTools
