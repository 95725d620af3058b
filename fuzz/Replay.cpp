// Runs targets over stored inputs, and over some made from them: replay TARGET FOLDER...
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "Target.h"

namespace qxTools::fuzz {

namespace {

std::map<std::string, Target>& Targets() {
  static std::map<std::string, Target> targets;
  return targets;
}

constexpr int kEdited = 10000;  // inputs, the same in every run

/// One of the inputs after up to eight random edits.
std::string Edited(const std::vector<std::string>& inputs, std::mt19937& random) {
  std::string bytes = inputs[random() % inputs.size()];
  for (auto edits = random() % 8 + 1; edits > 0; --edits) {
    const std::string& other = inputs[random() % inputs.size()];
    const std::string& source = random() % 2 == 0 ? bytes : other;
    std::string piece = source.substr(random() % (source.size() + 1), random() % 8);
    if (random() % 4 == 0) piece = static_cast<char>(random());
    bytes.replace(random() % (bytes.size() + 1), random() % 8, piece);
  }
  return bytes;
}

int Replay(const std::string& name, int folderCount, char** folders) {
  const auto target = Targets().find(name);
  if (target == Targets().end()) return std::fprintf(stderr, "no target %s\n", name.c_str()), 2;
  std::vector<std::string> inputs;
  for (int i = 0; i < folderCount; ++i) {
    if (!std::filesystem::is_directory(folders[i])) continue;
    for (const auto& entry : std::filesystem::directory_iterator(folders[i])) {
      std::printf("%s\n", entry.path().string().c_str());
      std::fflush(stdout);
      std::ifstream file(entry.path(), std::ios::binary);
      inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
      Input input(inputs.back());
      target->second(input);
    }
  }
  if (inputs.empty()) return std::fprintf(stderr, "no inputs for %s\n", name.c_str()), 1;
  std::mt19937 random(1);
  for (int i = 0; i < kEdited; ++i) {
    const std::string bytes = Edited(inputs, random);
    Input input(bytes);
    target->second(input);
  }
  return 0;
}

}  // namespace

bool Register(const char* name, Target target) { return Targets().emplace(name, target).second; }

}  // namespace qxTools::fuzz

int main(int count, char** words) {
  if (count < 3) return std::fprintf(stderr, "replay TARGET FOLDER...\n"), 2;
  return qxTools::fuzz::Replay(words[1], count - 2, words + 2);
}
