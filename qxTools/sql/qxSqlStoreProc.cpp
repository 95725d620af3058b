#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/CodePage950Bytes.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/NamedList.h>
#include <qxTools/runtime/Numbers.h>
#include <qxTools/sql/NameScanner.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/StoreProcText.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <qxTools/strings/QXStrTools.h>

#include <algorithm>

namespace qxTools::qxSqlStoreProc {

namespace {

std::array<std::string, 15> TypeNames() {
  return {"Unknown", "Bigint", "Bit",      "Char",        "NChar",   "Datetime",  "Decimal", "Float",
          "Int",     "Money",  "Smallint", "Sql_variant", "Tinyint", "Varbinary", "Varchar"};
}

}  // namespace

QXTOOLS_GLOBAL std::array<std::string, 15> StoreProcParamTypeStr = TypeNames();

void FillGlobals() { StoreProcParamTypeStr = TypeNames(); }

void ReleaseGlobals() { StoreProcParamTypeStr = {}; }

namespace {

constexpr int kTrimBoth = 0;
constexpr std::string_view kItemSeparator = " , ";

std::string Trim(std::string_view s) { return QXStrTools::Trim(s, kTrimBoth); }

/// With spAuto only @MM and @MM_... are parameters.
bool IsKept(std::string_view name, TSearchParamType mode) {
  const auto isM = [&](std::size_t at) { return (name[at] & 0xDF) == 'M'; };
  return mode == spAll || (name.size() >= 3 && isM(1) && isM(2) && (name.size() == 3 || name[3] == '_'));
}

TStoreProcParamType FindType(std::string_view text) {
  const std::string upper = UpperCase(text);
  const auto found =
      std::ranges::find_if(StoreProcParamTypeStr, [&](const auto& type) { return UpperCase(type) == upper; });
  if (found == StoreProcParamTypeStr.end()) throw Exception("ParamStyle not Found");
  return static_cast<TStoreProcParamType>(found - StoreProcParamTypeStr.begin());
}

/// Returns the number between the first "(" and the first ")", which must be after it.
Integer ReadLength(std::string_view type, std::size_t open) {
  const std::size_t close = type.find(')');
  return StrToInt(close == kNone || close < open ? "" : type.substr(open + 1, close - open - 1));
}

/// Removes the CR LF pairs of the text in one pass; a pair that the removal makes is kept.
std::string RemoveBreaks(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  for (std::size_t pair = text.find("\r\n"); pair != kNone; pair = text.find("\r\n")) {
    kept.append(text, 0, pair);
    text.remove_prefix(pair + 2);
  }
  kept.append(text);
  return kept;
}

void Append(std::string& list, std::string_view item) {
  if (!list.empty()) list += kItemSeparator;
  list += item;
}

}  // namespace

// --- The statement -----------------------------------------------------------------------------------

struct TQXSqlStoreProc::State {
  struct CaselessName {
    static std::string_view Of(const TQXSqlStoreProcItem& item) { return item.GetName(); }
    static bool Same(std::string_view name, std::string_view asked) { return SameHashedName(name, asked); }
  };
  using Items = NamedList<TQXSqlStoreProcItem, CaselessName>;

  static TQXSqlStoreProcItem* Add(Items& items, std::string_view name) {
    auto item = std::make_unique<TQXSqlStoreProcItem>();
    item->SetName(name);
    item->names_ = &items.Names();
    return items.Add(std::move(item));
  }

