#include <qxTools/platform/Files.h>
#include <qxTools/runtime/Lines.h>
#include <qxTools/stores/IniLines.h>
#include <qxTools/stores/IniLookup.h>
#include <qxTools/stores/Records.h>

#include <cstring>

namespace qxTools::qxIniTools {

using QXMemTools::MemFree;
using stores::MakeRecord;
using stores::Record;

namespace {

constexpr char kSectionNotOpen[] = "RootKey not Open.";
constexpr char kRecordNotOpen[] = "Item Key not open.";

// The text with a NUL behind it; null for an empty one.
Record CopyOf(std::string_view text) {
  if (text.empty()) return nullptr;
  Record copy(MakeRecord(text.size() + 1));
  std::memcpy(copy.get(), text.data(), text.size());
  return copy;
}

void FreeBlocks(pQXIniPair pair) {
  MemFree(pair->Name);
  MemFree(pair->Value);
  MemFree(pair);
}

}  // namespace

EIniLoadError::~EIniLoadError() = default;

TQXIniFile::TQXIniFile() : FLookup(std::make_unique<Lookup>()) {}

TQXIniFile::~TQXIniFile() {
  Clear();
  for (const pQXIniPair pair : FKept) FreeBlocks(pair);
}

// --- Nodes and pairs ---------------------------------------------------------

pQXTreeNodeLink TQXIniFile::LinkOf(const TNodeKey& key) const {
  pQXTreeNodeLink link = nullptr;
  FTree.FindNodeLink(key, link);
  return link;
}

pQXTreeNode TQXIniFile::AddPair(const TNodeKey& parentKey, std::string_view name, std::string_view value) {
  Record pair(MakeRecord(sizeof(TQXIniPair)));
  Record nameCopy = CopyOf(name);
  Record valueCopy = CopyOf(value);
  const pQXTreeNode node = FTree.Add(parentKey);
  auto* const made = new (pair.release()) TQXIniPair();
  made->Name = static_cast<char*>(nameCopy.release());
  made->Value = static_cast<char*>(valueCopy.release());
  node->Data = made;
  FLookup->Added(node, LinkOf(node->ParentKey));
  return node;
}

void TQXIniFile::FreePair(pQXTreeNode node) {
  FreeBlocks(PairOf(node));
  node->Data = nullptr;
}

void TQXIniFile::KeepPair(pQXTreeNode node) {
  if (PairOf(node) == nullptr) return;
  FKept.push_back(PairOf(node));
  node->Data = nullptr;
}

// On purpose: only pairs of sections and of values in records are freed. Others come about when a value was
// opened as a record, or something was added to a record that is gone.
void TQXIniFile::FreeOrKeepPair(pQXTreeNode node) {
  if (PairOf(node) != nullptr && (node->Level == 1 || node->Level == 3)) return FreePair(node);
  KeepPair(node);
}

// On purpose: the pair of the node itself stays in memory, those below it go.
void TQXIniFile::DeleteNode(const TNodeKey& key) {
  const pQXTreeNodeLink link = LinkOf(key);
  FLookup->Deleting(link);
  FTree.EnumTreeNodeLink(link, true, [this](pQXTreeNode node) { FreeOrKeepPair(node); });
  KeepPair(link->Node);
  FTree.Delete(link->Node->Key);
}

void TQXIniFile::Clear() {
  FLookup->Clear();
  FTree.EnumAllTreeNode([this](pQXTreeNode node) { FreeOrKeepPair(node); });
  FTree.Clear();
}

// --- Sections ----------------------------------------------------------------

bool TQXIniFile::FindRootKey(std::string_view Name, pQXTreeNode& Node) const {
  FirstByName& sections = FLookup->sections;
  if (sections.GetParent() == nullptr) sections.Build(LinkOf(FTree.GetRootNode()->Key));
  const pQXTreeNode found = sections.Find(Name);
  if (found != nullptr) Node = found;
  return found != nullptr;
}

void TQXIniFile::SetRootKey(std::string_view Name) {
  FRootKeyName = Name;
  pQXTreeNode node = nullptr;
  if (!FindRootKey(Name, node)) node = AddPair(FTree.GetRootNode()->Key, "RootKey", Name);
  FRootKey = node->Key;
  FRootOpened = true;
  FItemOpened = false;
}

void TQXIniFile::DeleteRootKey(std::string_view Name) {
  pQXTreeNode node = nullptr;
  if (!FindRootKey(Name, node)) throw Exception("RootKey not Find.");
  DeleteNode(node->Key);
}

void TQXIniFile::ClearKeys() {
  RequireSection();
  pQXTreeNode node = nullptr;
  if (!FTree.FindNode(FRootKey, node)) return;
  DeleteNode(FRootKey);
  SetRootKey(std::string(FRootKeyName));
}

// --- Records -----------------------------------------------------------------

void TQXIniFile::AppendKey() {
  RequireSection();
  OpenItem(FTree.Add(FRootKey));
}

void TQXIniFile::CloseKey() { OpenItem(nullptr); }

void TQXIniFile::OpenItem(pQXTreeNode node) {
  FItemKey = node != nullptr ? node->Key : TNodeKey();
  FItemOpened = node != nullptr;
}

void TQXIniFile::OpenKey(Integer Index) {
  pQXTreeNode node = nullptr;
  FindKeyIndex(Index, node);
  OpenItem(node);
}

void TQXIniFile::OpenFirstKey() {
  pQXTreeNode node = nullptr;
  if (FRootOpened) FTree.FindSubNode(FRootKey, node);
  OpenItem(node);
}

void TQXIniFile::OpenPrevKey() {
  pQXTreeNode node = nullptr;
  if (FindsOpenItem()) FTree.FindPrevNode(FItemKey, node);
  OpenItem(node);
}

void TQXIniFile::OpenNextKey() {
  pQXTreeNode node = nullptr;
  if (FindsOpenItem()) FTree.FindNextNode(FItemKey, node);
  OpenItem(node);
}

void TQXIniFile::OpenLastKey() {
  pQXTreeNode node = nullptr;
  if (FindsOpenItem()) FTree.FindLastNode(FItemKey, node);
  OpenItem(node);
}

bool TQXIniFile::FindsOpenItem() const {
  return FRootOpened && FItemOpened && FTree.GetItem(FItemKey) != nullptr;
}

bool TQXIniFile::FindKeyIndex(Integer Index, pQXTreeNode& Node) const {
  const pQXTreeNodeLink section = FRootOpened ? LinkOf(FRootKey) : nullptr;
  const pQXTreeNodeLink found = section != nullptr ? FLookup->numbers.Find(section, Index) : nullptr;
  if (found != nullptr) Node = found->Node;
  return found != nullptr;
}

void TQXIniFile::DeleteKey(Integer Index) {
  RequireSection();
  pQXTreeNode node = nullptr;
  if (FindKeyIndex(Index, node)) DeleteNode(node->Key);
}

void TQXIniFile::RequireSection() const {
  if (!FRootOpened) throw Exception(kSectionNotOpen);
}

// --- Values ------------------------------------------------------------------

bool TQXIniFile::FindField(std::string_view Name, pQXTreeNode& Node) const {
  if (!FItemOpened) throw Exception("ItemKey not opend");
  const pQXTreeNodeLink record = LinkOf(FItemKey);
  const pQXTreeNode found = record != nullptr ? FLookup->FindField(record, Name) : nullptr;
  if (found != nullptr) Node = found;
  return found != nullptr;
}

std::string TQXIniFile::GetValue(std::string_view Name) const {
  if (!FItemOpened) throw Exception(kRecordNotOpen);
  pQXTreeNode node = nullptr;
  return FindField(Name, node) ? std::string(View(PairOf(node)->Value)) : std::string();
}

void TQXIniFile::SetValue(std::string_view Name, std::string_view Value) {
  if (!FItemOpened) throw Exception(kRecordNotOpen);
  pQXTreeNode node = nullptr;
  if (!FindField(Name, node)) {
    AddPair(FItemKey, Name, Value);
    return;
  }
  Record copy = CopyOf(Value);
  MemFree(PairOf(node)->Value);
  PairOf(node)->Value = static_cast<char*>(copy.release());
}

void TQXIniFile::DeleteValue(std::string_view Name) {
  pQXTreeNode node = nullptr;
  if (!FItemOpened || !FindField(Name, node)) return;
  FLookup->fields.Remove(node);
  FreePair(node);
  DeleteNode(node->Key);
}

// --- Whole files -------------------------------------------------------------

void TQXIniFile::LoadFromFile(const std::string& FileName) {
  if (FileExists(FileName)) SetText(ReadWholeFile(FileName));
}

void TQXIniFile::SaveToFile(const std::string& FileName) const { SaveWholeFile(FileName, GetText()); }

void TQXIniFile::SetText(std::string_view Text) {
  Clear();
  FTree.OpenRootNode();
  bool inRecord = false;
  Integer number = 0;
  ForEachLine(Text, [&](std::string_view line) {
    ++number;
    const IniLine parts = ReadIniLine(line);
    switch (parts.kind) {
      case IniLineKind::Section:
        SetRootKey(parts.name);
        break;
      case IniLineKind::RecordBegin:
        if (!FRootOpened) throw EIniLoadError(kSectionNotOpen, number);
        AppendKey();
        inRecord = true;
        break;
      case IniLineKind::RecordEnd:
        CloseKey();
        inRecord = false;
        break;
      case IniLineKind::Value:
        // On purpose: after a section line inside an open record, values still go to that record.
        if (inRecord) AddPair(FItemKey, parts.name, parts.text);
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
  FTree.EnumAllTreeNode([&](pQXTreeNode node) {
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
