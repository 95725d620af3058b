#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/calendar/QXTimeTools.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>

namespace qxTools::QXTimeTools {

namespace {

constexpr char kFirstTime[] = "00:00";
constexpr std::size_t kLength = 5;

// Source files are UTF-8; text that must be BIG5 is written as bytes.
constexpr char kHourMark[] = "\xAE\xC9";    // 時
constexpr char kMinuteMark[] = "\xA4\xC0";  // 分

std::string HourText(std::string_view text) { return QXStrTools::substr(text, 1, 2); }

std::string MinuteText(std::string_view text) { return QXStrTools::substr(text, 4, 2); }

/// What IntEx reads of two characters, which are two digits nearly always.
Integer Number(char tens, char ones) {
  if (IsDigit(tens) && IsDigit(ones)) return (tens - '0') * 10 + (ones - '0');
  const char text[] = {tens, ones};
  return QXStrTools::IntEx(std::string_view(text, 2));
}

Integer HourOf(std::string_view text) {
  return text.size() == kLength ? Number(text[0], text[1]) : QXStrTools::IntEx(HourText(text));
}

Integer MinuteOf(std::string_view text) {
  return text.size() == kLength ? Number(text[3], text[4]) : QXStrTools::IntEx(MinuteText(text));
}

/// A time that CheckTime or MintoTime has normalised: neither number is negative.
struct Time {
  Integer hour;
  Integer minute;
};

std::string ToText(const Time& time) {
  std::string text = "00:00";
  text[0] = static_cast<char>('0' + time.hour / 10 % 10);
  text[1] = static_cast<char>('0' + time.hour % 10);
  text[3] = static_cast<char>('0' + time.minute / 10);
  text[4] = static_cast<char>('0' + time.minute % 10);
  return time.hour < 100 ? text : std::to_string(time.hour) + text.substr(2);
}

bool HasShape(std::string_view text) {
  return text.size() == kLength && (text[2] == ':' || text.find(':') != std::string_view::npos);
}

Integer WrapHour(Integer hour, Integer maxHour) {
  if (hour <= maxHour) return hour;
  if (maxHour == 0) throw EDivByZero();
  return hour % maxHour;
}

Integer Sum(Integer a, Integer b) {
  return static_cast<Integer>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

Integer Difference(Integer a, Integer b) {
  return static_cast<Integer>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

Integer Product(Integer a, Integer b) {
  return static_cast<Integer>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

/// The whole days, in minutes, that let `minutes` be taken away.
Integer Borrowed(Integer minutes, Integer maxHour) {
  const Integer day = Product(maxHour, 60);
  if (day == 0) throw EDivByZero();
  return Product(Sum(minutes / day, 1), day);
}

/// Hour and minute with the last hour's rule: 24:00 stays, 24:05 is 00:05.
Time Wrapped(Integer hour, Integer minute, Integer maxHour) {
  hour = WrapHour(hour, maxHour);
  return {hour == maxHour && minute >= 1 ? 0 : std::max(hour, 0), minute};
}

/// The time of a text that is not empty, normalised.
Time Checked(std::string_view text, Integer maxHour) {
  if (!HasShape(text)) throw Exception("'" + std::string(text) + "' is invalid TSTime format.");
  const Integer hour = HourOf(text);
  const Integer minute = MinuteOf(text);
  const bool carries = minute > 60;
  return Wrapped(carries ? hour + 1 : hour, std::max(carries ? minute % 60 : minute, 0), maxHour);
}

}  // namespace

QXTOOLS_GLOBAL std::string BaseTime = kFirstTime;

void FillGlobals() { BaseTime = kFirstTime; }

void ReleaseGlobals() { std::string().swap(BaseTime); }

bool CheckTimeFormat(std::string_view text, Integer maxHour) {
  if (text.size() != kLength || text[2] != ':') return false;
  for (const std::size_t i : {0U, 1U, 3U, 4U})
    if (!IsDigit(text[i])) return false;
  return HourOf(text) <= maxHour && MinuteOf(text) < 60;
}

std::string CheckTime(std::string_view text, Integer maxHour) {
  return text.empty() ? BaseTime : ToText(Checked(text, maxHour));
}

Integer TimetoMin(std::string_view text, Integer maxHour) {
  if (text.empty()) return HourOf(BaseTime) * 60 + MinuteOf(BaseTime);
  const Time time = Checked(text, maxHour);
  if (time.hour < 100) return time.hour * 60 + time.minute;
  // On purpose: the canonical text is read by position, so 100:15 is 10 hours.
  const std::string canonical = ToText(time);
  return HourOf(canonical) * 60 + MinuteOf(canonical);
}

std::string MintoTime(Integer minutes, Integer maxHour) {
  return ToText(Wrapped(minutes / 60, std::max(minutes % 60, 0), maxHour));
}

Integer Hour(std::string_view text, Integer maxHour) {
  if (!text.empty()) Checked(text, maxHour);
  return HourOf(text);
}

Integer Minute(std::string_view text, Integer maxHour) {
  if (!text.empty()) Checked(text, maxHour);
  return MinuteOf(text);
}

std::string AddTime(std::string_view text, Integer minutes, Integer maxHour) {
  return MintoTime(Sum(TimetoMin(text, maxHour), minutes), maxHour);
}

std::string AddTime(std::string_view text1, std::string_view text2, Integer maxHour) {
  const Integer minutes = TimetoMin(text1, maxHour);
  return MintoTime(Sum(minutes, TimetoMin(text2, maxHour)), maxHour);
}

std::string SubTime(std::string_view text, Integer minutes, Integer maxHour) {
  Integer time = TimetoMin(text, maxHour);
  if (minutes > time) time = Sum(time, Borrowed(minutes, maxHour));
  return MintoTime(Difference(time, minutes), maxHour);
}

std::string SubTime(std::string_view text1, std::string_view text2, Integer maxHour) {
  const Integer minutes = TimetoMin(text2, maxHour);
  return SubTime(text1, minutes, maxHour);
}

Integer CompTime(std::string_view text1, std::string_view text2, Integer maxHour) {
  const Integer minutes = TimetoMin(text1, maxHour);
  return minutes - TimetoMin(text2, maxHour);
}

bool BetWeen(std::string_view text, std::string_view bound1, std::string_view bound2, Integer maxHour) {
  const Integer a = TimetoMin(bound1, maxHour);
  const Integer b = TimetoMin(bound2, maxHour);
  const Integer time = TimetoMin(text, maxHour);
  return std::min(a, b) <= time && time <= std::max(a, b);
}

std::string ChinaTime(std::string_view text) {
  return HourText(text) + kHourMark + MinuteText(text) + kMinuteMark;
}

std::string TimeToTST(TDateTime time) {
  const TimeParts parts = DecodeTime(time);
  return MintoTime(parts.Hour * 60 + parts.Minute, 24);
}

}  // namespace qxTools::QXTimeTools
