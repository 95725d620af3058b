// qxtool key: fresh record keys.
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/platform/Random.h>

#include <memory>

#include "Commands.h"
#include "TextIo.h"

namespace qxtool {

namespace {

/// With the system's random numbers: two runs at the same moment must not give the same keys.
void Run(int count) {
  static qxTools::SystemRandomSource random;
  qxTools::SetRandomSource(&random);
  for (int i = 0; i < count; ++i) Print(qxTools::QXUniKey::UniKey() + "\n");
}

}  // namespace

void AddKeyCommand(Command program) {
  const auto count = std::make_shared<int>(1);
  Command command = program.Add("key", "Make record keys of 16 characters");
  command.Example("key -n 3");
  command.Number("-n", *count, "How many").Positive().ShowDefault();
  command.OnRun([count] {
    Run(*count);
    return kDone;
  });
}

}  // namespace qxtool
