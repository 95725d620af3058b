#include <qxTools/data/FoldedKey.h>
#include <qxTools/data/QXValueTools.h>

#include <limits>

namespace qxTools::QXValueTools {

namespace {

bool IsBlank(char c) { return static_cast<unsigned char>(c) <= 32; }

/// The part of a name that counts.
std::string_view Trimmed(std::string_view name) {
  while (!name.empty() && IsBlank(name.front())) name.remove_prefix(1);
  while (!name.empty() && IsBlank(name.back())) name.remove_suffix(1);
  return name;
}

}  // namespace

TQXValueList::TQXValueList() = default;
TQXValueList::~TQXValueList() = default;

// --- By place ----------------------------------------------------------------------------------------

TValueRecord* TQXValueList::Add() { return Append(std::make_unique<TValueRecord>()); }

TValueRecord* TQXValueList::Append(std::unique_ptr<TValueRecord> record) {
  TValueRecord* const added = FRecords.Add(std::move(record));
  try {
    FIndex.Append(FoldedKey(Trimmed(added->Name)), GetCount() - 1);
  } catch (...) {
    Delete(GetCount() - 1);
    throw;
  }
  return added;
}

TValueRecord* TQXValueList::GetItem(Integer Index) {
  if (FAutoCreate && Index >= GetCount()) Grow(Index);
  return FRecords.GetItems(Index);
}

void TQXValueList::Grow(Integer index) {
  if (index == std::numeric_limits<Integer>::max()) RaiseListIndex(index);  // no count could follow
  const Integer before = GetCount();
  try {
    while (GetCount() <= index) Add();
  } catch (...) {
    while (GetCount() > before) Delete(GetCount() - 1);
    throw;
  }
}

void TQXValueList::SetItem(Integer Index, const TValueRecord& Record) {
  TValueRecord copy = Record;  // first, since it takes memory
  *GetItem(Index) = std::move(copy);
}

void TQXValueList::Insert(Integer Index, const TValueRecord* Record) {
  FRecords.Insert(Index, std::make_unique<TValueRecord>(*Record));
  FIndex.Drop();
}

void TQXValueList::Delete(Integer Index) {
  FRecords.Delete(Index);
  FIndex.Drop();
}

void TQXValueList::Clear() {
  FRecords.Clear();
  FIndex.Drop();
}

void TQXValueList::Assign(TQXValueList* Source) {
  if (Source == nullptr) return;
  OwnedList<TValueRecord> copies;
  for (Integer i = 0; Source != this && i < Source->GetCount(); ++i)
    copies.Add(std::make_unique<TValueRecord>(*Source->FRecords.GetItems(i)));
  Clear();
  FRecords = std::move(copies);
}

// --- By name -----------------------------------------------------------------------------------------

RecordIndex::Places TQXValueList::Find(std::string_view name) {
  return FIndex.Find(FoldedKey(Trimmed(name)), GetCount(),
                     [this](Integer i) { return FoldedKey(Trimmed(FRecords.GetItems(i)->Name)); });
}

Integer TQXValueList::IndexOf(std::string_view Name) { return Find(Name).last; }

void TQXValueList::Delete(std::string_view Name) { Delete(IndexOf(Name)); }

void TQXValueList::AppendUnknown(std::string_view name, const Variant& value) {
  if (!FAutoCreate) throw Exception("Index (" + std::string(name) + ") is not find.");
  Append(std::make_unique<TValueRecord>(name, value));
}

Variant TQXValueList::GetValue(std::string_view Name) {
  const Integer place = Find(Name).first;
  if (place >= 0) return FRecords.GetItems(place)->Value;
  AppendUnknown(Name, Variant::Null());
  return Variant::Null();
}

void TQXValueList::SetValue(std::string_view Name, const Variant& V) {
  const Integer place = Find(Name).last;
  if (place >= 0)
    FRecords.GetItems(place)->Value = V;
  else
    AppendUnknown(Name, V);
}

}  // namespace qxTools::QXValueTools
