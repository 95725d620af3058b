// Looks for collisions: eight processes' worth of generators make keys in turn, so that their time stamps lie
// as close together as they can. Prints the number of keys and of collisions; fails when there is one.
//
//   unikey_soak [keys, by default 10000000]
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/platform/Random.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

using Key = std::array<char, 16>;

class Generator : public qxTools::RandomSource {
 public:
  explicit Generator(std::uint32_t seed) : generator_(seed) {}
  void Draw(std::uint32_t* numbers, std::size_t count) override {
    std::generate_n(numbers, count, [&] { return static_cast<std::uint32_t>(generator_()); });
  }

 private:
  std::mt19937 generator_;
};

std::vector<Key> MakeKeys(std::size_t count) {
  std::vector<Generator> generators;
  for (std::uint32_t seed = 1; seed <= 8; ++seed) generators.emplace_back(seed);
  std::vector<Key> keys(count);
  for (std::size_t i = 0; i < count; ++i) {
    qxTools::SetRandomSource(&generators[i % generators.size()]);
    const std::string key = qxTools::QXUniKey::UniKey();
    std::copy_n(key.begin(), keys[i].size(), keys[i].begin());
  }
  qxTools::SetRandomSource(nullptr);
  return keys;
}

}  // namespace

int main(int argc, char** argv) {
  const std::size_t count = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 10000000;
  std::vector<Key> keys = MakeKeys(count);
  std::sort(keys.begin(), keys.end());
  const auto different = std::unique(keys.begin(), keys.end()) - keys.begin();
  const std::size_t collisions = count - static_cast<std::size_t>(different);
  std::printf("%zu keys, %zu collisions\n", count, collisions);
  return collisions == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
