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

Integer HourOf(std::string_view text) { return QXStrTools::IntEx(HourText(text)); }

Integer MinuteOf(std::string_view text) { return QXStrTools::IntEx(MinuteText(text)); }

std::string TimeText(Integer hour, Integer minute) {
  return QXStrTools::SerialNO("00", hour) + ":" + QXStrTools::SerialNO("00", minute);
}

bool HasShape(std::string_view text) {
  return text.size() == kLength && text.find(':') != std::string_view::npos;
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
  if (text.empty()) return BaseTime;
  if (!HasShape(text)) throw Exception("'" + std::string(text) + "' is invalid TSTime format.");
  Integer hour = HourOf(text);
  Integer minute = MinuteOf(text);
  if (minute > 60) {
    ++hour;
    minute %= 60;
  }
  minute = std::max(minute, 0);
  hour = WrapHour(hour, maxHour);
  if (hour == maxHour && minute >= 1) hour = 0;
  return TimeText(std::max(hour, 0), minute);
}

Integer TimetoMin(std::string_view text, Integer maxHour) {
  const std::string time = CheckTime(text, maxHour);
  return HourOf(time) * 60 + MinuteOf(time);
}

std::string MintoTime(Integer minutes, Integer maxHour) {
  const Integer minute = std::max(minutes % 60, 0);
  Integer hour = WrapHour(minutes / 60, maxHour);
  if (hour == maxHour && minute > 0) hour = 0;
  return TimeText(std::max(hour, 0), minute);
}

Integer Hour(std::string_view text, Integer maxHour) {
  CheckTime(text, maxHour);
  return HourOf(text);
}

Integer Minute(std::string_view text, Integer maxHour) {
  CheckTime(text, maxHour);
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
