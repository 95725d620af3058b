#include <qxTools/base/Lines.h>
#include <qxTools/platform/Files.h>
#include <qxTools/stores/IniLines.h>
#include <qxTools/stores/IniLookup.h>
#include <qxTools/stores/Records.h>

#include <cstring>

namespace qxTools::qxIniTools {

using QXMemTools::MemFree;
using qxTreeList::IsInSubtree;
using qxTreeList::LastChildOf;
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

// Sets `node` to that of `link` when there is one.
bool Give(pQXTreeNodeLink link, pQXTreeNode& node) {
  if (link != nullptr) node = link->Node;
  return link != nullptr;
}

}  // namespace

EIniLoadError::~EIniLoadError() = default;

TQXIniFile::TQXIniFile() : FLookup(std::make_unique<Lookup>()) {}

// Not by Clear, which asks for memory to keep pairs in.
TQXIniFile::~TQXIniFile() {
  FTree.EnumAllTreeNode([](pQXTreeNode node) {
    if (PairOf(node) != nullptr) FreeBlocks(PairOf(node));
  });
  for (const pQXIniPair pair : FKept) FreeBlocks(pair);
}

// --- Nodes and pairs ---------------------------------------------------------

pQXTreeNodeLink TQXIniFile::OrRoot(pQXTreeNodeLink link) const {
  return link != nullptr ? link : FTree.GetRootLink();
}

