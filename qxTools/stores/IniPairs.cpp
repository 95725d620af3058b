#include <qxTools/stores/IniPairs.h>

#include <algorithm>
#include <utility>

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

TQXIniPair MakeTexts(std::string_view name, std::string_view value) {
  ZeroedBlock block = MakeZeroedBlock(RoomFor(name) + RoomFor(value));
  char* const texts = static_cast<char*>(block.release());
  return {Put(name, texts), Put(value, texts + RoomFor(name))};
}

bool IsInside(const char* text, const void* start, std::size_t size) {
  return reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(start) < size;
}

}  // namespace

Pairs::~Pairs() {
  for (const pQXIniPair pair : kept_) FreeTexts(*pair);
}

std::string_view Pairs::Load(std::string&& text) {
  std::string(std::move(text)).swap(loaded_);
  if (kept_.empty()) pool_.FreeFrom(1);
  return loaded_;
}

bool Pairs::IsLoaded(const char* text) const {
  return IsInside(text, loaded_.data(), loaded_.size());  // no text begins at the zero after it
}

char* Pairs::EndInPlace(std::string_view piece) {
  if (piece.empty()) return nullptr;
  const auto start = static_cast<std::size_t>(piece.data() - loaded_.data());
  loaded_[start + piece.size()] = '\0';
  return &loaded_[start];
}

pQXIniPair Pairs::MakeLoaded(std::string_view name, std::string_view value) {
  const pQXIniPair pair = pool_.Make();
  *pair = {EndInPlace(name), EndInPlace(value)};
  return pair;
}

pQXIniPair Pairs::Make(std::string_view name, std::string_view value) {
  const pQXIniPair pair = pool_.Make();
  try {
    *pair = MakeTexts(name, value);
  } catch (...) {
    pool_.Free(pair);
    throw;
  }
  return pair;
}

void Pairs::SetValue(pQXIniPair pair, std::string_view value) {
  char* const text = MakeTexts({}, value).Value;
  FreeValue(*pair);
  pair->Value = text;
}

void Pairs::FreeValue(const TQXIniPair& pair) {
  const bool isBesideName = !IsLoaded(pair.Name) && pair.Name != nullptr &&
                            IsInside(pair.Value, pair.Name, QXMemTools::MemSize(pair.Name));
  if (!IsLoaded(pair.Value) && !isBesideName) MemFree(pair.Value);
}

void Pairs::FreeTexts(const TQXIniPair& pair) {
  FreeValue(pair);
  if (!IsLoaded(pair.Name)) MemFree(pair.Name);
}

void Pairs::Free(pQXIniPair pair) {
  FreeTexts(*pair);
  pool_.Free(pair);
}

void Pairs::Reserve(std::size_t more) {
  const std::size_t needed = kept_.size() + more;
  if (needed > kept_.capacity()) kept_.reserve(std::max(needed, kept_.size() * 2));
}

void Pairs::OwnTexts(pQXTreeNode node) {
  const pQXIniPair pair = PairOf(node);
  if (pair != nullptr && (IsLoaded(pair->Name) || IsLoaded(pair->Value)))
    FreeTexts(std::exchange(*pair, MakeTexts(View(pair->Name), View(pair->Value))));
}

void Pairs::Keep(pQXTreeNode node) {
  if (PairOf(node) == nullptr) return;
  kept_.push_back(PairOf(node));
  node->Data = nullptr;
}

}  // namespace qxTools::qxIniTools
