// Reading a date of the ROC calendar.
#include <qxTools/base/Ascii.h>
#include <qxTools/base/AsciiFastPath.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/calendar/ChineseNumerals.h>
#include <qxTools/calendar/MinguoWords.h>
#include <qxTools/calendar/QXMinguoDate.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>

#include <chrono>

namespace qxTools::QXMinguoDate {

namespace {

constexpr char kChineseRepublic[] = "\xA4\xA4\xB5\xD8\xA5\xC1\xB0\xEA";  // 中華民國

constexpr char kNoForm[] = "the form is not one of 113/5/1, 113.5.1, 113-5-1, 1130501 and the Chinese ones";
constexpr char kGregorianYear[] = "a ROC year has at most three digits";
constexpr char kYearZero[] = "there is no year 0";
constexpr char kBadMonth[] = "the month is not 1 to 12";
constexpr char kNoDayZero[] = "there is no day 0";
constexpr const char* kShortMonth[] = {"the month has only 28 days", "the month has only 29 days",
                                       "the month has only 30 days", "the month has only 31 days"};
constexpr char kRule[] = "a year of one or two digits is a ROC year";

/// A number as it is written. Numerals count as three digits if they are 100 or more, otherwise as two.
struct Number {
  int value = 0;
  int digits = 0;  // 0 if there is no number
  bool numerals = false;
};

/// What a text says, before it is checked against the calendar.
struct Parts {
  bool named = false;   // with 民國 or 民前
  bool before = false;  // before the year 1
  Number year;
  Number month;
  Number day;
};

bool Take(std::string_view& text, std::string_view mark) {
  if (!text.starts_with(mark)) return false;
  text.remove_prefix(mark.size());
  return true;
}

/// The ASCII character that a full-width one is written for; NUL for any other.
char Narrow(char lead, char trail) {
  const int second = static_cast<unsigned char>(trail);
  if (lead == '\xA2' && second >= 0xAF && second <= 0xB8)
    return static_cast<char>('0' + second - 0xAF);  // ０
  if (lead != '\xA1') return '\0';
  return second == 0xFE ? '/' : second == 0x44 ? '.' : second == 0xD0 ? '-' : '\0';  // ／ ． －
}

/// The text with ASCII digits and separators in place of full-width ones.
std::string Narrowed(std::string_view text) {
  std::string narrow;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = static_cast<unsigned char>(text[i]) >= 0x80 && i + 1 < text.size();
    const char c = pair ? Narrow(text[i], text[i + 1]) : text[i];
    if (c != '\0' || !pair)
      narrow += c;
    else
      narrow.append(text, i, 2);
    if (pair) ++i;
  }
  return narrow;
}

/// Nine digits are more than any form has, so the value does not overflow.
Number TakeDigits(std::string_view& text) {
  Number number;
  std::size_t i = 0;
  for (; i < text.size() && i < 9 && IsDigit(text[i]); ++i)
    number.value = number.value * 10 + (text[i] - '0');
  number.digits = static_cast<int>(i);
  text.remove_prefix(i);
  return number;
}

Number TakeNumber(std::string_view& text) {
  const Number number = TakeDigits(text);
  if (number.digits > 0) return number;
  const int value = calendar::TakeNumerals(text);
  return {value, value == 0 ? 0 : value < 100 ? 2 : 3, true};
}

Number TakeYear(std::string_view& text) { return Take(text, kFirst) ? Number{1, 2, true} : TakeNumber(text); }

/// The separator at the front, or NUL.
char TakeSeparator(std::string_view& text) {
  const char c = text.empty() ? '\0' : text[0];
  if (c != '/' && c != '.' && c != '-') return '\0';
  text.remove_prefix(1);
  return c;
}

/// The rest of 113年5月1日 after 年.
bool TakeChinese(std::string_view text, Parts& parts) {
  parts.month = TakeNumber(text);
  if (!Take(text, kMonth)) return false;
  parts.day = TakeNumber(text);
  return Take(text, kDay) && text.empty();
}

/// The rest of 113/5/1 after the year.
bool TakeSeparated(std::string_view text, Parts& parts) {
  const char separator = TakeSeparator(text);
  parts.month = TakeDigits(text);
  if (separator == '\0' || TakeSeparator(text) != separator) return false;
  parts.day = TakeDigits(text);
  return text.empty() && !parts.year.numerals;
}

/// The parts of 1130501 and 990102, which are all in the year.
bool SplitCompact(Parts& parts) {
  const Number whole = parts.year;
  if (whole.numerals || whole.digits < 6) return false;
  parts.year = {whole.value / 10000, whole.digits - 4};
  parts.month = {whole.value / 100 % 100, 2};
  parts.day = {whole.value % 100, 2};
  return true;
}

void TakeEra(std::string_view& text, Parts& parts) {
  const bool republic = Take(text, kChineseRepublic) || Take(text, kRepublic);
  parts.before = Take(text, republic ? kBefore : kBeforeRepublic);
  parts.named = republic || parts.before;
}

bool TakeParts(std::string_view text, Parts& parts) {
  if (!text.empty() && !IsDigit(text[0])) TakeEra(text, parts);
  parts.year = TakeYear(text);
  const bool split = Take(text, kYear) ? TakeChinese(text, parts)
                     : text.empty()    ? SplitCompact(parts)
                                       : TakeSeparated(text, parts);
  const auto fits = [](const Number& number) { return number.digits == 1 || number.digits == 2; };
  return split && parts.year.digits > 0 && fits(parts.month) && fits(parts.day);
}

constexpr std::chrono::year_month_day CalendarDate(int year, const Parts& parts) {
  return std::chrono::year{year} / parts.month.value / parts.day.value;
}

/// Why the calendar does not have the date; "" if it has.
const char* ErrorOf(const Parts& parts, int year) {
  if (parts.year.digits > 3) return kGregorianYear;
  if (parts.year.value == 0) return kYearZero;
  if (parts.month.value < 1 || parts.month.value > 12) return kBadMonth;
  if (parts.day.value < 1) return kNoDayZero;
  if (CalendarDate(year, parts).ok()) return "";
  return kShortMonth[DaysInMonth(year, parts.month.value) - 28];
}

/// The year in the hundred years that the format settings give to years of two digits.
int GregorianYear(int year) {
  const int start = GetFormatSettings().TwoDigitYearStart;
  const int full = start - start % 100 + year;
  return full < start ? full + 100 : full;
}

void ReportOther(const Parts& parts, TMinguoReading& reading) {
  if (parts.named || parts.year.digits > 2) return;
  const int year = GregorianYear(parts.year.value);
  if (!IsValidDate(year, parts.month.value, parts.day.value)) return;
  reading.Rule = kRule;
  reading.Gregorian = EncodeDate(year, parts.month.value, parts.day.value);
}

}  // namespace

TMinguoReading ReadMinguo(std::string_view text) {
  TMinguoReading reading;
  Parts parts;
  const bool ascii = IsAllAscii(text.data(), text.data() + text.size());
  if (!(ascii ? TakeParts(text, parts) : TakeParts(Narrowed(text), parts))) {
    reading.Error = kNoForm;
    return reading;
  }
  const int year = parts.before ? 1912 - parts.year.value : 1911 + parts.year.value;
  reading.Error = ErrorOf(parts, year);
  if (*reading.Error != '\0') return reading;
  reading.Date =
      static_cast<TDateTime>((std::chrono::sys_days{CalendarDate(year, parts)} - kDayZero).count());
  ReportOther(parts, reading);
  return reading;
}

TDateTime MinguoToDate(std::string_view text) {
  const TMinguoReading reading = ReadMinguo(text);
  if (*reading.Error == '\0') return reading.Date;
  throw EConvertError("'" + std::string(text) + "' is not a ROC date: " + reading.Error);
}

}  // namespace qxTools::QXMinguoDate
