#include <qxTools/base/Lines.h>
#include <qxTools/platform/Files.h>
#include <qxTools/stores/IniLines.h>
#include <qxTools/stores/IniLookup.h>

namespace qxTools::qxIniTools {

using qxTreeList::IsInSubtree;
using qxTreeList::LastChildOf;
using qxTreeList::NodeOf;

namespace {

constexpr char kSectionNotOpen[] = "RootKey not Open.";
constexpr char kRecordNotOpen[] = "Item Key not open.";

bool SetIfFound(pQXTreeNodeLink link, pQXTreeNode& node) {
  if (link != nullptr) node = link->Node;
  return link != nullptr;
}

// On purpose: only pairs of sections and of values in records are freed. Others come about when a value was
// opened as a record, or something was added to a record that was deleted.
bool IsFreed(pQXTreeNode node) { return node->Level == 1 || node->Level == 3; }

}  // namespace

EIniLoadError::~EIniLoadError() = default;

struct TQXIniFile::State {
  qxTreeList::TQXTreeNodes tree{};
  std::string rootKeyName{};
  bool rootOpened = false;
  bool itemOpened = false;
  bool loaded = false;
  pQXTreeNodeLink section = nullptr;  // the open ones, null once they are deleted
  pQXTreeNodeLink record = nullptr;
  Pairs pairs{};
  Lookup lookup{};

