// A parameter or macro of a set: its type and length come from its value.
#include <qxTools/base/Ascii.h>
#include <qxTools/runtime/NamePlaces.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <qxTools/strings/QXStrTools.h>

namespace qxTools::qxSqlStoreProc {

TStoreProcParamType VarToParamType(const Variant& value) {
  switch (value.Type()) {
    case varEmpty:
    case varNull:
    case varVariant:
      return spSql_variant;
    case varSmallint:
      return spSmallint;
    case varInteger:
    case varWord:
    case varLongWord:
      return spInt;
    case varSingle:
      return spDecimal;
    case varDouble:
      return spFloat;
    case varCurrency:
      return spMoney;
    case varDate:
      return spDatetime;
    case varBoolean:
      return spBit;
    case varShortInt:
    case varByte:
      return spTinyint;
    case varInt64:
      return spBigint;
    case varOleStr:
    case varStrArg:
    case varString:
      return spVarchar;
    case varArray:
      return spVarbinary;  // on purpose: the bare code, no typed array
    default:
      return spUnknown;
  }
}

Integer VarLength(const Variant& value) {
  if (value.Type() == varArray) return value.DimCount();
  return value.IsString() ? static_cast<Integer>(value.AsString().size()) : 0;
}

TQXSqlStoreProcItem::~TQXSqlStoreProcItem() = default;

void TQXSqlStoreProcItem::SetName(std::string_view name) {
  std::string trimmed = QXStrTools::Trim(name, 0);
  upperName_ = UpperCase(trimmed);
  name_ = std::move(trimmed);
  if (names_ != nullptr) names_->Drop();
}

void TQXSqlStoreProcItem::SetValue(const Variant& value) {
  const TStoreProcParamType style = VarToParamType(value);
  const Integer length = VarLength(value);
  value_ = value;
  if (!autoStyle_) return;
  style_ = style;
  length_ = length;
}

AnsiString TQXSqlStoreProcItem::GetSqlValue() const { return QXSqlTools::VarToSql(value_); }

}  // namespace qxTools::qxSqlStoreProc
