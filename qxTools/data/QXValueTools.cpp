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
  TValueRecord* const added = records_.Add(std::move(record));
  try {
    index_.Append(FoldedKey(Trimmed(added->Name)), GetCount() - 1);
  } catch (...) {
    Delete(GetCount() - 1);
    throw;
  }
  return added;
}

TValueRecord* TQXValueList::GetItem(Integer index) {
  if (autoCreate_ && index >= GetCount()) Grow(index);
  return records_.GetItems(index);
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

void TQXValueList::SetItem(Integer index, const TValueRecord& record) {
  TValueRecord copy = record;  // first, since it takes memory
  *GetItem(index) = std::move(copy);
}

void TQXValueList::Insert(Integer index, const TValueRecord* record) {
  records_.Insert(index, std::make_unique<TValueRecord>(*record));
  index_.Drop();
}

void TQXValueList::Delete(Integer index) {
  records_.Delete(index);
  index_.Drop();
}

void TQXValueList::Clear() {
  records_.Clear();
  index_.Drop();
}

void TQXValueList::Assign(TQXValueList* source) {
  if (source == nullptr) return;
  OwnedList<TValueRecord> copies;
  for (Integer i = 0; source != this && i < source->GetCount(); ++i)
    copies.Add(std::make_unique<TValueRecord>(*source->records_.GetItems(i)));
  Clear();
  records_ = std::move(copies);
}

// --- By name -----------------------------------------------------------------------------------------

RecordIndex::Places TQXValueList::Find(std::string_view name) {
  return index_.Find(FoldedKey(Trimmed(name)), GetCount(),
                     [this](Integer i) { return FoldedKey(Trimmed(records_.GetItems(i)->Name)); });
}

Integer TQXValueList::IndexOf(std::string_view name) { return Find(name).last; }

void TQXValueList::Delete(std::string_view name) { Delete(IndexOf(name)); }

void TQXValueList::AppendUnknown(std::string_view name, const Variant& value) {
  if (!autoCreate_) throw Exception("Index (" + std::string(name) + ") is not find.");
  Append(std::make_unique<TValueRecord>(name, value));
}

Variant TQXValueList::GetValue(std::string_view name) {
  const Integer place = Find(name).first;
  if (place >= 0) return records_.GetItems(place)->Value;
  AppendUnknown(name, Variant::Null());
  return Variant::Null();
}

void TQXValueList::SetValue(std::string_view name, const Variant& v) {
  const Integer place = Find(name).last;
  if (place >= 0)
    records_.GetItems(place)->Value = v;
  else
    AppendUnknown(name, v);
}

}  // namespace qxTools::QXValueTools
