#include <qxTools/painting/Screen.h>

#include <limits>
#include <utility>

namespace qxTools {

namespace {

ScreenSource* pluggedInScreen = nullptr;

}  // namespace

ScreenSource::~ScreenSource() = default;

ScreenSource* SetScreenSource(ScreenSource* source) { return std::exchange(pluggedInScreen, source); }

TPoint GetScreenSize() {
  constexpr Integer kNoLimit = std::numeric_limits<Integer>::max();
  return pluggedInScreen != nullptr ? pluggedInScreen->GetScreenSize() : TPoint{kNoLimit, kNoLimit};
}

bool GetWindowRect(WindowHandle window, TRect& rect) {
  return pluggedInScreen != nullptr && pluggedInScreen->GetWindowRect(window, rect);
}

}  // namespace qxTools