pQXTreeNodeLink TQXIniFile::AddPair(pQXTreeNodeLink parent, std::string_view name, std::string_view value) {
  Record pair(MakeRecord(sizeof(TQXIniPair)));
  Record nameCopy = CopyOf(name);
  Record valueCopy = CopyOf(value);
  const pQXTreeNodeLink link = FTree.AddLink(parent);
  auto* const made = new (pair.release()) TQXIniPair();
  made->Name = static_cast<char*>(nameCopy.release());
  made->Value = static_cast<char*>(valueCopy.release());
  link->Node->Data = made;
  FLookup->Added(link);
  return link;
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
void TQXIniFile::DeleteBranch(pQXTreeNodeLink link) {
  FLookup->Deleting(link);
  for (pQXTreeNodeLink* const opened : {&FSection, &FRecord})
    if (*opened != nullptr && IsInSubtree(*opened, link)) *opened = nullptr;
  FTree.EnumTreeNodeLink(link, true, [this](pQXTreeNode node) { FreeOrKeepPair(node); });
  KeepPair(link->Node);
  FTree.DeleteLink(link);
}

void TQXIniFile::Clear() {
  FLookup->Clear();
  FSection = FRecord = nullptr;
  FTree.EnumAllTreeNode([this](pQXTreeNode node) { FreeOrKeepPair(node); });
  FTree.Clear();
}

// --- Sections ----------------------------------------------------------------

pQXTreeNodeLink TQXIniFile::FindSection(std::string_view name) const {
  FirstByName& sections = FLookup->sections;
  if (sections.GetParent() == nullptr) sections.Build(FTree.GetRootLink());
  return sections.Find(name);
}

bool TQXIniFile::FindRootKey(std::string_view Name, pQXTreeNode& Node) const {
  return Give(FindSection(Name), Node);
}

void TQXIniFile::SetRootKey(std::string_view Name) {
  FRootKeyName = Name;
  const pQXTreeNodeLink found = FindSection(Name);
  FSection = found != nullptr ? found : AddPair(FTree.GetRootLink(), "RootKey", Name);
  FRootOpened = true;
  FItemOpened = false;
}

void TQXIniFile::DeleteRootKey(std::string_view Name) {
  const pQXTreeNodeLink section = FindSection(Name);
  if (section == nullptr) throw Exception("RootKey not Find.");
  DeleteBranch(section);
}

void TQXIniFile::ClearKeys() {
  RequireSection();
  if (!FLoaded || FSection == nullptr) return;
  DeleteBranch(FSection);
  SetRootKey(std::string(FRootKeyName));
}

void TQXIniFile::RequireSection() const {
  if (!FRootOpened) throw Exception(kSectionNotOpen);
}

// --- Records -----------------------------------------------------------------

void TQXIniFile::AppendKey() {
  RequireSection();
  OpenRecord(FTree.AddLink(OrRoot(FSection)));
}

void TQXIniFile::CloseKey() { OpenRecord(nullptr); }

void TQXIniFile::OpenRecord(pQXTreeNodeLink link) {
  FRecord = link;
  FItemOpened = link != nullptr;
}

void TQXIniFile::OpenKey(Integer Index) { OpenRecord(FindNumber(Index)); }

void TQXIniFile::OpenFirstKey() {
  OpenRecord(FRootOpened && FSection != nullptr ? FSection->FirstChild : nullptr);
}

void TQXIniFile::OpenPrevKey() { OpenRecord(CanMove() ? FRecord->Prior : nullptr); }

void TQXIniFile::OpenNextKey() { OpenRecord(CanMove() ? FRecord->Next : nullptr); }

void TQXIniFile::OpenLastKey() { OpenRecord(CanMove() ? LastChildOf(FRecord->Parent) : nullptr); }

bool TQXIniFile::CanMove() const { return FLoaded && FRootOpened && FItemOpened && FRecord != nullptr; }

pQXTreeNodeLink TQXIniFile::FindNumber(Integer index) const {
  return FRootOpened && FSection != nullptr ? FLookup->numbers.Find(FSection, index) : nullptr;
}

bool TQXIniFile::FindKeyIndex(Integer Index, pQXTreeNode& Node) const {
  return Give(FindNumber(Index), Node);
}

void TQXIniFile::DeleteKey(Integer Index) {
  RequireSection();
  const pQXTreeNodeLink link = FindNumber(Index);
  if (link != nullptr) DeleteBranch(link);
}

// --- Values ------------------------------------------------------------------

pQXTreeNodeLink TQXIniFile::FindValue(std::string_view name) const {
  return FRecord != nullptr ? FLookup->FindField(FRecord, name) : nullptr;
}

bool TQXIniFile::FindField(std::string_view Name, pQXTreeNode& Node) const {
  if (!FItemOpened) throw Exception("ItemKey not opend");
  return Give(FindValue(Name), Node);
}

std::string TQXIniFile::GetValue(std::string_view Name) const {
  RequireRecord();
  const pQXTreeNodeLink found = FindValue(Name);
  return found != nullptr ? std::string(View(PairOf(found)->Value)) : std::string();
}

void TQXIniFile::SetValue(std::string_view Name, std::string_view Value) {
  RequireRecord();
  const pQXTreeNodeLink found = FindValue(Name);
  if (found == nullptr) {
    AddPair(OrRoot(FRecord), Name, Value);
    return;
  }
  Record copy = CopyOf(Value);
  MemFree(PairOf(found)->Value);
  PairOf(found)->Value = static_cast<char*>(copy.release());
}

void TQXIniFile::DeleteValue(std::string_view Name) {
  const pQXTreeNodeLink found = FItemOpened ? FindValue(Name) : nullptr;
  if (found == nullptr) return;
  FLookup->fields.Remove(found);
  FreePair(found->Node);
  DeleteBranch(found);
}

void TQXIniFile::RequireRecord() const {
  if (!FItemOpened) throw Exception(kRecordNotOpen);
}

// --- Whole files -------------------------------------------------------------

void TQXIniFile::LoadFromFile(const std::string& FileName) {
  if (FileExists(FileName)) SetText(ReadWholeFile(FileName));
}

void TQXIniFile::SaveToFile(const std::string& FileName) const { SaveWholeFile(FileName, GetText()); }

void TQXIniFile::SetText(std::string_view Text) {
  Clear();
  FLoaded = true;
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
        if (inRecord) AddPair(FRecord, parts.name, parts.text);
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
