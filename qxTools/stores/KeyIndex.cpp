#include <qxTools/stores/KeyIndex.h>

#include <cstring>

namespace qxTools::qxTreeList {

namespace {

constexpr std::size_t kFirstSize = 16;

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

// The slot that holds the key, or the free one where it belongs.
std::size_t KeyIndex::SlotOf(const TNodeKey& key, std::size_t hash) const {
  std::size_t slot = hash & Mask();
  while (FSlots[slot].link != nullptr && !(FSlots[slot].hash == hash && FSlots[slot].node->Key == key))
    slot = (slot + 1) & Mask();
  return slot;
}

pQXTreeNodeLink KeyIndex::Find(const TNodeKey& key) const {
  return FSlots.empty() ? nullptr : FSlots[SlotOf(key, Hash()(key))].link;
}

bool KeyIndex::IsShared(const TNodeKey& key) const { return !FShared.empty() && FShared.contains(key); }

void KeyIndex::Insert(pQXTreeNodeLink link) {
  const TNodeKey& key = link->Node->Key;
  if (IsShared(key)) {
    ++FShared[key];
    return;
  }
  if (FUsed * 4 >= FSlots.size() * 3) Grow();
  const std::size_t hash = Hash()(key);
  const std::size_t slot = SlotOf(key, hash);
  if (FSlots[slot].link == nullptr) {
    FSlots[slot] = {link, link->Node, hash};
    ++FUsed;
  } else {
    FShared.emplace(key, 2);
    EmptySlot(slot);
  }
}

void KeyIndex::Erase(pQXTreeNodeLink link) {
  const TNodeKey& key = link->Node->Key;
  if (!IsShared(key)) return EmptySlot(SlotOf(key, Hash()(key)));
  const auto shared = FShared.find(key);
  if (--shared->second == 0) FShared.erase(shared);
}

// Moves up what a search would no longer reach behind the gap.
void KeyIndex::EmptySlot(std::size_t slot) {
  for (std::size_t next = (slot + 1) & Mask(); FSlots[next].link != nullptr; next = (next + 1) & Mask()) {
    const std::size_t fromHome = (next - FSlots[next].hash) & Mask();
    const std::size_t fromGap = (next - slot) & Mask();
    if (fromHome < fromGap) continue;
    FSlots[slot] = FSlots[next];
    slot = next;
  }
  FSlots[slot] = {};
  --FUsed;
}

void KeyIndex::Grow() {
  std::vector<Slot> old(FSlots.empty() ? kFirstSize : FSlots.size() * 2);
  old.swap(FSlots);
  for (const Slot& entry : old) {
    if (entry.link == nullptr) continue;
    std::size_t slot = entry.hash & Mask();
    while (FSlots[slot].link != nullptr) slot = (slot + 1) & Mask();
    FSlots[slot] = entry;
  }
}

}  // namespace qxTools::qxTreeList
