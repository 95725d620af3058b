#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/windows/OleVariant.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace qxTools {

namespace {

constexpr int kDeepest = 256;

[[noreturn]] void RaiseUnreadable() { throw EVariantError("VARIANT has no Variant form"); }
[[noreturn]] void RaiseNoOleForm() { throw EVariantError("Variant has no VARIANT form"); }

void CheckDepth(int depth) {
  if (depth > kDeepest) throw EVariantError("Variant is nested too deeply");
}

/// The types that a SAFEARRAY and a Variant array both have.
bool IsElementType(VARTYPE type) {
  return (type >= VT_I2 && type <= VT_UNKNOWN) || (type >= VT_I1 && type <= VT_UI4) || type == VT_I8;
}

std::vector<VarBounds> BoundsOf(const Variant& array) {
  std::vector<VarBounds> bounds;
  for (Integer i = 1; i <= array.DimCount(); ++i) bounds.push_back(array.Bounds(i));
  return bounds;
}

/// The indexes of each element in the order of memory: those of the first dimension change fastest.
class ElementPlaces {
 public:
  explicit ElementPlaces(const std::vector<VarBounds>& bounds) : bounds_(bounds) {
    for (const VarBounds& dimension : bounds) {
      indexes_.push_back(dimension.Low);
      if (dimension.High < dimension.Low) hasMore_ = false;
    }
  }

  bool HasMore() const { return hasMore_; }
  std::span<const Integer> Indexes() const { return indexes_; }
  void Advance() {
    for (std::size_t i = 0; i < indexes_.size(); ++i) {
      if (indexes_[i] < bounds_[i].High) {
        ++indexes_[i];
        return;
      }
      indexes_[i] = bounds_[i].Low;
    }
    hasMore_ = false;
  }

 private:
  const std::vector<VarBounds>& bounds_;
  std::vector<Integer> indexes_;
  bool hasMore_ = true;
};

// --- From the system's form --------------------------------------------------

template <class T>
T Load(const void* at) {
  T value;
  std::memcpy(&value, at, sizeof(T));
  return value;
}

Variant ReadText(BSTR text) {
  if (::SysStringByteLen(text) % sizeof(OLECHAR) != 0) RaiseUnreadable();
  const auto* const units = reinterpret_cast<const char16_t*>(text);
  return text == nullptr ? std::u16string() : std::u16string(units, ::SysStringLen(text));
}

Variant ReadUnsigned(std::uint64_t value) {
  if (value > std::uint64_t{std::numeric_limits<std::int64_t>::max()}) RaiseUnreadable();
  return static_cast<std::int64_t>(value);
}

Variant Read(VARTYPE type, const void* at, int depth);

VarBounds ReadBounds(SAFEARRAY* array, UINT dimension) {
  LONG low = 0;
  LONG high = 0;
  ::SafeArrayGetLBound(array, dimension, &low);
  ::SafeArrayGetUBound(array, dimension, &high);
  return {low, high};
}

/// The type code of elements, which a Variant may have by another name.
VarType ReadElementType(VARTYPE type) {
  if (type == VT_INT) return varInteger;
  if (type == VT_UINT) return varLongWord;
  if (type == VT_UI8) return varInt64;
  return IsElementType(type) ? type : (RaiseUnreadable(), type);
}

Variant ReadArray(VARTYPE type, SAFEARRAY* array, int depth) {
  if (array == nullptr) return Variant::NewArray(0, -1, ReadElementType(type));
  std::vector<VarBounds> bounds;
  for (UINT i = 1; i <= array->cDims; ++i) bounds.push_back(ReadBounds(array, i));
  Variant result = Variant::NewArray(bounds, ReadElementType(type));
  const auto* at = static_cast<const std::uint8_t*>(array->pvData);
  if (type == VT_UI1) {
    const std::span<std::uint8_t> bytes = result.Bytes();
    std::copy_n(at, bytes.size(), bytes.begin());
    return result;
  }
  for (ElementPlaces place(bounds); place.HasMore(); place.Advance(), at += array->cbElements)
    result.SetElement(place.Indexes(), Read(type, at, depth));
  return result;
}

/// The value of this type at an address. It may be an element of an array, or in a VARIANT.
Variant Read(VARTYPE type, const void* at, int depth) {
  CheckDepth(depth);
  if (at == nullptr) RaiseUnreadable();
  if ((type & VT_BYREF) != 0)
    return Read(static_cast<VARTYPE>(type & ~VT_BYREF), Load<const void*>(at), depth + 1);
  if ((type & VT_ARRAY) != 0)
    return ReadArray(static_cast<VARTYPE>(type & ~VT_ARRAY), Load<SAFEARRAY*>(at), depth);
  switch (type) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Variant::Null();
    case VT_I1:
      return Load<std::int8_t>(at);
    case VT_I2:
      return Load<std::int16_t>(at);
    case VT_I4:
    case VT_INT:
      return Load<std::int32_t>(at);
    case VT_I8:
      return Load<std::int64_t>(at);
    case VT_UI1:
      return Load<std::uint8_t>(at);
    case VT_UI2:
      return Load<std::uint16_t>(at);
    case VT_UI4:
    case VT_UINT:
      return Load<std::uint32_t>(at);
    case VT_UI8:
      return ReadUnsigned(Load<std::uint64_t>(at));
    case VT_R4:
      return Load<float>(at);
    case VT_R8:
      return Load<double>(at);
    case VT_CY:
      return Variant::FromCurrency(Load<std::int64_t>(at));
    case VT_DATE:
      return Variant::FromDate(Load<double>(at));
    case VT_ERROR:
      return Variant::FromError(Load<std::int32_t>(at));
    case VT_BOOL:
      return Load<VARIANT_BOOL>(at) != VARIANT_FALSE;
    case VT_BSTR:
      return ReadText(Load<BSTR>(at));
    case VT_DISPATCH:
      return Variant::FromDispatch(Load<IInterface*>(at));
    case VT_UNKNOWN:
      return Variant::FromUnknown(Load<IInterface*>(at));
    case VT_VARIANT:
      return Read(static_cast<const VARIANT*>(at)->vt, &static_cast<const VARIANT*>(at)->llVal, depth + 1);
    default:
      RaiseUnreadable();
  }
}

