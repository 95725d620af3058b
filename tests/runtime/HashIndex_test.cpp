#include <qxTools/runtime/HashIndex.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;

/// Place 0 is no value, and -1 is a free slot.
struct Place {
  int number = -1;
  bool operator==(const Place&) const = default;
};

// Few hashes for many names, at the table's end and at its start: values stand far from home, and around it.
TEST(HashIndex, AgreesWithAMapWhateverHashesAreEqual) {
  std::mt19937 random(5);
  for (const std::size_t hashes : {1U, 3U, 1000U}) {
    HashIndex<Place> index;
    std::map<std::string, int> map;
    std::vector<std::string> names;
    const auto tagOf = [&](const std::string& name) {
      return HashTag{static_cast<std::uint32_t>(std::stoul(name) % hashes - 1)};
    };
    for (int step = 0; step < 3000; ++step) {
      const std::string name = std::to_string(random() % 300);
      const auto matches = [&](Place place) { return names[static_cast<std::size_t>(place.number)] == name; };
      const auto found = map.find(name);
      const Place* const place = index.Find(tagOf(name), matches);
      ASSERT_EQ(place != nullptr ? place->number : -1, found != map.end() ? found->second : -1);
      if (random() % 2 == 0) {
        const Place next{static_cast<int>(names.size())};
        names.push_back(name);
        Place& inserted = index.Insert(next, tagOf(name), matches);
        ASSERT_EQ(inserted.number, map.emplace(name, next.number).first->second);
        inserted = next;  // the owner may change a value in its place
        map[name] = next.number;
      } else if (found != map.end()) {
        index.Erase(tagOf(name), matches);
        map.erase(found);
      }
      if (step == 1000) index.Reserve(5000);
    }
    index.Clear();
    EXPECT_EQ(index.Find(HashTag(), [](Place) { return true; }), nullptr);
  }
}

}  // namespace
