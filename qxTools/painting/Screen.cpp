#include <qxTools/painting/Screen.h>

#include <limits>
#include <utility>

namespace qxTools {

namespace {

ScreenSource* pluggedIn = nullptr;

}  // namespace

ScreenSource::~ScreenSource() = default;

ScreenSource* SetScreenSource(ScreenSource* source) { return std::exchange(pluggedIn, source); }

TPoint GetScreenSize() {
  constexpr Integer kNoLimit = std::numeric_limits<Integer>::max();
  return pluggedIn != nullptr ? pluggedIn->GetScreenSize() : TPoint{kNoLimit, kNoLimit};
}

bool GetWindowRect(WindowHandle window, TRect& rect) {
  return pluggedIn != nullptr && pluggedIn->GetWindowRect(window, rect);
}

}  // namespace qxTools
