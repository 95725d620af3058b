#include <qxTools/stores/IniPairs.h>

#include <algorithm>
#include <cstring>

namespace qxTools::qxIniTools {

using QXMemTools::MemFree;
using stores::MakeZeroedBlock;
using stores::ZeroedBlock;

namespace {

std::size_t RoomFor(std::string_view text) { return text.empty() ? 0 : text.size() + 1; }

// The text at `place`, where zeros are; null for an empty one.
char* Put(std::string_view text, char* place) {
  if (text.empty()) return nullptr;
  text.copy(place, text.size());
  return place;
}

// Whether the text is in the pair's own block, and not in one that a longer value got later.
bool IsInside(const char* text, const TQXIniPair* pair) {
  const auto distance = reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(pair);
  return distance < QXMemTools::MemSize(pair);
}

void FreeValue(pQXIniPair pair) {
  if (!IsInside(pair->Value, pair)) MemFree(pair->Value);
}

}  // namespace

ZeroedBlock MakePair(std::string_view name, std::string_view value) {
  ZeroedBlock block = MakeZeroedBlock(sizeof(TQXIniPair) + RoomFor(name) + RoomFor(value));
  auto* const pair = new (block.get()) TQXIniPair();
  char* const texts = reinterpret_cast<char*>(pair + 1);
  pair->Name = Put(name, texts);
  pair->Value = Put(value, texts + RoomFor(name));
  return block;
}

void SetPairValue(pQXIniPair pair, std::string_view value) {
  ZeroedBlock copy = value.empty() ? nullptr : MakeZeroedBlock(RoomFor(value));
  char* const text = Put(value, static_cast<char*>(copy.get()));
  FreeValue(pair);
  pair->Value = text;
  static_cast<void>(copy.release());
}

void FreePair(pQXIniPair pair) {
  FreeValue(pair);
  MemFree(pair);
}

KeptPairs::~KeptPairs() {
  for (const pQXIniPair pair : pairs_) FreePair(pair);
}

void KeptPairs::Reserve(std::size_t more) {
  const std::size_t needed = pairs_.size() + more;
  if (needed > pairs_.capacity()) pairs_.reserve(std::max(needed, pairs_.size() * 2));
}

void KeptPairs::Keep(pQXTreeNode node) {
  if (PairOf(node) == nullptr) return;
  pairs_.push_back(PairOf(node));
  node->Data = nullptr;
}

}  // namespace qxTools::qxIniTools
