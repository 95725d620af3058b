#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Clock.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/runtime/Numbers.h>

#include <array>
#include <chrono>
#include <cmath>

namespace qxTools {

namespace {

constexpr std::int64_t kMillisecondsPerDay = 86400000;

constexpr std::chrono::year_month_day CalendarDate(int year, int month, int day) {
  return std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)} /
         std::chrono::day{static_cast<unsigned>(day)};
}

constexpr std::int64_t DaysTo(std::chrono::year_month_day date) {
  return (std::chrono::sys_days{date} - kDayZero).count();
}

constexpr std::int64_t kFirstDay = DaysTo(CalendarDate(1, 1, 1));
constexpr std::int64_t kLastDay = DaysTo(CalendarDate(9999, 12, 31));

/// The moment in milliseconds; its day is the quotient by kMillisecondsPerDay, truncated.
std::int64_t Milliseconds(TDateTime date) {
  // Not nearbyint, which saves and restores the processor's floating-point state.
  const long double rounded = std::rint(static_cast<long double>(date) * kMillisecondsPerDay);
  if (!(rounded > (kFirstDay - 1) * kMillisecondsPerDay && rounded < (kLastDay + 1) * kMillisecondsPerDay))
    throw EConvertError("'" + FloatToStr(date) + "' is not a valid date");
  return static_cast<std::int64_t>(rounded);
}

void AppendNumber(std::string& text, int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

void AppendPart(std::string& text, char part, std::size_t width, const DateParts& date) {
  if (part == 'y')
    AppendNumber(text, width > 2 ? date.Year : date.Year % 100, width > 2 ? 4 : 2);
  else
    AppendNumber(text, part == 'm' ? date.Month : date.Day, width);
}

bool IsPart(char c) { return c == 'y' || c == 'm' || c == 'd'; }

/// The first letters of the runs in the short date format, in order: "ymd".
std::string PartOrder(const std::string& format) {
  std::string order;
  for (const char c : format)
    if (IsPart(c) && order.find(c) == std::string::npos) order += c;
  return order;
}

/// Takes blanks, digits and blanks off the front of `text`.
bool TakeNumber(std::string_view& text, int& value, std::size_t& digits) {
  const auto skipBlanks = [&] {
    while (text.starts_with(' ')) text.remove_prefix(1);
  };
  skipBlanks();
  value = 0;
  for (digits = 0; !text.empty() && IsDigit(text[0]); ++digits) {
    if (value > 9999) return false;
    value = value * 10 + (text[0] - '0');
    text.remove_prefix(1);
  }
  skipBlanks();
  return digits > 0;
}

int FullYear(int year, std::size_t digits) {
  if (digits > 2) return year;
  const int start = GetFormatSettings().TwoDigitYearStart;
  const int full = start - start % 100 + year;
  return full < start ? full + 100 : full;
}

bool ReadDate(std::string_view text, DateParts& date) {
  const FormatSettings& settings = GetFormatSettings();
  const std::string order = PartOrder(settings.ShortDateFormat);
  if (order.size() != 3) return false;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0) {
      if (!text.starts_with(settings.DateSeparator)) return false;
      text.remove_prefix(1);
    }
    int value = 0;
    std::size_t digits = 0;
    if (!TakeNumber(text, value, digits)) return false;
    if (order[i] == 'y')
      date.Year = FullYear(value, digits);
    else
      (order[i] == 'm' ? date.Month : date.Day) = value;
  }
  return text.empty() && IsValidDate(date.Year, date.Month, date.Day);
}

}  // namespace

int DaysInMonth(int year, int month) {
  return static_cast<int>(static_cast<unsigned>(
      (std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)} / std::chrono::last)
          .day()));
}

bool IsValidDate(int year, int month, int day) {
  return year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
         (day <= 28 || day <= DaysInMonth(year, month));
}

TDateTime EncodeDate(int year, int month, int day) {
  if (!IsValidDate(year, month, day)) [[unlikely]]
    throw EConvertError("Invalid argument to date encode");
  return static_cast<TDateTime>(DaysTo(CalendarDate(year, month, day)));
}

std::int32_t DayNumber(TDateTime date) {
  if (date >= kFirstDay && date <= kLastDay) {
    const auto day = static_cast<std::int32_t>(date);
    if (day == date) return day;  // midnight needs no rounding, and is what most dates are
  }
  return static_cast<std::int32_t>(Milliseconds(date) / kMillisecondsPerDay);
}

TimeParts DecodeTime(TDateTime date) {
  const int time = static_cast<int>(std::abs(Milliseconds(date) % kMillisecondsPerDay));
  return {time / 3600000, time / 60000 % 60, time / 1000 % 60, time % 1000};
}

std::string DateToStr(TDateTime date) {
  const DateParts parts = DecodeDate(date);
  const FormatSettings& settings = GetFormatSettings();
  const std::string& format = settings.ShortDateFormat;
  std::string text;
  for (std::size_t i = 0; i < format.size();) {
    const std::size_t end = std::min(format.find_first_not_of(format[i], i), format.size());
    if (IsPart(format[i])) {
      AppendPart(text, format[i], end - i, parts);
      i = end;
    } else {
      text += format[i] == '/' ? settings.DateSeparator : format[i];
      ++i;
    }
  }
  return text;
}

std::string DateTimeToStr(TDateTime date) {
  std::string text = DateToStr(date);
  const TimeParts time = DecodeTime(date);
  if (time == TimeParts{}) return text;
  char mark = ' ';
  for (const int value : {time.Hour, time.Minute, time.Second}) {
    text += mark;
    AppendNumber(text, value, 2);
    mark = ':';
  }
  return text;
}

TDateTime StrToDate(std::string_view text) {
  DateParts date;
  if (!ReadDate(text, date)) throw EConvertError("'" + std::string(text) + "' is not a valid date");
  return EncodeDate(date.Year, date.Month, date.Day);
}

TDateTime Date() { return std::trunc(Now()); }

}  // namespace qxTools
