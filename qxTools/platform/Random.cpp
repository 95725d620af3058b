#include <qxTools/platform/Random.h>

#include <algorithm>
#include <functional>
#include <random>

namespace qxTools {

namespace {

RandomSource* pluggedInRandom = nullptr;

std::uint64_t state = 0;  // the one fixed state that every process starts from

// SplitMix64 (Steele, Lea and Flood, 2014), of whose numbers the upper half is taken.
std::uint32_t DrawBuiltIn(std::uint64_t& from) {
  from += 0x9E3779B97F4A7C15;
  std::uint64_t mixed = (from ^ from >> 30) * 0xBF58476D1CE4E5B9;
  mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
  return static_cast<std::uint32_t>((mixed ^ mixed >> 31) >> 32);
}

}  // namespace

RandomSource::~RandomSource() = default;

struct SystemRandomSource::Device {
  std::random_device numbers;
};

SystemRandomSource::SystemRandomSource() : device_(std::make_unique<Device>()) {}

SystemRandomSource::~SystemRandomSource() = default;

void SystemRandomSource::Draw(std::uint32_t* numbers, std::size_t count) {
  std::generate_n(numbers, count, std::ref(device_->numbers));
}

RandomSource* SetRandomSource(RandomSource* source) {
  RandomSource* const before = pluggedInRandom;
  pluggedInRandom = source;
  return before;
}

void DrawRandom(std::uint32_t* numbers, std::size_t count) {
  if (pluggedInRandom != nullptr) return pluggedInRandom->Draw(numbers, count);
  std::uint64_t from = state;  // beside the loop, so that no draw waits for memory
  std::generate_n(numbers, count, [&from] { return DrawBuiltIn(from); });
  state = from;
}

}  // namespace qxTools
