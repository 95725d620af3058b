#include <qxTools/base/Search.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>
#include <limits>

namespace qxTools::QXStrTools {

namespace {

// The offset of the n-th occurrence, or npos.
std::size_t OffsetOf(std::string_view sub, std::string_view s, Integer n) {
  if (n <= 0) return std::string_view::npos;
  const std::size_t wanted = static_cast<std::size_t>(n);
  const Search::Way way = Search::WayTo(sub, s, wanted);
  return way.count == wanted ? way.last : std::string_view::npos;
}

}  // namespace

bool Atc(std::string_view a, std::string_view b) { return b.starts_with(a); }

Integer At(std::string_view sub, std::string_view s, Integer n) {
  if (n == 0 || sub.empty()) return 0;
  const std::size_t offset = OffsetOf(sub, s, n);
  if (offset != std::string_view::npos) return static_cast<Integer>(offset + 1);
  const std::string_view tail = s.substr(s.size() - std::min(s.size(), sub.size() - 1));
  return tail.find(sub.front()) != std::string_view::npos ? -1 : 0;
}

Integer Occurs(std::string_view sub, std::string_view s) {
  return static_cast<Integer>(Search::WayTo(sub, s, std::numeric_limits<std::size_t>::max()).count);
}

std::string GetAt(std::string_view sep, std::string_view s, Integer n) {
  const std::size_t wanted = static_cast<std::size_t>(std::max(n, 1));
  const Search::Way way = Search::WayTo(sep, s, wanted);
  if (way.count == 0) return std::string(s);
  if (n <= 0) return std::string();
  if (way.count < wanted) return std::string(s.substr(way.last + sep.size()));
  const std::size_t begin = n == 1 ? 0 : way.before + sep.size();
  // Overlapping separators leave no field between them.
  return begin < way.last ? std::string(s.substr(begin, way.last - begin)) : std::string();
}

std::string GetAtLeft(std::string_view sep, std::string_view s, Integer n) {
  return std::string(s.substr(0, OffsetOf(sep, s, n)));
}

std::string GetAtRight(std::string_view sep, std::string_view s, Integer n) {
  const std::size_t offset = OffsetOf(sep, s, n);
  return std::string(offset != std::string_view::npos ? s.substr(offset + sep.size()) : s);
}

}  // namespace qxTools::QXStrTools