  pQXTreeNodeLink FindSection(std::string_view name) {
    return lookup.sections.Find(tree.GetRootLink(), name);
  }
  pQXTreeNodeLink FindNumber(Integer index);
  pQXTreeNodeLink FindValue(std::string_view name);
  pQXTreeNodeLink OrRoot(pQXTreeNodeLink link) const { return link != nullptr ? link : tree.GetRootLink(); }
  bool CanMove() const { return loaded && rootOpened && itemOpened && record != nullptr; }
  void RequireSection() const;
  void RequireRecord() const;
  void OpenRecord(pQXTreeNodeLink link);
  pQXTreeNodeLink AddNode(pQXTreeNodeLink parent, pQXIniPair pair);
  void AddValue(pQXTreeNodeLink parent, pQXIniPair pair) { lookup.Added(AddNode(parent, pair)); }
  void FreePairOf(pQXTreeNode node);
  void ReserveFor(pQXTreeNodeLink link);
  void FreeOrKeepBelow(pQXTreeNodeLink link);
  void DeleteBranch(pQXTreeNodeLink link);
  void RemoveNode(pQXTreeNodeLink link);
};

TQXIniFile::TQXIniFile() : state_(std::make_unique<State>()) {}

TQXIniFile::~TQXIniFile() {
  state_->tree.EnumAllTreeNode([this](pQXTreeNode node) { state_->FreePairOf(node); });
}

// --- Nodes and pairs ---------------------------------------------------------

// The look-ups do not know of the node yet. Without memory for it the pair is freed.
pQXTreeNodeLink TQXIniFile::State::AddNode(pQXTreeNodeLink parent, pQXIniPair pair) {
  try {
    const pQXTreeNodeLink link = tree.AddLink(parent);
    NodeOf(link)->Data = pair;
    return link;
  } catch (...) {
    pairs.Free(pair);
    throw;
  }
}

void TQXIniFile::State::FreePairOf(pQXTreeNode node) {
  if (PairOf(node) != nullptr) pairs.Free(PairOf(node));
  node->Data = nullptr;
}

// Makes room to keep what a delete of `link` keeps, so that nothing fails halfway.
void TQXIniFile::State::ReserveFor(pQXTreeNodeLink link) {
  std::size_t count = 1;
  tree.EnumTreeNodeLink(link, true, [&](pQXTreeNode node) {
    if (IsFreed(node)) return;
    ++count;
    pairs.OwnTexts(node);
  });
  pairs.OwnTexts(link->Node);
  pairs.Reserve(count);
}

void TQXIniFile::State::FreeOrKeepBelow(pQXTreeNodeLink link) {
  tree.EnumTreeNodeLink(link, true,
                        [this](pQXTreeNode node) { IsFreed(node) ? FreePairOf(node) : pairs.Keep(node); });
}

// On purpose: the pair of the node itself stays in memory, those below it are freed.
void TQXIniFile::State::DeleteBranch(pQXTreeNodeLink link) {
  ReserveFor(link);
  RemoveNode(link);
}

// Nothing here asks for memory.
void TQXIniFile::State::RemoveNode(pQXTreeNodeLink link) {
  lookup.Deleting(link);
  for (pQXTreeNodeLink* const open : {&section, &record})
    if (*open != nullptr && IsInSubtree(*open, link)) *open = nullptr;
  FreeOrKeepBelow(link);
  pairs.Keep(link->Node);
  tree.DeleteLink(link);
}

void TQXIniFile::Clear() {
  State& state = *state_;
  state.ReserveFor(state.tree.GetRootLink());
  state.lookup.Clear();
  state.section = state.record = nullptr;
  state.FreeOrKeepBelow(state.tree.GetRootLink());
  state.tree.Clear();
  state.pairs.Load({});
}

void TQXIniFile::EnumTreeNode(const TEnumTreeNodeProc& proc) const { state_->tree.EnumAllTreeNode(proc); }

// --- Sections ----------------------------------------------------------------

bool TQXIniFile::FindRootKey(std::string_view name, pQXTreeNode& node) const {
  return SetIfFound(state_->FindSection(name), node);
}

void TQXIniFile::SetRootKey(std::string_view name) {
  State& state = *state_;
  state.rootKeyName.reserve(name.size());  // so that nothing fails after a section was made
  pQXTreeNodeLink section = state.FindSection(name);
  if (section == nullptr) {
    section = state.AddNode(state.tree.GetRootLink(), state.pairs.Make("RootKey", name));
    state.lookup.Added(section);
  }
  state.rootKeyName = name;
  state.section = section;
  state.rootOpened = true;
  state.itemOpened = false;
}

void TQXIniFile::DeleteRootKey(std::string_view name) {
  const pQXTreeNodeLink section = state_->FindSection(name);
  if (section == nullptr) throw Exception("RootKey not Find.");
  state_->DeleteBranch(section);
}

// The new section is made first, since that may fail.
void TQXIniFile::ClearKeys() {
  State& state = *state_;
  state.RequireSection();
  if (!state.loaded || state.section == nullptr) return;
  state.ReserveFor(state.section);
  const pQXTreeNodeLink made =
      state.AddNode(state.tree.GetRootLink(), state.pairs.Make("RootKey", state.rootKeyName));
  state.RemoveNode(state.section);
  state.section = state.FindSection(state.rootKeyName);
  if (state.section == nullptr || state.section == made) {
    state.section = made;
    state.lookup.Added(made);
  } else {  // another one of that name
    state.FreePairOf(made->Node);
    state.tree.DeleteLink(made);
  }
  state.itemOpened = false;
}

void TQXIniFile::State::RequireSection() const {
  if (!rootOpened) throw Exception(kSectionNotOpen);
}

// --- Records -----------------------------------------------------------------

void TQXIniFile::AppendKey() {
  state_->RequireSection();
  state_->OpenRecord(state_->tree.AddLink(state_->OrRoot(state_->section)));
}

void TQXIniFile::CloseKey() { state_->OpenRecord(nullptr); }

void TQXIniFile::State::OpenRecord(pQXTreeNodeLink link) {
  record = link;
  itemOpened = link != nullptr;
}

void TQXIniFile::OpenKey(Integer index) { state_->OpenRecord(state_->FindNumber(index)); }

void TQXIniFile::OpenFirstKey() {
  State& state = *state_;
  state.OpenRecord(state.rootOpened && state.section != nullptr ? state.section->FirstChild : nullptr);
}

void TQXIniFile::OpenPrevKey() { state_->OpenRecord(state_->CanMove() ? state_->record->Prior : nullptr); }

void TQXIniFile::OpenNextKey() { state_->OpenRecord(state_->CanMove() ? state_->record->Next : nullptr); }

void TQXIniFile::OpenLastKey() {
  state_->OpenRecord(state_->CanMove() ? LastChildOf(state_->record->Parent) : nullptr);
}

pQXTreeNodeLink TQXIniFile::State::FindNumber(Integer index) {
  return rootOpened && section != nullptr ? lookup.numbers.Find(section, index) : nullptr;
}

bool TQXIniFile::FindKeyIndex(Integer index, pQXTreeNode& node) const {
  return SetIfFound(state_->FindNumber(index), node);
}

void TQXIniFile::DeleteKey(Integer index) {
  state_->RequireSection();
  const pQXTreeNodeLink link = state_->FindNumber(index);
  if (link != nullptr) state_->DeleteBranch(link);
}

// --- Values ------------------------------------------------------------------

pQXTreeNodeLink TQXIniFile::State::FindValue(std::string_view name) {
  return record != nullptr ? lookup.FindField(record, name) : nullptr;
}

bool TQXIniFile::FindField(std::string_view name, pQXTreeNode& node) const {
  if (!state_->itemOpened) throw Exception("ItemKey not opend");
  return SetIfFound(state_->FindValue(name), node);
}

std::string TQXIniFile::GetValue(std::string_view name) const {
  state_->RequireRecord();
  const pQXTreeNodeLink found = state_->FindValue(name);
  return found != nullptr ? std::string(View(PairOf(found)->Value)) : std::string();
}

void TQXIniFile::SetValue(std::string_view name, std::string_view value) {
  state_->RequireRecord();
  const pQXTreeNodeLink found = state_->FindValue(name);
  if (found != nullptr)
    state_->pairs.SetValue(PairOf(found), value);
  else
    state_->AddValue(state_->OrRoot(state_->record), state_->pairs.Make(name, value));
}

void TQXIniFile::DeleteValue(std::string_view name) {
  const pQXTreeNodeLink found = state_->itemOpened ? state_->FindValue(name) : nullptr;
  if (found == nullptr) return;
  state_->ReserveFor(found);
  state_->lookup.fields.Remove(found);
  state_->FreePairOf(found->Node);
  state_->RemoveNode(found);
}

void TQXIniFile::State::RequireRecord() const {
  if (!itemOpened) throw Exception(kRecordNotOpen);
}

// --- Whole files -------------------------------------------------------------

void TQXIniFile::LoadFromFile(const std::string& fileName) {
  if (FileExists(fileName)) Load(ReadWholeFile(fileName));
}

void TQXIniFile::SaveToFile(const std::string& fileName) const { SaveWholeFile(fileName, GetText()); }

void TQXIniFile::SetText(std::string_view text) { Load(std::string(text)); }

// Values are read where they are in the text, which is kept.
void TQXIniFile::Load(std::string&& text) {
  Clear();
  State& state = *state_;
  state.loaded = true;
  bool inRecord = false;
  Integer number = 0;
  ForEachLine(state.pairs.Load(std::move(text)), [&](std::string_view line) {
    ++number;
    const IniLine parts = ReadIniLine(line);
    switch (parts.kind) {
      case IniLineKind::Section:
        SetRootKey(parts.name);
        break;
      case IniLineKind::RecordBegin:
        if (!state.rootOpened) throw EIniLoadError(kSectionNotOpen, number);
        AppendKey();
        inRecord = true;
        break;
      case IniLineKind::RecordEnd:
        CloseKey();
        inRecord = false;
        break;
      case IniLineKind::Value:
        // On purpose: after a section line inside an open record, values still go to that record.
        if (inRecord) state.AddValue(state.record, state.pairs.MakeLoaded(parts.name, parts.text));
        break;
      case IniLineKind::Blank:
      case IniLineKind::Other:
        break;
    }
  });
}

std::string TQXIniFile::GetText() const {
  std::string text;
  bool inRecord = false;
  const auto add = [&](std::initializer_list<std::string_view> pieces) {
    for (const std::string_view piece : pieces) text += piece;
    text += "\r\n";
  };
  state_->tree.EnumAllTreeNode([&](pQXTreeNode node) {
    const pQXIniPair pair = PairOf(node);
    if (node->Level == 1 && pair != nullptr) {
      if (inRecord) add({kRecordEnd, "\r\n"});
      add({View(pair->Value), ":", kSectionMark});
      inRecord = false;
    } else if (node->Level == 2) {
      if (inRecord) add({kRecordEnd});
      add({kRecordBegin});
      inRecord = true;
    } else if (node->Level == 3 && pair != nullptr && pair->Name != nullptr && pair->Value != nullptr) {
      add({"  ", pair->Name, ":", pair->Value});
    }
  });
  if (inRecord) add({kRecordEnd});
  return text;
}

}  // namespace qxTools::qxIniTools
