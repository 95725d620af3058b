#include <qxTools/platform/SystemClock.h>
#include <windows.h>

#include <cstdint>

namespace qxTools {

TDateTime SystemNow() {
  constexpr std::int64_t kTicksPerDay = 864'000'000'000;
  constexpr std::int64_t kZeroDate = 109205;  // 30 December 1899 in days since 1 January 1601
  FILETIME now;
  FILETIME local;
  ::GetSystemTimePreciseAsFileTime(&now);
  ::FileTimeToLocalFileTime(&now, &local);
  const std::int64_t ticks = std::int64_t{local.dwHighDateTime} << 32 | local.dwLowDateTime;
  const auto day = static_cast<double>(ticks / kTicksPerDay - kZeroDate);
  return day + static_cast<double>(ticks % kTicksPerDay) / static_cast<double>(kTicksPerDay);
}

}  // namespace qxTools
