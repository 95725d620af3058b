#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/data/NameChanges.h>
#include <qxTools/data/QXValueTools.h>
#include <qxTools/runtime/NamedList.h>

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

struct CaselessName {
  static std::string_view Of(const TValueRecord& record) { return Trimmed(record.Name); }
  static bool Same(std::string_view name, std::string_view asked) { return SameText(name, asked); }
};

}  // namespace

struct TQXValueList::State {
  NamePlaces::Places Find(std::string_view name) {
    records.Names().Follow(NameChanges());
    return records.Find(Trimmed(name));
  }

  NamedList<TValueRecord, CaselessName> records;
};

TQXValueList::TQXValueList() : state_(std::make_unique<State>()) {}
TQXValueList::~TQXValueList() = default;

// --- By index ----------------------------------------------------------------------------------------

Integer TQXValueList::GetCount() const { return state_->records.GetCount(); }

TValueRecord* TQXValueList::Add() { return state_->records.Add(std::make_unique<TValueRecord>()); }

TValueRecord* TQXValueList::GetItem(Integer index) {
  if (autoCreate_ && index >= GetCount()) Grow(index);
  return state_->records.GetItems(index);
}

void TQXValueList::Grow(Integer index) {
  if (index == std::numeric_limits<Integer>::max()) RaiseListIndex(index);  // no count could follow
  state_->records.AddAllOrNothing([&] {
    while (GetCount() <= index) Add();
  });
}

void TQXValueList::SetItem(Integer index, const TValueRecord& record) {
  TValueRecord copy = record;  // first, since it takes memory
  *GetItem(index) = std::move(copy);
}

void TQXValueList::Insert(Integer index, const TValueRecord* record) {
  state_->records.Insert(index, std::make_unique<TValueRecord>(*record));
}

void TQXValueList::Delete(Integer index) { state_->records.Delete(index); }

void TQXValueList::Clear() { state_->records.Clear(); }

void TQXValueList::Assign(TQXValueList* source) {
  if (source == nullptr) return;
  auto copies = std::make_unique<State>();  // on purpose: none of the list itself
  for (Integer i = 0; source != this && i < source->GetCount(); ++i)
    copies->records.Add(std::make_unique<TValueRecord>(*source->state_->records.GetItems(i)));
  state_ = std::move(copies);
}

// --- By name -----------------------------------------------------------------------------------------

Integer TQXValueList::IndexOf(std::string_view name) { return state_->Find(name).last; }

void TQXValueList::Delete(std::string_view name) { Delete(IndexOf(name)); }

void TQXValueList::AppendUnknown(std::string_view name, const Variant& value) {
  if (!autoCreate_) throw Exception("Index (" + std::string(name) + ") is not find.");
  state_->records.Add(std::make_unique<TValueRecord>(name, value));
}

Variant TQXValueList::GetValue(std::string_view name) {
  const Integer index = state_->Find(name).first;
  if (index >= 0) return state_->records.GetItems(index)->Value;
  AppendUnknown(name, Variant::Null());
  return Variant::Null();
}

void TQXValueList::SetValue(std::string_view name, const Variant& v) {
  const Integer index = state_->Find(name).last;
  if (index >= 0)
    state_->records.GetItems(index)->Value = v;
  else
    AppendUnknown(name, v);
}

}  // namespace qxTools::QXValueTools
