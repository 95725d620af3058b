#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/NameScanner.h>
#include <qxTools/sql/QXSqlTools.h>

#include <algorithm>
#include <utility>

namespace qxTools::QXSqlTools {

namespace {

std::array<std::string, 7> StyleHeaders() { return {"@S", "@N", "@R", "@D", "@T", "@B", "@F"}; }

}  // namespace

QXTOOLS_GLOBAL std::array<std::string, 7> ParamStyleHeader = StyleHeaders();

constinit TQXSQL* FDefaultSQL = nullptr;

void FillGlobals() { ParamStyleHeader = StyleHeaders(); }

void ReleaseGlobals() {
  delete std::exchange(FDefaultSQL, nullptr);
  ParamStyleHeader = {};
}

TQXSQL* SQL() {
  if (FDefaultSQL == nullptr) FDefaultSQL = new TQXSQL;
  return FDefaultSQL;
}

namespace {

constexpr std::size_t kHeaderSize = 2;
constexpr std::size_t kHeaderAndSeparator = 3;

/// Takes a text value, with or without a header that names its style.
void TakeText(TQXSQLItem& item, const Variant& value) {
  item.Value = value;
  item.Text = value.AsString();
  if (item.Text.size() < kHeaderSize) return;
  const auto header = std::ranges::find(ParamStyleHeader, UpperCase(item.Text.substr(0, kHeaderSize)));
  if (header == ParamStyleHeader.end()) return;
  item.Style = static_cast<TSqlStyle>(header - ParamStyleHeader.begin());
  item.Text.erase(0, kHeaderAndSeparator);
  item.Value = item.Text;
}

void Take(TQXSQLItem& item, const Variant& value, TSqlStyle style, std::string text) {
  item.Value = value;
  item.Style = style;
  item.Text = std::move(text);
}

}  // namespace

// --- TQXSQLItem --------------------------------------------------------------------------------------

TQXSQLItem::~TQXSQLItem() = default;

void TQXSQLItem::Assign(const TPersistent* source) {
  const auto* item = dynamic_cast<const TQXSQLItem*>(source);
  if (item == nullptr) return TPersistent::Assign(source);
  SetName(item->name_);
  Value = item->Value;
  Text = item->Text;
  Style = item->Style;
}

void TQXSQLItem::SetName(std::string_view name) {
  if (index_ != nullptr) index_->Drop();
  name_ = name;
  upperName_ = UpperCase(name_);
}

// --- TQXSQLItems -------------------------------------------------------------------------------------

TQXSQLItem* TQXSQLItems::Add() { return Add(""); }

TQXSQLItem* TQXSQLItems::Add(std::string_view name) {
  TQXSQLItem* const item = items_.Add(std::make_unique<TQXSQLItem>());
  item->SetName(name);
  item->index_ = &index_;
  index_.Append(GetCount() - 1, [this](Integer i) { return UpperNameAt(i); });
  return item;
}

void TQXSQLItems::AddNamesOf(std::string_view text) {
  NameScanner scanner(text, Literals::kScan);
  std::string upperName;
  for (std::string_view name; scanner.Next(name);) {
    SetUpperName(upperName, name);
    if (IndexOfUpper(upperName) < 0) Add("@" + std::string(name));
  }
}

void TQXSQLItems::Assign(const TQXSQLItems* source) {
  if (source == nullptr) return;
  Clear();  // on purpose: also when it is the list itself
  for (Integer i = 0; i < source->GetCount(); ++i) Add()->Assign(source->GetItems(i));
}

void TQXSQLItems::Clear() {
  index_.Drop();
  items_.Clear();
}

void TQXSQLItems::Delete(Integer index) {
  items_.GetItems(index);  // raises for a bad index, before anything changes
  index_.Drop();
  items_.Delete(index);
}

void TQXSQLItems::SetItems(Integer index, const TQXSQLItem& item) { GetItems(index)->Assign(&item); }

TQXSQLItem* TQXSQLItems::FindByName(std::string_view name) const {
  const Integer index = GetItemsIndex(name);
  return index >= 0 ? GetItems(index) : nullptr;
}

Integer TQXSQLItems::GetItemsIndex(std::string_view name) const { return IndexOfUpper(UpperCase(name)); }

Integer TQXSQLItems::IndexOfUpper(std::string_view upperName) const {
  return index_.Find(upperName, GetCount(), [this](Integer i) { return UpperNameAt(i); });
}

TQXSQLItem& TQXSQLItems::Existing(std::string_view name) const {
  TQXSQLItem* const item = FindByName(name);
  if (item == nullptr) throw Exception("Parameters " + std::string(name) + " is not found");
  return *item;
}

TSqlStyle TQXSQLItems::GetItemsStyle(std::string_view name) const { return Existing(name).Style; }

void TQXSQLItems::SetItemsStyle(std::string_view name, TSqlStyle style) { Existing(name).Style = style; }

Variant TQXSQLItems::GetItemsValue(std::string_view name) const { return Existing(name).Value; }

void TQXSQLItems::SetItemsValue(std::string_view name, const Variant& value) {
  TQXSQLItem& item = Existing(name);
  if (value.IsString()) return TakeText(item, value);
  switch (value.Type()) {
    case varNull:
      return Take(item, value, stFunction, "NULL");
    case varBoolean:
      return Take(item, value, stBoolean, value.AsBoolean() ? "1" : "0");
    case varSmallint:
    case varInteger:
    case varByte:
      return Take(item, value, stInteger, value.AsString());
    case varSingle:
    case varDouble:
    case varCurrency:
      return Take(item, value, stReal, value.AsString());
    case varDate:
      return Take(item, value, stDate, DateToStr(value.AsDouble()));
    default:
      return;  // on purpose: the others change nothing
  }
}

bool TQXSQLItems::FindAndModify(std::string_view name, std::string_view value, TSqlStyle style) {
  TQXSQLItem* const item = FindByName(name);
  if (item == nullptr) return false;
  item->Value = value;
  item->Style = style;  // on purpose: Text stays
  return true;
}

// --- TQXSQL ------------------------------------------------------------------------------------------

TQXSQL::TQXSQL() {
  inLines_.SetOnChange([this](TObject* sender) { OnInLinesChange(sender); });
}

TQXSQL::~TQXSQL() = default;

void TQXSQL::AssignSql(const TSqlOperation& operation, TSqlLanguage language) {
  switch (language) {
    case slSelect:
      return inLines_.SetText(operation.SelectSql);
    case slInsert:
      return inLines_.SetText(operation.InsertSql);
    case slDelete:
      return inLines_.SetText(operation.DeleteSql);
    case slUpdate:
      return inLines_.SetText(operation.UpdateSql);
  }
}

void TQXSQL::FindParams() {
  params_.Clear();
  params_.AddNamesOf(inLines_.GetText());
}

void TQXSQL::OnInLinesChange(TObject*) { FindParams(); }

void TQXSQL::FillCharType(TStrings& lines) const {
  for (const char* letter : {"S", "N", "R", "D", "T", "B", "F"}) lines.Add(letter);
}

}  // namespace qxTools::QXSqlTools
