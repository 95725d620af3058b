#include <qxTools/base/Search.h>

namespace qxTools::Search {

Automaton::Automaton(std::string_view sub) : sub_(sub), borders_(sub.size()) {
  std::size_t matched = 0;
  for (std::size_t i = 1; i < sub.size(); ++i) borders_[i] = matched = Feed(matched, sub[i]);
}

namespace {

QXTOOLS_ALSO_FOR_AVX2
Way WalkTo(std::string_view sub, std::string_view s, std::size_t n) {
  Way way;
  if (sub.empty()) return way;
  VisitMarks(sub, s, [&](std::size_t base, std::uint64_t marks) {
    const std::size_t count = way.count + CountMarks(marks);
    if (count < n) {
      way = {count, base + HighestMark(marks), 0};
      return true;
    }
    for (; way.count < n; marks &= marks - 1) way = {way.count + 1, base + LowestMark(marks), way.last};
    return false;
  });
  return way;
}

}  // namespace

// A function of its own, since the one for two processors would add its choice to the library's interface.
Way WayTo(std::string_view sub, std::string_view s, std::size_t n) { return WalkTo(sub, s, n); }

}  // namespace qxTools::Search
