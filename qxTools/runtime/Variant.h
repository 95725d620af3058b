/// @file
/// Variant: a value with an OLE type code. Parameters, packets and value lists hold such values.
///
/// Copies are independent of each other; the copies of an array share its elements until one of them is
/// changed. Arrays may be nested to any depth. Text is converted between bytes and wide characters by code
/// page 950; bytes are kept unchanged.
///
/// As text, integers are decimal; single and double are as FloatToStr returns them with 7 and 15 digits;
/// currency has up to 4 decimals; booleans are "True" and "False"; dates are as DateTimeToStr returns them;
/// null and empty are "". Arrays, objects and references cannot be converted to text.
///
/// If memory runs out, std::bad_alloc is thrown and the value is unchanged.
#pragma once

#include <qxTools/base/Interfaces.h>
#include <qxTools/base/Types.h>

#include <concepts>
#include <memory>
#include <span>
#include <utility>
#include <variant>
#include <vector>

namespace qxTools {

/// An OLE type code. The flags varArray and varByRef can be combined with one.
using VarType = std::uint16_t;

constexpr VarType varEmpty = 0;       ///< no value was assigned
constexpr VarType varNull = 1;        ///< no value, as a database has it
constexpr VarType varSmallint = 2;    ///< 16 bits
constexpr VarType varInteger = 3;     ///< 32 bits
constexpr VarType varSingle = 4;      ///< a float
constexpr VarType varDouble = 5;      ///< a double
constexpr VarType varCurrency = 6;    ///< 64 bits, in ten-thousandths
constexpr VarType varDate = 7;        ///< TDateTime
constexpr VarType varOleStr = 8;      ///< wide text
constexpr VarType varDispatch = 9;    ///< an object
constexpr VarType varError = 10;      ///< a 32-bit code
constexpr VarType varBoolean = 11;    ///< true or false
constexpr VarType varVariant = 12;    ///< the elements of an array
constexpr VarType varUnknown = 13;    ///< an object
constexpr VarType varShortInt = 16;   ///< 8 bits
constexpr VarType varByte = 17;       ///< 8 bits, unsigned
constexpr VarType varWord = 18;       ///< 16 bits, unsigned
constexpr VarType varLongWord = 19;   ///< 32 bits, unsigned
constexpr VarType varInt64 = 20;      ///< 64 bits
constexpr VarType varStrArg = 0x48;   ///< narrow text, as an argument
constexpr VarType varString = 0x100;  ///< narrow text
constexpr VarType varArray = 0x2000;  ///< flag: an array of the type beside it
constexpr VarType varByRef = 0x4000;  ///< flag: a reference

/// The bounds of one dimension of an array, both ends included.
struct VarBounds {
  Integer Low = 0;    ///< The first index.
  Integer High = -1;  ///< The last index.

  /// Returns whether two dimensions have the same bounds.
  friend bool operator==(const VarBounds&, const VarBounds&) = default;
};

struct VariantArray;  // the elements of an array
/// Pairs of arrays that are still to be compared.
using VariantArrayPairs = std::vector<std::pair<const VariantArray*, const VariantArray*>>;

/// An integer type that a Variant has a type code for: not bool, a character type or unsigned 64 bits.
template <class T>
concept VariantInteger =
    std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> && !std::same_as<T, wchar_t> &&
    !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t> &&
    (sizeof(T) < 8 || std::is_signed_v<T>);

/// A value with its type code.
class QXTOOLS_API Variant {
 public:
  // --- Making one ------------------------------------------------------------------------------------
  /// Makes an empty value: none was assigned.
  Variant() noexcept = default;
  /// Copies a value. The elements of an array are shared until one of the copies is changed.
  Variant(const Variant&) = default;
  /// Takes the value of another one, which must then be assigned or destroyed.
  Variant(Variant&&) noexcept = default;
  /// Copies a value. `other` may be part of the old value. If memory runs out, std::bad_alloc is thrown and
  /// the old value is kept.
  Variant& operator=(const Variant& other) { return *this = Variant(other); }
  /// Takes the value of another one, which must then be assigned or destroyed.
  Variant& operator=(Variant&&) noexcept = default;
  ~Variant() = default;
  /// Makes a boolean. Accepts only bool, so that a pointer is not converted to bool by accident.
  template <std::same_as<bool> T>
  Variant(T value) : value_(std::int64_t{value}), type_(varBoolean) {}
  /// Makes an integer with the type code of the argument's size and sign.
  template <VariantInteger T>
  Variant(T value) : value_(std::int64_t{value}), type_(IntegerType(sizeof(T), std::is_signed_v<T>)) {}
  /// Makes a single (varSingle).
  Variant(float value) : value_(static_cast<double>(value)), type_(varSingle) {}
  /// Makes a double (varDouble).
  Variant(double value) : value_(value), type_(varDouble) {}
  /// Makes a text (varString) from zero-terminated bytes.
  Variant(const char* text) : Variant(std::string(text)) {}
  /// Makes a text (varString).
  Variant(std::string text) : value_(std::move(text)), type_(varString) {}
  /// Makes a text (varString).
  Variant(std::string_view text) : Variant(std::string(text)) {}
  /// Makes a wide text (varOleStr) from zero-terminated characters.
  Variant(const char16_t* text) : Variant(std::u16string(text)) {}
  /// Makes a wide text (varOleStr).
  Variant(std::u16string text) : value_(std::move(text)), type_(varOleStr) {}