  Items params;
  Items macros;
};

TQXSqlStoreProc::TQXSqlStoreProc() : state_(std::make_unique<State>()) {
  statement_.SetOnChange([this](TObject* sender) { DoChange(sender); });
}

TQXSqlStoreProc::~TQXSqlStoreProc() { TQXSqlStoreProc::Clear(); }

void TQXSqlStoreProc::LoadStoreProc(const TStrings* lines) {
  std::string text = lines->GetText();
  UseMainCodes(text);
  RemoveNotes(text);
  Load(std::move(text));
}

void TQXSqlStoreProc::LoadStoreProc(std::u16string_view text) {
  // Here, so that the wide copy, if one is needed, ends before the rest.
  std::string bytes = WideToBytes(HasNotes(text) ? ClearNote(text) : text);
  Load(std::move(bytes));
}

// Large texts: the update's end reads the statement again, so the text is taken over and ends before it.
void TQXSqlStoreProc::Load(std::string text) {
  statement_.Clear();
  StringsUpdate update(statement_);
  {
    const std::string statement = std::move(text);
    statement_.SetText(statement);
  }
  update.End();
}

void TQXSqlStoreProc::SetSearchParamType(TSearchParamType mode) {
  searchMode_ = mode;
  SearchAllParams();
}

void TQXSqlStoreProc::DoChange(TObject*) { SearchAllParams(); }

void TQXSqlStoreProc::SearchAllParams() {
  Clear();
  const std::string text = statement_.GetText();
  state_->params.AddAllOrNothing([&] {
    FindNames(text);
    state_->macros.AddAllOrNothing([&] { FindMacros(text); });
  });
}

void TQXSqlStoreProc::FindNames(std::string_view text) {
  NameScanner scanner(text, Literals::kSkip);
  for (std::string_view name; scanner.Next(name);) {
    name = scanner.WithMark(name);
    if (IsKept(name, searchMode_) && state_->params.Find(name).last < 0) State::Add(state_->params, name);
  }
}

void TQXSqlStoreProc::FindMacros(std::string_view text) {
  std::size_t close = text.find(']');
  for (std::size_t open = text.find("[$"); open != kNone; open = text.find("[$", open + 1)) {
    if (close < open) close = text.find(']', open);
    if (close == kNone) return;
    const std::string_view name = text.substr(open, close + 1 - open);
    if (state_->macros.Find(name).last < 0) State::Add(state_->macros, name);
  }
}

WideString TQXSqlStoreProc::ClearNote(std::u16string_view text) {
  WideString kept(text);
  RemoveNotes(kept);
  return kept;
}

// --- Parameters and macros ---------------------------------------------------------------------------

void TQXSqlStoreProc::Clear() {
  state_->params.Clear();
  state_->macros.Clear();
}

Integer TQXSqlStoreProc::GetParamCount() const { return state_->params.GetCount(); }

Integer TQXSqlStoreProc::GetFuncCount() const { return state_->macros.GetCount(); }

TQXSqlStoreProcItem* TQXSqlStoreProc::GetItems(Integer index) const { return state_->params.GetItems(index); }

TQXSqlStoreProcItem* TQXSqlStoreProc::GetFuncItems(Integer index) const {
  return state_->macros.GetItems(index);
}

Integer TQXSqlStoreProc::FindParam(std::string_view name) const {
  return state_->params.Find(Trim(name)).last;
}

Integer TQXSqlStoreProc::FindFunc(std::string_view name) const {
  return state_->macros.Find(Trim(name)).last;
}

Variant TQXSqlStoreProc::GetValue(std::string_view name) const {
  const TQXSqlStoreProcItem* const item = ItemByName(name);
  return item != nullptr ? item->GetValue() : Variant();
}

void TQXSqlStoreProc::SetValue(std::string_view name, const Variant& value) {
  TQXSqlStoreProcItem* const item = ItemByName(name);
  if (item != nullptr) item->SetValue(value);
}

TQXSqlStoreProcItem* TQXSqlStoreProc::ItemByName(std::string_view name) const {
  if (name.empty()) return nullptr;
  if (name[0] == '@') return GetParams(name);
  if (name[0] == '$' && name.find_first_of("[]") == kNone) return GetFuncs("[" + std::string(name) + "]");
  if (name.starts_with("[$")) return GetFuncs(name);
  throw Exception("Invalid Name " + std::string(name));
}

TQXSqlStoreProcItem* TQXSqlStoreProc::Add() { return State::Add(state_->params, ""); }

void TQXSqlStoreProc::Delete(Integer index) { state_->params.Delete(index); }

void TQXSqlStoreProc::Delete(std::string_view name) {
  const Integer index = FindParam(name);
  if (index >= 0) Delete(index);
}

// --- Declarations ------------------------------------------------------------------------------------

void TQXSqlStoreProc::LoadParams(const TStrings* lines) {
  std::string joined;
  for (Integer i = 0; i < lines->GetCount(); ++i) joined.append(lines->GetView(i)).append(" ");
  LoadParams(BytesToWide(joined));
}

void TQXSqlStoreProc::LoadParams(std::u16string_view declarations) {
  const std::string text = RemoveBreaks(WideToBytes(ClearNote(declarations)));
  if (text.find_first_not_of(' ') == kNone) return;
  state_->params.Clear();
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(',', start), text.size());
    LoadDeclaration(Trim(std::string_view(text).substr(start, end - start)));
    start = end + 1;
  }
}

void TQXSqlStoreProc::LoadDeclaration(std::string_view piece) {
  const std::size_t blank = piece.find(' ');
  if (blank == kNone) throw Exception("Param Error");
  const std::string name = Trim(piece.substr(0, blank));
  std::string type = Trim(piece.substr(blank + 1));
  Integer length = 0;
  if (const std::size_t open = type.find('('); open != kNone) {
    length = ReadLength(type, open);
    type = Trim(std::string_view(type).substr(0, open));
  }
  const TStoreProcParamType style = FindType(type);
  if (FindParam(name) >= 0) return;
  TQXSqlStoreProcItem* const item = State::Add(state_->params, name);
  item->SetStyle(style);
  item->SetLength(length);
  item->SetAutoStyle(false);
}

AnsiString TQXSqlStoreProc::Declarations() const {
  std::string list;
  for (Integer i = 0; i < GetParamCount(); ++i) {
    const TQXSqlStoreProcItem& item = *GetItems(i);
    Append(list, item.GetName());
    list.append(1, ' ').append(StoreProcParamTypeStr[item.GetStyle()]);
    if (item.GetLength() != 0) list += "(" + std::to_string(item.GetLength()) + ")";
  }
  return list;
}

void TQXSqlStoreProc::SaveParams(WideString& declarations) const {
  declarations = BytesToWide(Declarations());
}

void TQXSqlStoreProc::SaveParams(TStrings* lines) const { lines->SetText(Declarations()); }

// --- The call ----------------------------------------------------------------------------------------

AnsiString TQXSqlStoreProc::Values() const {
  std::string list;
  for (Integer i = 0; i < GetParamCount(); ++i) Append(list, GetItems(i)->GetSqlValue());
  return list;
}

TStrings* TQXSqlStoreProc::GetStoreProc() {
  call_.Clear();
  std::vector<Macro> macros;
  for (Integer i = 0; i < GetFuncCount(); ++i)
    macros.emplace_back(GetFuncItems(i)->GetName(), GetFuncItems(i)->GetValue().AsString());
  const std::string declarations = Declarations();
  std::string values = Values();
  const bool hasValues = !declarations.empty() && !values.empty();
  std::string statement = QuoteStatement(statement_, macros, hasValues ? "'," : "'");
  try {
    call_.Add("sp_executesql N'");
    call_.Add(std::move(statement));
    if (hasValues) {
      call_.Add("N'" + declarations + "', ");
      call_.Add(std::move(values));
    }
  } catch (...) {
    call_.Clear();
    throw;
  }
  return &call_;
}

}  // namespace qxTools::qxSqlStoreProc
