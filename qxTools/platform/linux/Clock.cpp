#include <qxTools/platform/SystemClock.h>

#include <atomic>
#include <ctime>
#include <limits>

namespace qxTools {

namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kUnixEpoch = 25569.0;  // 1 January 1970 in days since 30 December 1899

// The UTC offset of the second that was last asked for: the second above kOffsetBits, the offset in them. One
// word, so that threads never see half of it; one second, so that a change of the offset is not missed.
constexpr int kOffsetBits = 20;
constexpr std::int64_t kZeroOffset = 1 << (kOffsetBits - 1);
std::atomic<std::int64_t> lastOffset{std::numeric_limits<std::int64_t>::min()};

std::int64_t OffsetAt(std::time_t second) {
  const std::int64_t last = lastOffset.load(std::memory_order_relaxed);
  const std::int64_t start = std::int64_t{second} << kOffsetBits;
  if (last >> kOffsetBits == second) return last - start - kZeroOffset;
  tm local{};
  localtime_r(&second, &local);
  lastOffset.store(start + kZeroOffset + local.tm_gmtoff, std::memory_order_relaxed);
  return local.tm_gmtoff;
}

}  // namespace

TDateTime SystemNow() {
  timespec time{};
  clock_gettime(CLOCK_REALTIME, &time);
  const std::int64_t local = time.tv_sec + OffsetAt(time.tv_sec);
  const std::int64_t day = local / 86400 - (local % 86400 < 0 ? 1 : 0);
  const double seconds = static_cast<double>(local - day * 86400) + static_cast<double>(time.tv_nsec) * 1e-9;
  return kUnixEpoch + static_cast<double>(day) + seconds / kSecondsPerDay;
}

}  // namespace qxTools