  /// Makes a null, as a database has it.
  static Variant Null() { return OfType(varNull); }
  /// Makes a date.
  static Variant FromDate(TDateTime date);
  /// Makes an amount of money. `scaled` is the amount in ten-thousandths.
  static Variant FromCurrency(std::int64_t scaled);
  /// Makes a result code.
  static Variant FromError(Integer code);
  /// Makes a reference to an object (varDispatch), which may be null.
  static Variant FromDispatch(IInterface* object);
  /// Makes a reference to an object (varUnknown), which may be null.
  static Variant FromUnknown(IInterface* object);
  /// Makes a value of this type code: 0, "", a null reference or an array without elements. For a
  /// by-reference or unknown code the result has the code and no value.
  static Variant OfType(VarType type);
  /// Makes an array with these dimensions. Every element is empty; if `element` is varByte, every one is 0.
  /// @throws EVariantError "Variant array is too large" beyond 2^31 - 1 elements, or "Variant array index out
  /// of bounds" if a high bound is more than one below its low bound.
  static Variant NewArray(std::span<const VarBounds> bounds, VarType element = varVariant);
  /// Makes an array of one dimension with the indexes `low` to `high`. Every element is empty; if `element`
  /// is varByte, every one is 0.
  /// @throws EVariantError "Variant array is too large" beyond 2^31 - 1 elements, or "Variant array index out
  /// of bounds" if `high` is more than one below `low`.
  static Variant NewArray(Integer low, Integer high, VarType element = varVariant);

  // --- Reading it ------------------------------------------------------------------------------------
  /// Returns the type code.
  VarType Type() const { return type_; }
  /// Returns whether no value was assigned.
  bool IsEmpty() const { return type_ == varEmpty; }
  /// Returns whether the value is null.
  bool IsNull() const { return type_ == varNull; }
  /// Returns whether the value is an array.
  bool IsArray() const { return (type_ & varArray) != 0; }
  /// Returns whether the value is a text, of bytes or of wide characters.
  bool IsString() const { return type_ == varString || type_ == varStrArg || type_ == varOleStr; }

  /// Returns the value as text.
  /// @throws EVariantError "Variant has no text form" for an array, an object or a reference.
  AnsiString AsString() const;
  /// Returns the value as wide text.
  /// @throws EVariantError "Variant has no text form" for an array, an object or a reference.
  WideString AsWideString() const;
  /// Returns the value as an integer. Null and empty are 0, true is -1; other numbers are rounded to the
  /// nearest integer, of two equally near ones to the even one. Text is read by StrToInt.
  /// @throws EVariantError if the number does not fit 32 bits, or for an array, an object or a reference.
  /// @throws EConvertError if a text is not an integer.
  Integer AsInteger() const;
  /// Returns the value as a number. Null and empty are 0, true is -1. Text is read by StrToFloat.
  /// @throws EVariantError "Variant has no number form" for an array, an object or a reference.
  /// @throws EConvertError if a text is not a number.
  double AsDouble() const;
  /// Returns whether the value as a number is not 0. The texts "True" and "False", in any letter case, are
  /// true and false.
  /// @throws EVariantError "Variant has no number form" for an array, an object or a reference.
  /// @throws EConvertError if a text is neither of these nor a number.
  bool AsBoolean() const;
  /// Returns the object, or null if the value is not one. No reference is added.
  IInterface* AsInterface() const;

