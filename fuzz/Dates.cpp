// Dates as text: the numeric forms against their wording, and what is written read again.
#include <qxTools/calendar/QXDateTools.h>
#include <qxTools/runtime/DateTime.h>

#include <bit>
#include <chrono>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
using namespace QXDateTools;
namespace plain = fuzz::plain;

struct Numbers {
  std::uint16_t year = 0;
  std::uint8_t month = 0;
  std::uint8_t day = 0;
};

Numbers ReadNumbers(const std::string& text, char separator) {
  std::int32_t year = 0;
  std::int32_t month = 0;
  std::int32_t day = 0;
  const std::string sep(1, separator);
  const std::int32_t size = static_cast<std::int32_t>(text.size());
  const auto part = [&](std::int32_t start, std::int32_t count) {
    return plain::IntEx(plain::Substr(text, start, count));
  };
  if (plain::At(sep, text, 1) >= 1) {
    const std::int32_t first = plain::At(sep, text, 1);
    const std::int32_t second = plain::At(sep, text, 2);
    year = part(1, first - 1);
    month = part(first + 1, second - first - 1);
    day = part(second + 1, size - second);
    if (year < 100) year = static_cast<std::int32_t>(static_cast<std::uint32_t>(year) + 1900);
  } else if (size == 6 || size == 8) {
    year = part(1, size - 4);
    month = part(size - 3, 2);
    day = part(size - 1, 2);
  }
  return {static_cast<std::uint16_t>(year), static_cast<std::uint8_t>(month), static_cast<std::uint8_t>(day)};
}

Integer CodeOf(const Numbers& numbers) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (numbers.year < 1 || numbers.year > 9999) return kBadYear;
  if (numbers.month < 1 || numbers.month > 12) return kBadMonth;
  const bool longFebruary = numbers.month == 2 && numbers.year % 400 == 0;
  const int days = kDays[numbers.month - 1] + (longFebruary ? 1 : 0);
  return numbers.day < 1 || numbers.day > days ? kBadDay : kDateValid;
}

void CheckReading(const std::string& text) {
  const bool slash = text.find('/') != plain::kNone;
  const bool dash = text.find('-') != plain::kNone;
  const Numbers numbers = ReadNumbers(text, slash ? '/' : '-');
  const Integer code = CodeOf(numbers);
  const TDateTime before = 12345;
  TDateTime date = before;
  FUZZ_CHECK(StrToDateEx(date, text) == code && CheckStrDate(text) == (code == kDateValid));
  if (code == kDateValid)
    FUZZ_CHECK(date == EncodeDate(numbers.year, numbers.month, numbers.day));
  else
    FUZZ_CHECK(date == (text.empty() ? 0 : before));

  const Numbers other = ReadNumbers(text, dash ? '-' : '/');
  const bool good = CodeOf(other) == kDateValid;
  FUZZ_CHECK(StrToDate2(text) == (good ? EncodeDate(other.year, other.month, other.day) : 0));
}

void CheckWriting(TDateTime moment) {
  std::string error;
  const auto parts = fuzz::Try([&] { return DecodeDate(moment); }, &error);
  FUZZ_CHECK(fuzz::Try([&] { return DateTimeToStr(moment); }).has_value() == parts.has_value());
  FUZZ_CHECK(fuzz::Try([&] { return ChinaDate(moment); }).has_value() == parts.has_value());
  if (!parts) return FUZZ_CHECK(error.ends_with(" is not a valid date"));
  const TDateTime date = EncodeDate(parts->Year, parts->Month, parts->Day);
  FUZZ_CHECK(StrToDate(DateToStr(moment)) == date);
  const bool leapDay = parts->Month == 2 && parts->Day == 29 && parts->Year % 400 != 0;
  TDateTime read = 0;
  FUZZ_CHECK(StrToDateEx(read, DateToFile(moment)) == (leapDay ? kBadDay : kDateValid));
  FUZZ_CHECK(leapDay || read == date);
  FUZZ_CHECK(parts->Year < 100 ||
             StrToDateEx(read, DateToStrEx(moment, '/')) == (leapDay ? kBadDay : kDateValid));
  FUZZ_CHECK(leapDay || read == date);
  const std::chrono::weekday day{kDayZero + std::chrono::days{static_cast<int>(date)}};
  FUZZ_CHECK(Week(moment) == static_cast<Integer>(day.c_encoding()));
  FUZZ_CHECK(FirstDayOfMonth(moment) + parts->Day - 1 == date);
  FUZZ_CHECK(LastDayOfMonth(moment) - FirstDayOfMonth(moment) + 1 == DaysPerMonth(moment));
}

}  // namespace

FUZZ_TARGET(Dates) {
  CheckWriting(std::bit_cast<double>(input.Number<std::uint64_t>()));
  CheckWriting(input.Number() / 1000.0);
  const std::string text = input.Rest(100);
  CheckReading(text);
  std::string error;
  const auto date = fuzz::Try([&] { return StrToDate(text); }, &error);
  FUZZ_CHECK(date ? StrToDate(DateToStr(*date)) == *date
                  : error == fuzz::Message("'" + text + "' is not a valid date"));
  FUZZ_CHECK(fuzz::Try([&] { return Week(text); }).has_value() == date.has_value());
  if (date) FUZZ_CHECK(DaysOfBetween(text, text) == 1 && DateAdd(text, 0) == DateToStr(*date));
}
