#include <qxTools/platform/Clock.h>
#include <qxTools/platform/SystemClock.h>

#include <utility>

namespace qxTools {

namespace {

ClockSource* pluggedIn = nullptr;

}  // namespace

ClockSource::~ClockSource() = default;

ClockSource* SetClockSource(ClockSource* source) { return std::exchange(pluggedIn, source); }

TDateTime Now() { return pluggedIn != nullptr ? pluggedIn->Now() : SystemNow(); }

}  // namespace qxTools
