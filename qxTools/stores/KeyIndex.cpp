#include <qxTools/stores/KeyIndex.h>
#include <qxTools/stores/NodePool.h>

#include <cstring>

namespace qxTools::qxTreeList {

KeyIndex::KeyBytes::KeyBytes(const TNodeKey& key) {
  const std::string_view text = key;
  if (text.size() == sizeof words) {
    std::memcpy(words, text.data(), sizeof words);  // the usual case, of a size known beforehand
  } else {
    std::memcpy(words, text.data(), text.size());
  }
}

// Keys hold the time in the middle and random marks everywhere: both words are mixed into all bits.
std::size_t KeyIndex::KeyBytes::Hash() const {
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;  // 2^64 by the golden ratio
  const std::uint64_t first = words[0] * factor;
  const std::uint64_t both = (first ^ first >> 32 ^ words[1]) * factor;
  return static_cast<std::size_t>(both ^ both >> 32);
}

bool KeyIndex::KeyBytes::IsWhole() const {
  char last = 0;
  std::memcpy(&last, reinterpret_cast<const char*>(words) + sizeof words - 1, 1);
  return last != 0;
}

namespace {

// The links of equal bytes that have the key. A whole key's are not even read.
auto HasKey(const TNodeKey& key, bool whole) {
  return [&key, whole](pQXTreeNodeLink link) { return whole || NodeOf(link)->Key == key; };
}

}  // namespace

pQXTreeNodeLink KeyIndex::Find(const TNodeKey& key) const {
  const KeyBytes bytes(key);
  const pQXTreeNodeLink* const found = links_.Find(bytes, HasKey(key, bytes.IsWhole()));
  return found != nullptr ? *found : nullptr;
}

bool KeyIndex::IsShared(const TNodeKey& key) const { return !shared_.empty() && shared_.contains(key); }

void KeyIndex::Insert(pQXTreeNodeLink link) {
  const TNodeKey& key = link->Node->Key;
  if (IsShared(key)) {
    ++shared_[key];
    return;
  }
  const KeyBytes bytes(key);
  if (links_.Insert(link, bytes, HasKey(key, bytes.IsWhole())) == link) return;
  shared_.emplace(key, 2);
  links_.Erase(bytes, HasKey(key, bytes.IsWhole()));
}

void KeyIndex::Erase(pQXTreeNodeLink link) {
  const TNodeKey& key = link->Node->Key;
  if (!IsShared(key)) {
    const KeyBytes bytes(key);
    return links_.Erase(bytes, HasKey(key, bytes.IsWhole()));
  }
  const auto shared = shared_.find(key);
  if (--shared->second == 0) shared_.erase(shared);
}

}  // namespace qxTools::qxTreeList
