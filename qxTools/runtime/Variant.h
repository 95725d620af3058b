/// @file
/// Variant: the tagged value with the OLE type codes that parameters, packets and value lists hold.
///
/// Copies are deep; arrays are shared until one of the copies is written. Text converts between narrow and
/// wide by code page 950; a narrow text stays as it is, byte for byte.
///
/// Text forms: integers in decimal; single and double as FloatToStr with 7 and 15 digits; currency with up to
/// 4 decimals; "True" and "False"; dates as DateTimeToStr; null and empty "". An array, a dispatch, an
/// unknown or a reference has no text form.
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

/// An OLE type code; varArray and varByRef are flags beside one.
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

  friend bool operator==(const VarBounds&, const VarBounds&) = default;
};

struct VariantArray;
/// Pairs of arrays that a comparison has already begun.
using VariantArrayPairs = std::vector<std::pair<const VariantArray*, const VariantArray*>>;

template <class T>
concept VariantInteger =
    std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> && !std::same_as<T, wchar_t> &&
    !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t> &&
    (sizeof(T) < 8 || std::is_signed_v<T>);

/// A value with its type code.
class QXTOOLS_API Variant {
 public:
  // --- Making one ------------------------------------------------------------------------------------
  /// Empty: no value was assigned.
  Variant() noexcept = default;
  Variant(const Variant&) = default;
  Variant(Variant&&) noexcept = default;
  /// By a copy: without memory for it the value stays as it was, and `other` may go with the old contents.
  Variant& operator=(const Variant& other) { return *this = Variant(other); }
  Variant& operator=(Variant&&) noexcept = default;
  ~Variant() = default;
  /// For bool itself, so that no pointer turns into one on the way.
  template <std::same_as<bool> T>
  Variant(T value) : type_(varBoolean), value_(std::int64_t{value}) {}
  /// The integer type of the argument's size and sign; there is none for unsigned 64 bits.
  template <VariantInteger T>
  Variant(T value) : type_(IntegerType(sizeof(T), std::is_signed_v<T>)), value_(std::int64_t{value}) {}
  /// By the type of the argument: number, narrow or wide text.
  Variant(float value) : type_(varSingle), value_(static_cast<double>(value)) {}
  Variant(double value) : type_(varDouble), value_(value) {}
  Variant(const char* text) : Variant(std::string(text)) {}
  Variant(std::string text) : type_(varString), value_(std::move(text)) {}
  Variant(std::string_view text) : Variant(std::string(text)) {}
  Variant(const char16_t* text) : Variant(std::u16string(text)) {}
  Variant(std::u16string text) : type_(varOleStr), value_(std::move(text)) {}

  /// No value, as a database has it.
  static Variant Null() { return OfType(varNull); }
  /// A date.
  static Variant FromDate(TDateTime date);
  /// `scaled` is the amount in ten-thousandths.
  static Variant FromCurrency(std::int64_t scaled);
  /// A result code.
  static Variant FromError(Integer code);
  /// Holds a reference to the object, which may be null.
  static Variant FromDispatch(IInterface* object);
  /// The same.
  static Variant FromUnknown(IInterface* object);
  /// A value of that type code that is zero, "" or a null reference. By-reference codes and codes without a
  /// meaning here make values that have their code and nothing else.
  static Variant OfType(VarType type);
  /// An array with every element empty, or 0 where `element` is varByte.
  /// @throws EVariantError "Variant array is too large" or when a high bound is more than one below its low.
  static Variant NewArray(std::span<const VarBounds> bounds, VarType element = varVariant);
  static Variant NewArray(Integer low, Integer high, VarType element = varVariant);

  // --- Looking at it ---------------------------------------------------------------------------------
  /// The type code.
  VarType Type() const { return type_; }
  /// Whether no value was assigned.
  bool IsEmpty() const { return type_ == varEmpty; }
  /// Whether it is null.
  bool IsNull() const { return type_ == varNull; }
  /// Whether it is an array.
  bool IsArray() const { return (type_ & varArray) != 0; }
  /// A narrow or a wide text.
  bool IsString() const { return type_ == varString || type_ == varStrArg || type_ == varOleStr; }

  /// The text form. @throws EVariantError when there is none.
  AnsiString AsString() const;
  /// The same, wide.
  WideString AsWideString() const;
  /// Null and empty give 0, true gives -1, other numbers are rounded (ties to even), text is read as
  /// StrToInt.
  /// @throws EVariantError beyond 32 bits or without a number form, EConvertError for other text.
  Integer AsInteger() const;
  /// The same with all the digits. @throws EVariantError without a number form, EConvertError for other text.
  double AsDouble() const;
  /// Whether the number is other than 0; the texts "True" and "False" count in any case.
  bool AsBoolean() const;
  /// The object held, without a reference taken, or null.
  IInterface* AsInterface() const;

  /// Same type code and same value; arrays element by element.
  friend QXTOOLS_API bool operator==(const Variant& a, const Variant& b);

  // --- Arrays ----------------------------------------------------------------------------------------
  // Each raises EVariantError: "Variant is not an array", or "Variant array index out of bounds" for a
  // dimension (counted from 1) or an index that the array does not have.
  /// How many dimensions there are.
  Integer DimCount() const;
  /// The bounds of one.
  VarBounds Bounds(Integer dimension = 1) const;
  /// The element at one index a dimension.
  Variant GetElement(std::span<const Integer> indexes) const;
  Variant GetElement(Integer index) const { return GetElement(std::span(&index, 1)); }
  /// Elements of a varByte array take integers, cut to 8 bits; those of other arrays take any value.
  void SetElement(std::span<const Integer> indexes, const Variant& value);
  void SetElement(Integer index, const Variant& value) { SetElement(std::span(&index, 1), value); }
  /// All elements of a varByte array, the first dimension running fastest. The second form makes the array
  /// this value's own; the span is good until the next change of this value.
  std::span<const std::uint8_t> Bytes() const;
  std::span<std::uint8_t> Bytes();

 private:
  /// A counted reference to an object.
  class Reference {
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

  Variant(VarType type, Storage value) : type_(type), value_(std::move(value)) {}

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

  const VariantArray& ArrayToRead() const;
  VariantArray& ArrayToWrite();
  std::shared_ptr<VariantArray> TakeArray() noexcept;
  bool IsLike(const Variant& other, VariantArrayPairs& pending) const;
  bool HasNumber() const { return std::holds_alternative<std::int64_t>(value_); }

  VarType type_ = varEmpty;
  Storage value_;
};

}  // namespace qxTools
