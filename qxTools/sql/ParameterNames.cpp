#include <qxTools/base/CaselessHash.h>
#include <qxTools/sql/ParameterNames.h>

#include <algorithm>

namespace qxTools::QXSqlTools {

void ParameterNames::Add(std::string_view name, Integer item) {
  const auto place = std::ranges::lower_bound(sizes_, name.size());
  if (place == sizes_.end() || *place != name.size()) sizes_.insert(place, name.size());
  names_.resize(static_cast<std::size_t>(item));
  names_.push_back(name);
  index_.Insert({item, name.size()}, {CaselessHash(name)},
                [&](const Match& other) { return IsName(other.item, name); });
}

bool ParameterNames::IsName(Integer item, std::string_view text) const {
  return SameHashedName(names_[static_cast<std::size_t>(item)], text);
}

ParameterNames::Match ParameterNames::Find(std::string_view run) const {
  Match best;
  CaselessPrefixes prefixes(run);
  for (const std::size_t size : sizes_) {
    if (size > run.size()) break;
    const Match* const found = index_.Find(
        {prefixes.HashOf(size)}, [&](const Match& match) { return IsName(match.item, run.substr(0, size)); });
    if (found != nullptr && (best.item < 0 || found->item < best.item)) best = *found;
  }
  return best;
}

}  // namespace qxTools::QXSqlTools
