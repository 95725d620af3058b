#include <qxTools/base/CaselessHash.h>
#include <qxTools/sql/ParameterNames.h>

#include <algorithm>
#include <bit>

namespace qxTools::QXSqlTools {

namespace {

/// The hash of a text and one more name character, in any case. Turning by seven bits, which hold a name
/// character, keeps up with the reading.
std::uint64_t WithLetter(std::uint64_t hash, char c) {
  return std::rotl(hash, 7) ^ (static_cast<unsigned char>(c) & 0xDFU);
}

HashTag TagOf(std::uint64_t hash) { return {static_cast<std::uint32_t>(hash * 0x9E3779B97F4A7C15 >> 32)}; }

}  // namespace

void ParameterNames::Add(std::string upperName, Integer item) {
  std::uint64_t hash = 0;
  for (const char c : upperName) hash = WithLetter(hash, c);
  const std::size_t size = upperName.size();
  const auto place = std::ranges::lower_bound(sizes_, size);
  if (place == sizes_.end() || *place != size) sizes_.insert(place, size);
  names_.resize(static_cast<std::size_t>(item));
  names_.push_back(std::move(upperName));
  index_.Insert({item, size}, TagOf(hash),
                [&](const Match& other) { return IsName(other.item, names_.back()); });
}

bool ParameterNames::IsName(Integer item, std::string_view text) const {
  return SameHashedName(names_[static_cast<std::size_t>(item)], text);
}

ParameterNames::Match ParameterNames::Find(std::string_view run) const {
  Match best;
  std::uint64_t hash = 0;
  std::size_t read = 0;
  for (const std::size_t size : sizes_) {
    if (size > run.size()) break;
    for (; read < size; ++read) hash = WithLetter(hash, run[read]);
    const Match* const found =
        index_.Find(TagOf(hash), [&](const Match& match) { return IsName(match.item, run.substr(0, size)); });
    if (found != nullptr && (best.item < 0 || found->item < best.item)) best = *found;
  }
  return best;
}

}  // namespace qxTools::QXSqlTools
