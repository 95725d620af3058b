#include <qxTools/platform/Clock.h>

#include <cstdlib>
#include <ctime>

#include "support/Testing.h"

namespace {

using qxTools::Now;

TEST(Clock, TellsLocalTime) {
  setenv("TZ", "QXT+3:30", 1);
  tzset();
  for (int i = 0; i < 3; ++i) {
    const double utc = 25569.0 + static_cast<double>(std::time(nullptr)) / 86400.0;
    EXPECT_NEAR((Now() - utc) * 24, -3.5, 0.01);
  }
}

}  // namespace