  /// Returns whether type code and value are equal. Arrays are compared element by element.
  friend QXTOOLS_API bool operator==(const Variant& a, const Variant& b);

  // --- Arrays ----------------------------------------------------------------------------------------
  /// Returns the number of dimensions.
  /// @throws EVariantError "Variant is not an array".
  Integer DimCount() const;
  /// Returns the bounds of a dimension, counted from 1.
  /// @throws EVariantError "Variant is not an array", or "Variant array index out of bounds" if it does not
  /// have this dimension.
  VarBounds Bounds(Integer dimension = 1) const;
  /// Returns a copy of the element at these indexes, one for each dimension.
  /// @throws EVariantError "Variant is not an array", or "Variant array index out of bounds".
  Variant GetElement(std::span<const Integer> indexes) const;
  /// Returns a copy of the element at this index of an array of one dimension.
  /// @throws EVariantError "Variant is not an array", or "Variant array index out of bounds".
  Variant GetElement(Integer index) const { return GetElement(std::span(&index, 1)); }
  /// Replaces the element at these indexes, one for each dimension. An element of a varByte array is set to
  /// the low 8 bits of `value` as an integer.
  /// @throws EVariantError "Variant is not an array", or "Variant array index out of bounds".
  void SetElement(std::span<const Integer> indexes, const Variant& value);
  /// Replaces the element at this index of an array of one dimension. An element of a varByte array is set to
  /// the low 8 bits of `value` as an integer.
  /// @throws EVariantError "Variant is not an array", or "Variant array index out of bounds".
  void SetElement(Integer index, const Variant& value) { SetElement(std::span(&index, 1), value); }
  /// Returns all elements of a varByte array; the index of the first dimension changes fastest. The span is
  /// valid until the next change of this value.
  /// @throws EVariantError "Variant is not an array", or "Variant is not an array of bytes".
  std::span<const std::uint8_t> Bytes() const;
  /// Returns all elements of a varByte array to be changed; the index of the first dimension changes fastest.
  /// Other copies of this value do not change. The span is valid until the next change of this value.
  /// @throws EVariantError "Variant is not an array", or "Variant is not an array of bytes".
  std::span<std::uint8_t> Bytes();

 private:
  /// A counted reference to an object.
  class QXTOOLS_API Reference {
   public:
    Reference() = default;
    explicit Reference(IInterface* object);
    Reference(const Reference& other) : Reference(other.object_) {}
    Reference(Reference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Reference& operator=(Reference other) noexcept {
      std::swap(object_, other.object_);
      return *this;
    }
    ~Reference();
    IInterface* Get() const { return object_; }
    friend bool operator==(const Reference&, const Reference&) = default;

   private:
    IInterface* object_ = nullptr;
  };

  using Storage = std::variant<std::monostate, std::int64_t, double, std::string, std::u16string, Reference,
                               std::shared_ptr<VariantArray>>;

  Variant(VarType type, Storage value) : value_(std::move(value)), type_(type) {}

  static constexpr VarType IntegerType(std::size_t size, bool isSigned) {
    switch (size) {
      case 1:
        return isSigned ? varShortInt : varByte;
      case 2:
        return isSigned ? varSmallint : varWord;
      case 4:
        return isSigned ? varInteger : varLongWord;
      default:
        return varInt64;
    }
  }

  friend struct VariantArray;
  friend struct OleForm;  // the system's own form of a value

  const VariantArray& ArrayToRead() const;
  VariantArray& ArrayToWrite();
  std::shared_ptr<VariantArray> TakeArray() noexcept;
  bool IsLike(const Variant& other, VariantArrayPairs& pending) const;
  bool HasNumber() const { return std::holds_alternative<std::int64_t>(value_); }

  [[no_unique_address]] Storage value_;  // type_ is in the padding at its end
  VarType type_ = varEmpty;
};

}  // namespace qxTools
