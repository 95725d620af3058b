#include <qxTools/base/Ascii.h>
#include <qxTools/sql/ParameterNames.h>

namespace qxTools::QXSqlTools {

namespace {

constexpr std::uint64_t kNoText = 0xCBF29CE484222325;  // FNV-1a

std::uint64_t WithLetter(std::uint64_t hash, char upper) {
  return (hash ^ static_cast<unsigned char>(upper)) * 0x100000001B3;
}

HashTag TagOf(std::uint64_t hash) { return {static_cast<std::size_t>(hash ^ hash >> 32)}; }

}  // namespace

void ParameterNames::Add(std::string upperName, Integer item) {
  std::uint64_t hash = kNoText;
  for (const char c : upperName) hash = WithLetter(hash, c);
  const std::size_t size = upperName.size();
  if (size >= hasSize_.size()) hasSize_.resize(size + 1);
  hasSize_[size] = true;
  names_.resize(static_cast<std::size_t>(item));
  names_.push_back(std::move(upperName));
  index_.Insert({item, size}, TagOf(hash),
                [&](const Match& other) { return IsName(other.item, names_.back()); });
}

bool ParameterNames::IsName(Integer item, std::string_view text) const {
  const std::string& name = names_[static_cast<std::size_t>(item)];
  return std::ranges::equal(name, text, {}, {}, UpperChar);
}

ParameterNames::Match ParameterNames::Find(std::string_view run) const {
  Match best;
  std::uint64_t hash = kNoText;
  for (std::size_t size = 0; size < hasSize_.size(); ++size) {
    if (hasSize_[size]) {
      const Match* const found = index_.Find(
          TagOf(hash), [&](const Match& match) { return IsName(match.item, run.substr(0, size)); });
      if (found != nullptr && (best.item < 0 || found->item < best.item)) best = *found;
    }
    if (size == run.size()) break;
    hash = WithLetter(hash, UpperChar(run[size]));
  }
  return best;
}

}  // namespace qxTools::QXSqlTools
