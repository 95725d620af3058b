// Times of day as text, against their wording.
#include <qxTools/calendar/QXTimeTools.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
namespace plain = fuzz::plain;

Integer Cut(std::int64_t value) { return static_cast<Integer>(static_cast<std::uint32_t>(value)); }

/// What stands where a division by zero was.
using Result = std::optional<std::string>;

std::string Text(std::int64_t hour, std::int64_t minute) {
  const auto two = [](std::int64_t n) { return (n < 10 ? "0" : "") + std::to_string(n); };
  return two(hour) + ":" + two(minute);
}

Result Normal(std::int64_t hour, std::int64_t minute, std::int64_t maxHour) {
  if (hour > maxHour && maxHour == 0) return std::nullopt;
  if (hour > maxHour) hour %= maxHour;
  if (hour == maxHour && minute >= 1) hour = 0;
  return Text(std::max<std::int64_t>(hour, 0), minute);
}

Integer Hours(const std::string& text) { return plain::IntEx(plain::Substr(text, 1, 2)); }
Integer Minutes(const std::string& text) { return plain::IntEx(plain::Substr(text, 4, 2)); }

Result Check(const std::string& text, Integer maxHour) {
  if (text.empty()) return QXTimeTools::BaseTime;
  std::int64_t hour = Hours(text);
  std::int64_t minute = Minutes(text);
  if (minute > 60) ++hour, minute %= 60;
  return Normal(hour, std::max<std::int64_t>(minute, 0), maxHour);
}

Result OfMinutes(Integer minutes, Integer maxHour) {
  return Normal(minutes / 60, std::max(minutes % 60, 0), maxHour);
}

std::optional<Integer> MinutesOf(const std::string& text, Integer maxHour) {
  const Result time = Check(text, maxHour);
  return time ? std::optional(Hours(*time) * 60 + Minutes(*time)) : std::nullopt;
}

Result Sub(Integer time, Integer minutes, Integer maxHour) {
  if (minutes > time) {
    const Integer day = Cut(std::int64_t{maxHour} * 60);
    if (day == 0) return std::nullopt;
    time = Cut(std::int64_t{time} + Cut(std::int64_t{Cut(std::int64_t{minutes} / day + 1)} * day));
  }
  return OfMinutes(Cut(std::int64_t{time} - minutes), maxHour);
}

bool HasShape(const std::string& text) {
  return text.empty() || (text.size() == 5 && text.find(':') != plain::kNone);
}

bool IsFormed(const std::string& text, Integer maxHour) {
  if (text.size() != 5 || text[2] != ':') return false;
  for (const std::size_t i : {0U, 1U, 3U, 4U})
    if (text[i] < '0' || text[i] > '9') return false;
  return Hours(text) <= maxHour && Minutes(text) < 60;
}

/// The library's result, nothing for a division by zero.
template <class Call>
auto Of(Call&& call) {
  std::string error;
  auto result = fuzz::Try(call, &error);
  FUZZ_CHECK(result || error == "Division by zero");
  return result;
}

}  // namespace

FUZZ_TARGET(Times) {
  using namespace QXTimeTools;
  const Integer maxHour = input.Bit() ? input.Small() : input.Number();
  const Integer minutes = input.Bit() ? input.Number<std::int16_t>() : input.Number();
  const std::string text = input.Text(8);
  const std::string other = input.Text(8);

  FUZZ_CHECK(CheckTimeFormat(text, maxHour) == IsFormed(text, maxHour));
  FUZZ_CHECK(Of([&] { return MintoTime(minutes, maxHour); }) == OfMinutes(minutes, maxHour));
  if (!HasShape(text) || !HasShape(other)) {
    std::string error;
    FUZZ_CHECK(!fuzz::Completes([&] { CompTime(text, other, maxHour); }, &error));
    const std::string& first = HasShape(text) ? other : text;
    FUZZ_CHECK(error == fuzz::Message("'" + first + "' is invalid TSTime format.") ||
               error == "Division by zero");
    return;
  }
  const auto time = MinutesOf(text, maxHour);
  const auto otherTime = MinutesOf(other, maxHour);
  FUZZ_CHECK(Of([&] { return CheckTime(text, maxHour); }) == Check(text, maxHour));
  FUZZ_CHECK(Of([&] { return TimetoMin(text, maxHour); }) == time);
  if (!time || !otherTime) return;
  FUZZ_CHECK(Of([&] { return AddTime(text, minutes, maxHour); }) ==
             OfMinutes(Cut(std::int64_t{*time} + minutes), maxHour));
  FUZZ_CHECK(Of([&] { return AddTime(text, other, maxHour); }) == OfMinutes(*time + *otherTime, maxHour));
  FUZZ_CHECK(Of([&] { return SubTime(text, minutes, maxHour); }) == Sub(*time, minutes, maxHour));
  FUZZ_CHECK(Of([&] { return SubTime(text, other, maxHour); }) == Sub(*time, *otherTime, maxHour));
  FUZZ_CHECK(CompTime(text, other, maxHour) == *time - *otherTime);
  FUZZ_CHECK(BetWeen(text, other, text, maxHour) && BetWeen(text, text, other, maxHour));
  FUZZ_CHECK(BetWeen(text, other, other, maxHour) == (*time == *otherTime));
}
