#include <qxTools/platform/Random.h>

#include <algorithm>
#include <random>

namespace qxTools {

namespace {

RandomSource* pluggedIn = nullptr;

std::mt19937& BuiltIn() {
  static std::mt19937 generator;  // the standard's default seed: one fixed state
  return generator;
}

}  // namespace

RandomSource::~RandomSource() = default;

RandomSource* SetRandomSource(RandomSource* source) {
  RandomSource* const before = pluggedIn;
  pluggedIn = source;
  return before;
}

void DrawRandom(std::uint32_t* numbers, std::size_t count) {
  if (pluggedIn != nullptr) return pluggedIn->Draw(numbers, count);
  std::generate_n(numbers, count, [&] { return static_cast<std::uint32_t>(BuiltIn()()); });
}

}  // namespace qxTools
