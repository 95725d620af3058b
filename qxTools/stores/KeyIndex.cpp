#include <qxTools/stores/KeyIndex.h>
#include <qxTools/stores/NodePool.h>

#include <cstring>

namespace qxTools::qxTreeList {

namespace {

auto HasKey(const TNodeKey& key) {
  return [&key](pQXTreeNodeLink link) { return NodeBehind(link).Key == key; };
}

}  // namespace

// Keys hold the time in the middle and random marks everywhere: both words are mixed into all bits.
std::size_t KeyIndex::Hash::operator()(const TNodeKey& key) const {
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;  // 2^64 by the golden ratio
  const std::string_view text = key;
  std::uint64_t words[2] = {0, 0};
  if (text.size() == sizeof words) {
    std::memcpy(words, text.data(), sizeof words);  // the usual case, of a size known beforehand
  } else {
    std::memcpy(words, text.data(), text.size());
  }
  std::uint64_t hash = (words[0] + text.size()) * factor;
  hash = (hash ^ hash >> 32 ^ words[1]) * factor;
  return static_cast<std::size_t>(hash ^ hash >> 32);
}

pQXTreeNodeLink KeyIndex::Find(const TNodeKey& key) const { return FLinks.Find(Hash()(key), HasKey(key)); }

bool KeyIndex::IsShared(const TNodeKey& key) const { return !FShared.empty() && FShared.contains(key); }

void KeyIndex::Insert(pQXTreeNodeLink link) {
  const TNodeKey& key = link->Node->Key;
  if (IsShared(key)) {
    ++FShared[key];
    return;
  }
  const std::size_t hash = Hash()(key);
  if (FLinks.Insert(link, hash, HasKey(key)) == nullptr) return;
  FShared.emplace(key, 2);
  FLinks.Erase(hash, HasKey(key));
}

void KeyIndex::Erase(pQXTreeNodeLink link) {
  const TNodeKey& key = link->Node->Key;
  if (!IsShared(key)) return FLinks.Erase(Hash()(key), HasKey(key));
  const auto shared = FShared.find(key);
  if (--shared->second == 0) FShared.erase(shared);
}

}  // namespace qxTools::qxTreeList
