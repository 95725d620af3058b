// qxtool key: fresh record keys.
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/platform/Random.h>

#include <memory>
#include <random>

#include "Commands.h"
#include "TextIo.h"

namespace qxtool {

namespace {

/// The system's random numbers: two runs at the same moment must not give the same keys.
class SystemRandom : public qxTools::RandomSource {
 public:
  void Draw(std::uint32_t* numbers, std::size_t count) override {
    for (std::size_t i = 0; i < count; ++i) numbers[i] = device_();
  }

 private:
  std::random_device device_;
};

void Run(int count) {
  SystemRandom random;
  qxTools::SetRandomSource(&random);
  for (int i = 0; i < count; ++i) Print(qxTools::QXUniKey::UniKey() + "\n");
  qxTools::SetRandomSource(nullptr);
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
