#include <qxTools/base/CaselessHash.h>
#include <qxTools/sql/ParameterNames.h>

#include <algorithm>

namespace qxTools::QXSqlTools {

ParameterNames::ParameterNames(std::size_t count) {
  names_.reserve(count);
  index_.Reserve(count);
}

void ParameterNames::Add(std::string_view name, Integer item) {
  const auto place = std::ranges::lower_bound(sizes_, name.size());
  if (place == sizes_.end() || *place != name.size()) sizes_.insert(place, name.size());
  names_.resize(static_cast<std::size_t>(item));
  names_.push_back(name);
  index_.Insert({item}, {CaselessHash(name)}, [&](Place other) { return IsName(other, name); });
}

bool ParameterNames::IsName(Place place, std::string_view text) const {
  return SameHashedName(names_[static_cast<std::size_t>(place.item)], text);
}

ParameterNames::Match ParameterNames::Find(std::string_view run) const {
  Match best;
  CaselessPrefixes prefixes(run);
  for (const std::size_t size : sizes_) {
    if (size > run.size()) break;
    const auto isName = [&](Place place) { return IsName(place, run.substr(0, size)); };
    const Place* const found = index_.Find({prefixes.HashOf(size)}, isName);
    if (found != nullptr && (best.item < 0 || found->item < best.item)) best = {found->item, size};
  }
  return best;
}

}  // namespace qxTools::QXSqlTools
