#include <qxTools/base/Lines.h>
#include <qxTools/platform/Files.h>
#include <qxTools/stores/IniLines.h>
#include <qxTools/stores/IniLookup.h>
#include <qxTools/stores/ZeroedBlock.h>

#include <cstring>

namespace qxTools::qxIniTools {

using QXMemTools::MemFree;
using qxTreeList::IsInSubtree;
using qxTreeList::LastChildOf;
using stores::MakeZeroedBlock;
using stores::ZeroedBlock;

namespace {

constexpr char kSectionNotOpen[] = "RootKey not Open.";
constexpr char kRecordNotOpen[] = "Item Key not open.";

// The text with a NUL behind it; null for an empty one.
ZeroedBlock CopyOf(std::string_view text) {
  if (text.empty()) return nullptr;
  ZeroedBlock copy = MakeZeroedBlock(text.size() + 1);
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

TQXIniFile::TQXIniFile() : lookup_(std::make_unique<Lookup>()) {}

// Not by Clear, which asks for memory to keep pairs in.
TQXIniFile::~TQXIniFile() {
  tree_.EnumAllTreeNode([](pQXTreeNode node) {
    if (PairOf(node) != nullptr) FreeBlocks(PairOf(node));
  });
  for (const pQXIniPair pair : kept_) FreeBlocks(pair);
}

// --- Nodes and pairs ---------------------------------------------------------

pQXTreeNodeLink TQXIniFile::OrRoot(pQXTreeNodeLink link) const {
  return link != nullptr ? link : tree_.GetRootLink();
}

pQXTreeNodeLink TQXIniFile::AddPair(pQXTreeNodeLink parent, std::string_view name, std::string_view value) {
  ZeroedBlock pair = MakeZeroedBlock(sizeof(TQXIniPair));
  ZeroedBlock nameCopy = CopyOf(name);
  ZeroedBlock valueCopy = CopyOf(value);
  const pQXTreeNodeLink link = tree_.AddLink(parent);
  auto* const made = new (pair.release()) TQXIniPair();
  made->Name = static_cast<char*>(nameCopy.release());
  made->Value = static_cast<char*>(valueCopy.release());
  link->Node->Data = made;
  lookup_->Added(link);
  return link;
}

void TQXIniFile::FreePair(pQXTreeNode node) {
  FreeBlocks(PairOf(node));
  node->Data = nullptr;
}

void TQXIniFile::KeepPair(pQXTreeNode node) {
  if (PairOf(node) == nullptr) return;
  kept_.push_back(PairOf(node));
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
  lookup_->Deleting(link);
  for (pQXTreeNodeLink* const opened : {&section_, &record_})
    if (*opened != nullptr && IsInSubtree(*opened, link)) *opened = nullptr;
  tree_.EnumTreeNodeLink(link, true, [this](pQXTreeNode node) { FreeOrKeepPair(node); });
  KeepPair(link->Node);
  tree_.DeleteLink(link);
}

void TQXIniFile::Clear() {
  lookup_->Clear();
  section_ = record_ = nullptr;
  tree_.EnumAllTreeNode([this](pQXTreeNode node) { FreeOrKeepPair(node); });
  tree_.Clear();
}

// --- Sections ----------------------------------------------------------------

pQXTreeNodeLink TQXIniFile::FindSection(std::string_view name) const {
  FirstByName& sections = lookup_->sections;
  if (sections.GetParent() == nullptr) sections.Build(tree_.GetRootLink());
  return sections.Find(name);
}

bool TQXIniFile::FindRootKey(std::string_view name, pQXTreeNode& node) const {
  return Give(FindSection(name), node);
}

void TQXIniFile::SetRootKey(std::string_view name) {
  rootKeyName_ = name;
  const pQXTreeNodeLink found = FindSection(name);
  section_ = found != nullptr ? found : AddPair(tree_.GetRootLink(), "RootKey", name);
  rootOpened_ = true;
  itemOpened_ = false;
}

void TQXIniFile::DeleteRootKey(std::string_view name) {
  const pQXTreeNodeLink section = FindSection(name);
  if (section == nullptr) throw Exception("RootKey not Find.");
  DeleteBranch(section);
}

void TQXIniFile::ClearKeys() {
  RequireSection();
  if (!loaded_ || section_ == nullptr) return;
  DeleteBranch(section_);
  SetRootKey(std::string(rootKeyName_));
}

void TQXIniFile::RequireSection() const {
  if (!rootOpened_) throw Exception(kSectionNotOpen);
}

// --- Records -----------------------------------------------------------------

void TQXIniFile::AppendKey() {
  RequireSection();
  OpenRecord(tree_.AddLink(OrRoot(section_)));
}

void TQXIniFile::CloseKey() { OpenRecord(nullptr); }

void TQXIniFile::OpenRecord(pQXTreeNodeLink link) {
  record_ = link;
  itemOpened_ = link != nullptr;
}

void TQXIniFile::OpenKey(Integer index) { OpenRecord(FindNumber(index)); }

void TQXIniFile::OpenFirstKey() {
  OpenRecord(rootOpened_ && section_ != nullptr ? section_->FirstChild : nullptr);
}

void TQXIniFile::OpenPrevKey() { OpenRecord(CanMove() ? record_->Prior : nullptr); }

void TQXIniFile::OpenNextKey() { OpenRecord(CanMove() ? record_->Next : nullptr); }

void TQXIniFile::OpenLastKey() { OpenRecord(CanMove() ? LastChildOf(record_->Parent) : nullptr); }

bool TQXIniFile::CanMove() const { return loaded_ && rootOpened_ && itemOpened_ && record_ != nullptr; }

pQXTreeNodeLink TQXIniFile::FindNumber(Integer index) const {
  return rootOpened_ && section_ != nullptr ? lookup_->numbers.Find(section_, index) : nullptr;
}

bool TQXIniFile::FindKeyIndex(Integer index, pQXTreeNode& node) const {
  return Give(FindNumber(index), node);
}

void TQXIniFile::DeleteKey(Integer index) {
  RequireSection();
  const pQXTreeNodeLink link = FindNumber(index);
  if (link != nullptr) DeleteBranch(link);
}

// --- Values ------------------------------------------------------------------

pQXTreeNodeLink TQXIniFile::FindValue(std::string_view name) const {
  return record_ != nullptr ? lookup_->FindField(record_, name) : nullptr;
}

bool TQXIniFile::FindField(std::string_view name, pQXTreeNode& node) const {
  if (!itemOpened_) throw Exception("ItemKey not opend");
  return Give(FindValue(name), node);
}

std::string TQXIniFile::GetValue(std::string_view name) const {
  RequireRecord();
  const pQXTreeNodeLink found = FindValue(name);
  return found != nullptr ? std::string(View(PairOf(found)->Value)) : std::string();
}

void TQXIniFile::SetValue(std::string_view name, std::string_view value) {
  RequireRecord();
  const pQXTreeNodeLink found = FindValue(name);
  if (found == nullptr) {
    AddPair(OrRoot(record_), name, value);
    return;
  }
  ZeroedBlock copy = CopyOf(value);
  MemFree(PairOf(found)->Value);
  PairOf(found)->Value = static_cast<char*>(copy.release());
}

void TQXIniFile::DeleteValue(std::string_view name) {
  const pQXTreeNodeLink found = itemOpened_ ? FindValue(name) : nullptr;
  if (found == nullptr) return;
  lookup_->fields.Remove(found);
  FreePair(found->Node);
  DeleteBranch(found);
}

void TQXIniFile::RequireRecord() const {
  if (!itemOpened_) throw Exception(kRecordNotOpen);
}

// --- Whole files -------------------------------------------------------------

void TQXIniFile::LoadFromFile(const std::string& fileName) {
  if (FileExists(fileName)) SetText(ReadWholeFile(fileName));
}

void TQXIniFile::SaveToFile(const std::string& fileName) const { SaveWholeFile(fileName, GetText()); }

void TQXIniFile::SetText(std::string_view text) {
  Clear();
  loaded_ = true;
  bool inRecord = false;
  Integer number = 0;
  ForEachLine(text, [&](std::string_view line) {
    ++number;
    const IniLine parts = ReadIniLine(line);
    switch (parts.kind) {
      case IniLineKind::Section:
        SetRootKey(parts.name);
        break;
      case IniLineKind::RecordBegin:
        if (!rootOpened_) throw EIniLoadError(kSectionNotOpen, number);
        AppendKey();
        inRecord = true;
        break;
      case IniLineKind::RecordEnd:
        CloseKey();
        inRecord = false;
        break;
      case IniLineKind::Value:
        // On purpose: after a section line inside an open record, values still go to that record.
        if (inRecord) AddPair(record_, parts.name, parts.text);
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
  tree_.EnumAllTreeNode([&](pQXTreeNode node) {
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
