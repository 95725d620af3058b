#include <qxTools/platform/Clock.h>
#include <qxTools/platform/SystemClock.h>

#include <utility>

namespace qxTools {

namespace {

ClockSource* pluggedInClock = nullptr;

}  // namespace

ClockSource::~ClockSource() = default;

ClockSource* SetClockSource(ClockSource* source) { return std::exchange(pluggedInClock, source); }

TDateTime Now() { return pluggedInClock != nullptr ? pluggedInClock->Now() : SystemNow(); }

}  // namespace qxTools
