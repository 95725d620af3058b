#include <qxTools/base/Ascii.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/NamedList.h>
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

void Set(TQXSQLItem& item, Variant value, TSqlStyle style, std::string text) {
  item.Value = std::move(value);
  item.Style = style;
  item.Text = std::move(text);
}

/// Sets a text value, with or without a header that names its style.
void SetText(TQXSQLItem& item, const Variant& value) {
  std::string text = value.AsString();
  const auto header = std::ranges::find(ParamStyleHeader, UpperCase(text.substr(0, kHeaderSize)));
  if (text.size() < kHeaderSize || header == ParamStyleHeader.end())
    return Set(item, value, item.Style, std::move(text));
  text.erase(0, kHeaderAndSeparator);
  Set(item, text, static_cast<TSqlStyle>(header - ParamStyleHeader.begin()), text);
}

}  // namespace

// --- TQXSQLItem --------------------------------------------------------------------------------------

TQXSQLItem::~TQXSQLItem() = default;

void TQXSQLItem::Assign(const TPersistent* source) {
  const auto* item = dynamic_cast<const TQXSQLItem*>(source);
  if (item == nullptr) return TPersistent::Assign(source);
  Variant value = item->Value;
  std::string text = item->Text;
  SetName(item->name_);
  Set(*this, std::move(value), item->Style, std::move(text));
}

void TQXSQLItem::SetName(std::string_view name) {
  name_ = std::string(name);  // a copy first: it may be a part of the old one
  if (names_ != nullptr) names_->Drop();
}

// --- TQXSQLItems -------------------------------------------------------------------------------------

struct TQXSQLItems::State {
  struct CaselessName {
    static std::string_view Of(const TQXSQLItem& item) { return item.name_; }
    static bool Same(std::string_view name, std::string_view asked) { return SameHashedName(name, asked); }
  };

  NamedList<TQXSQLItem, CaselessName> items;
};

TQXSQLItems::TQXSQLItems() : state_(std::make_unique<State>()) {}

TQXSQLItems::~TQXSQLItems() = default;

TQXSQLItem* TQXSQLItems::Add() { return Add(""); }

TQXSQLItem* TQXSQLItems::Add(std::string_view name) {
  auto item = std::make_unique<TQXSQLItem>();
  item->SetName(name);
  item->names_ = &state_->items.Names();
  return state_->items.Add(std::move(item));
}

void TQXSQLItems::AddNamesOf(std::string_view text) {
  state_->items.AddAllOrNothing([&] {
    NameScanner scanner(text, Literals::kScan);
    for (std::string_view name; scanner.Next(name);) {
      name = scanner.WithMark(name);
      if (GetItemsIndex(name) < 0) Add(name);
    }
  });
}

void TQXSQLItems::Assign(const TQXSQLItems* source) {
  if (source == nullptr) return;
  TQXSQLItems copies;  // on purpose: none of the list itself
  for (Integer i = 0; source != this && i < source->GetCount(); ++i)
    copies.Add()->Assign(source->GetItems(i));
  state_.swap(copies.state_);
}

void TQXSQLItems::Clear() { state_->items.Clear(); }

void TQXSQLItems::Delete(Integer index) { state_->items.Delete(index); }

Integer TQXSQLItems::GetCount() const { return state_->items.GetCount(); }

TQXSQLItem* TQXSQLItems::GetItems(Integer index) const { return state_->items.GetItems(index); }

void TQXSQLItems::SetItems(Integer index, const TQXSQLItem& item) { GetItems(index)->Assign(&item); }

TQXSQLItem* TQXSQLItems::FindByName(std::string_view name) const {
  const Integer index = GetItemsIndex(name);
  return index >= 0 ? GetItems(index) : nullptr;
}

Integer TQXSQLItems::GetItemsIndex(std::string_view name) const { return state_->items.Find(name).last; }

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
  if (value.IsString()) return SetText(item, value);
  switch (value.Type()) {
    case varNull:
      return Set(item, value, stFunction, "NULL");
    case varBoolean:
      return Set(item, value, stBoolean, value.AsBoolean() ? "1" : "0");
    case varSmallint:
    case varInteger:
    case varByte:
      return Set(item, value, stInteger, value.AsString());
    case varSingle:
    case varDouble:
    case varCurrency:
      return Set(item, value, stReal, value.AsString());
    case varDate:
      return Set(item, value, stDate, DateToStr(value.AsDouble()));
    default:
      return;  // on purpose: the others change nothing
  }
}

bool TQXSQLItems::FindAndModify(std::string_view name, std::string_view value, TSqlStyle style) {
  TQXSQLItem* const item = FindByName(name);
  if (item == nullptr) return false;
  item->Value = value;
  item->Style = style;  // on purpose: Text is unchanged
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
