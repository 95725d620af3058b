// Runs targets over stored inputs: replay TARGET FOLDER...
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "Target.h"

namespace qxTools::fuzz {

namespace {

std::map<std::string, Target>& Targets() {
  static std::map<std::string, Target> targets;
  return targets;
}

int Replay(const std::string& name, int folderCount, char** folders) {
  const auto target = Targets().find(name);
  if (target == Targets().end()) return std::fprintf(stderr, "no target %s\n", name.c_str()), 2;
  int inputs = 0;
  for (int i = 0; i < folderCount; ++i) {
    if (!std::filesystem::is_directory(folders[i])) continue;
    for (const auto& entry : std::filesystem::directory_iterator(folders[i])) {
      std::printf("%s\n", entry.path().c_str());
      std::fflush(stdout);
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
      Input input(bytes);
      target->second(input);
      ++inputs;
    }
  }
  return inputs > 0 ? 0 : (std::fprintf(stderr, "no inputs for %s\n", name.c_str()), 1);
}

}  // namespace

bool Register(const char* name, Target target) { return Targets().emplace(name, target).second; }

}  // namespace qxTools::fuzz

int main(int count, char** words) {
  if (count < 3) return std::fprintf(stderr, "replay TARGET FOLDER...\n"), 2;
  return qxTools::fuzz::Replay(words[1], count - 2, words + 2);
}