// --- To the system's form ----------------------------------------------------

/// A VARIANT that frees what it holds.
class OleValue {
 public:
  OleValue() { ::VariantInit(&value_); }
  OleValue(const OleValue&) = delete;
  OleValue& operator=(const OleValue&) = delete;
  ~OleValue() { ::VariantClear(&value_); }

  VARIANT& Get() { return value_; }

 private:
  VARIANT value_;
};

struct ArrayDeleter {
  void operator()(SAFEARRAY* array) const { ::SafeArrayDestroy(array); }
};
using OleArray = std::unique_ptr<SAFEARRAY, ArrayDeleter>;

BSTR MakeText(std::u16string_view text) {
  if (text.size() > std::size_t{std::numeric_limits<Integer>::max()}) throw std::bad_alloc();
  const auto* const units = reinterpret_cast<const OLECHAR*>(text.data());
  const BSTR made = ::SysAllocStringLen(units, static_cast<UINT>(text.size()));
  return made != nullptr ? made : throw std::bad_alloc();
}

OleArray MakeArray(VARTYPE type, const std::vector<VarBounds>& bounds) {
  if (!IsElementType(type) || bounds.empty() || bounds.size() > 0xFFFF) RaiseNoOleForm();
  std::vector<SAFEARRAYBOUND> sides;
  for (const VarBounds& side : bounds)
    sides.push_back({static_cast<ULONG>(std::int64_t{side.High} - side.Low + 1), side.Low});
  OleArray made(::SafeArrayCreate(type, static_cast<UINT>(sides.size()), sides.data()));
  return made != nullptr ? std::move(made) : throw std::bad_alloc();
}

}  // namespace

struct OleForm {
  /// Puts `value` into `to`, which is empty.
  static void Write(const Variant& value, VARIANT& to, int depth) {
    CheckDepth(depth);
    VARTYPE type = value.type_;
    if (const auto* number = std::get_if<std::int64_t>(&value.value_))
      to.llVal = type == varBoolean ? -*number : *number;  // smaller types take the low bytes
    else if (const auto* real = std::get_if<double>(&value.value_))
      type == varSingle ? void(to.fltVal = static_cast<float>(*real)) : void(to.dblVal = *real);
    else if (value.IsString())
      WriteText(value.AsWideString(), to, type);
    else if (std::holds_alternative<Variant::Reference>(value.value_))
      WriteObject(value.AsInterface(), to);
    else if (std::holds_alternative<std::shared_ptr<VariantArray>>(value.value_))
      WriteArray(value, to, type, depth);
    else if (type != varEmpty && type != varNull)
      RaiseNoOleForm();
    to.vt = type;
  }

 private:
  static void WriteText(const WideString& text, VARIANT& to, VARTYPE& type) {
    to.bstrVal = MakeText(text);
    type = VT_BSTR;
  }

  static void WriteObject(IInterface* object, VARIANT& to) {
    if (object != nullptr) object->_AddRef();
    to.punkVal = reinterpret_cast<IUnknown*>(object);
  }

  static void WriteArray(const Variant& value, VARIANT& to, VARTYPE& type, int depth) {
    const auto held = static_cast<VARTYPE>(type & ~varArray);
    const VARTYPE element = held == varString || held == varStrArg ? VARTYPE{VT_BSTR} : held;
    const std::vector<VarBounds> bounds = BoundsOf(value);
    OleArray made = MakeArray(element, bounds);
    auto* at = static_cast<std::uint8_t*>(made->pvData);
    if (element == VT_UI1)
      std::ranges::copy(value.Bytes(), at);
    else
      for (ElementPlaces place(bounds); place.HasMore(); place.Advance(), at += made->cbElements)
        WriteElement(value.GetElement(place.Indexes()), element, at, made->cbElements, depth + 1);
    to.parray = made.release();
    type = static_cast<VARTYPE>(VT_ARRAY | element);
  }

  /// Puts `value` at a place of an array, which is filled with zero bytes.
  static void WriteElement(const Variant& value, VARTYPE type, void* at, std::size_t size, int depth) {
    if (value.IsEmpty()) return;
    OleValue made;
    VARIANT& form = made.Get();
    Write(value, form, depth);
    if (type == VT_VARIANT) return std::swap(form, *static_cast<VARIANT*>(at));
    if (form.vt != type && FAILED(::VariantChangeTypeEx(&form, &form, LOCALE_INVARIANT, 0, type)))
      RaiseNoOleForm();
    std::memcpy(at, &form.llVal, size);
    ::VariantInit(&form);  // the array holds it now
  }
};

Variant VariantFromOle(const VARIANT& value) { return Read(VT_VARIANT, &value, -1); }

void VariantToOle(const Variant& value, VARIANT& result) {
  OleValue made;
  OleForm::Write(value, made.Get(), 0);
  if (FAILED(::VariantClear(&result))) throw EVariantError("VARIANT cannot be replaced");
  std::swap(made.Get(), result);
}

}  // namespace qxTools
