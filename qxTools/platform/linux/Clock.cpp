#include <qxTools/platform/Clock.h>

#include <ctime>

namespace qxTools {

namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kUnixEpoch = 25569.0;  // 1 January 1970 in days since 30 December 1899

ClockSource* pluggedIn = nullptr;

TDateTime SystemNow() {
  timespec time{};
  clock_gettime(CLOCK_REALTIME, &time);
  tm local{};
  localtime_r(&time.tv_sec, &local);
  const auto localSeconds = time.tv_sec + local.tm_gmtoff;
  const auto day = localSeconds / 86400 - (localSeconds % 86400 < 0 ? 1 : 0);
  const double seconds =
      static_cast<double>(localSeconds - day * 86400) + static_cast<double>(time.tv_nsec) * 1e-9;
  return kUnixEpoch + static_cast<double>(day) + seconds / kSecondsPerDay;
}

}  // namespace

ClockSource::~ClockSource() = default;

ClockSource* SetClockSource(ClockSource* source) {
  ClockSource* const before = pluggedIn;
  pluggedIn = source;
  return before;
}

TDateTime Now() { return pluggedIn != nullptr ? pluggedIn->Now() : SystemNow(); }

}  // namespace qxTools
