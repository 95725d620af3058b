#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/runtime/Numbers.h>
#include <qxTools/runtime/Variant.h>
#include <qxTools/runtime/VariantArray.h>

#include <cmath>
#include <limits>

namespace qxTools {

namespace {

constexpr std::int64_t kCurrencyScale = 10000;

[[noreturn]] void RaiseNoForm(const char* form) {
  throw EVariantError(std::string("Variant has no ") + form + " form");
}

std::string CurrencyText(std::int64_t scaled) {
  const auto magnitude =
      scaled < 0 ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
  std::string text = std::to_string(magnitude / kCurrencyScale);
  std::string decimals =
      std::to_string(kCurrencyScale + static_cast<std::int64_t>(magnitude % kCurrencyScale));
  decimals.erase(decimals.find_last_not_of('0') + 1);
  if (decimals.size() > 1) text += GetFormatSettings().DecimalSeparator + decimals.substr(1);
  return scaled < 0 ? "-" + text : text;
}

/// The amount in whole units, ties to even; in integers, since a double does not hold every amount.
std::int64_t RoundCurrency(std::int64_t scaled) {
  const std::int64_t whole = scaled / kCurrencyScale;
  const std::int64_t rest = std::abs(scaled % kCurrencyScale);
  const bool awayFromZero = rest > kCurrencyScale / 2 || (rest == kCurrencyScale / 2 && whole % 2 != 0);
  return awayFromZero ? whole + (scaled < 0 ? -1 : 1) : whole;
}

Integer Checked32(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
    throw EVariantError("Variant is beyond the range of an integer");
  return static_cast<Integer>(rounded);
}

}  // namespace

// --- Reference ---------------------------------------------------------------------------------------

Variant::Reference::Reference(IInterface* object) : object_(object) {
  if (object_ != nullptr) object_->_AddRef();
}

Variant::Reference::~Reference() {
  if (object_ != nullptr) object_->_Release();
}

// --- Making one --------------------------------------------------------------------------------------

Variant Variant::FromDate(TDateTime date) { return {varDate, date}; }
Variant Variant::FromCurrency(std::int64_t scaled) { return {varCurrency, scaled}; }
Variant Variant::FromError(Integer code) { return {varError, std::int64_t{code}}; }
Variant Variant::FromDispatch(IInterface* object) { return {varDispatch, Reference(object)}; }
Variant Variant::FromUnknown(IInterface* object) { return {varUnknown, Reference(object)}; }

Variant Variant::OfType(VarType type) {
  switch (type) {
    case varSmallint:
    case varInteger:
    case varCurrency:
    case varError:
    case varBoolean:
    case varShortInt:
    case varByte:
    case varWord:
    case varLongWord:
    case varInt64:
      return {type, std::int64_t{0}};
    case varSingle:
    case varDouble:
    case varDate:
      return {type, 0.0};
    case varOleStr:
      return {type, std::u16string()};
    case varStrArg:
    case varString:
      return {type, std::string()};
    case varDispatch:
    case varUnknown:
      return {type, Reference()};
    default:
      break;
  }
  if ((type & varArray) != 0 && (type & varByRef) == 0)
    return NewArray(0, -1, static_cast<VarType>(type & ~varArray));
  return {type, std::monostate()};
}

Variant Variant::NewArray(std::span<const VarBounds> bounds, VarType element) {
  return {static_cast<VarType>(element | varArray), std::make_shared<VariantArray>(bounds, element)};
}

Variant Variant::NewArray(Integer low, Integer high, VarType element) {
  const VarBounds bounds{low, high};
  return NewArray(std::span(&bounds, 1), element);
}

// --- Forms -------------------------------------------------------------------------------------------

AnsiString Variant::AsString() const {
  if (const auto* text = std::get_if<std::string>(&value_)) return *text;
  if (const auto* wide = std::get_if<std::u16string>(&value_)) return WideToBytes(*wide);
  switch (type_) {
    case varEmpty:
    case varNull:
      return "";
    case varBoolean:
      return AsBoolean() ? "True" : "False";
    case varCurrency:
      return CurrencyText(std::get<std::int64_t>(value_));
    case varSingle:
      return FloatToStr(std::get<double>(value_), 7);
    case varDouble:
      return FloatToStr(std::get<double>(value_), 15);
    case varDate:
      return DateTimeToStr(std::get<double>(value_));
    default:
      break;
  }
  if (HasNumber()) return std::to_string(std::get<std::int64_t>(value_));
  RaiseNoForm("text");
}

WideString Variant::AsWideString() const {
  if (const auto* wide = std::get_if<std::u16string>(&value_)) return *wide;
  return BytesToWide(AsString());
}

Integer Variant::AsInteger() const {
  if (IsString()) return StrToInt(AsString());
  if (type_ == varCurrency)
    return Checked32(static_cast<double>(RoundCurrency(std::get<std::int64_t>(value_))));
  return Checked32(AsDouble());
}

double Variant::AsDouble() const {
  if (IsString()) return StrToFloat(AsString());
  if (const auto* real = std::get_if<double>(&value_)) return *real;
  if (type_ == varEmpty || type_ == varNull) return 0;
  if (!HasNumber()) RaiseNoForm("number");
  const std::int64_t number = std::get<std::int64_t>(value_);
  if (type_ == varBoolean) return number != 0 ? -1 : 0;
  if (type_ == varCurrency) return static_cast<double>(number) / kCurrencyScale;
  return static_cast<double>(number);
}

bool Variant::AsBoolean() const {
  if (IsString()) {
    const std::string text = UpperCase(AsString());
    if (text == "TRUE") return true;
    if (text == "FALSE") return false;
  }
  return AsDouble() != 0;
}

IInterface* Variant::AsInterface() const {
  const auto* reference = std::get_if<Reference>(&value_);
  return reference != nullptr ? reference->Get() : nullptr;
}

bool Variant::IsLike(const Variant& other, VariantArrayPairs& pending) const {
  if (type_ != other.type_) return false;
  const auto* array = std::get_if<std::shared_ptr<VariantArray>>(&value_);
  const auto* otherArray = std::get_if<std::shared_ptr<VariantArray>>(&other.value_);
  if (array == nullptr || otherArray == nullptr) return value_ == other.value_;
  pending.emplace_back(array->get(), otherArray->get());
  return true;
}

bool operator==(const Variant& a, const Variant& b) {
  VariantArrayPairs pending;
  if (!a.IsLike(b, pending)) return false;
  while (!pending.empty()) {
    const auto [array, otherArray] = pending.back();
    pending.pop_back();
    if (!array->IsLike(*otherArray, pending)) return false;
  }
  return true;
}

// --- Arrays ------------------------------------------------------------------------------------------

const VariantArray& Variant::ArrayToRead() const {
  const auto* array = std::get_if<std::shared_ptr<VariantArray>>(&value_);
  if (array == nullptr) throw EVariantError("Variant is not an array");
  return **array;
}

VariantArray& Variant::ArrayToWrite() {
  ArrayToRead();  // throws if there is none
  auto& array = std::get<std::shared_ptr<VariantArray>>(value_);
  if (array.use_count() > 1) array = std::make_shared<VariantArray>(*array);
  return *array;
}

std::shared_ptr<VariantArray> Variant::TakeArray() noexcept {
  auto* const array = std::get_if<std::shared_ptr<VariantArray>>(&value_);
  return array != nullptr ? std::move(*array) : nullptr;
}

Integer Variant::DimCount() const { return static_cast<Integer>(ArrayToRead().Bounds.size()); }

VarBounds Variant::Bounds(Integer dimension) const {
  const VariantArray& array = ArrayToRead();
  if (dimension < 1 || dimension > DimCount()) RaiseArrayIndex();
  return array.Bounds[static_cast<std::size_t>(dimension - 1)];
}

Variant Variant::GetElement(std::span<const Integer> indexes) const { return ArrayToRead().Get(indexes); }

void Variant::SetElement(std::span<const Integer> indexes, const Variant& value) {
  // It may be an element of this very array.
  const Variant kept = value;  // NOLINT(performance-unnecessary-copy-initialization)
  ArrayToWrite().Set(indexes, kept);
}

std::span<const std::uint8_t> Variant::Bytes() const { return ArrayToRead().Bytes(); }

std::span<std::uint8_t> Variant::Bytes() { return ArrayToWrite().Bytes(); }

}  // namespace qxTools
