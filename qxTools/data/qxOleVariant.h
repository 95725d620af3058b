/// @file
/// The data packet: named values that travel between a client and a server as one variant array of names and
/// values in turn.
///
/// A name is stored in capitals (ASCII letters only, of the wide text) as code page 950 bytes, cut to 20 of
/// them, also inside a double-byte character. A name that is looked for is put into capitals but not cut, so
/// on purpose one of more than 20 bytes is never found, and each SetValue with it appends one more field.
/// Blanks count. Look-ups by name take constant time on average.
#pragma once

#include <qxTools/data/NamedRecord.h>
#include <qxTools/data/RecordIndex.h>
#include <qxTools/data/qxIntf.h>
#include <qxTools/runtime/OwnedList.h>
#include <qxTools/runtime/Variant.h>

namespace qxTools::qxOleVariant {

/// One field; a new one has an empty name and is empty.
struct QXTOOLS_API TOleVariantField : BlockRecord {
  TOleVariantField() = default;
  /// A field of that name, which is to be in capitals.
  TOleVariantField(std::string_view name, Variant value) : Name(name), Value(std::move(value)) {}

  RecordName<20> Name;  ///< In capitals; one that a caller assigns is compared as it stands.
  Variant Value;        ///< Empty at first.
};

/// For callers.
using AOleVariantField = std::vector<Variant>;

/// The packet for other modules. Every method gives 0, or 0x8000FFFF where that of TQXOleVariant raises; the
/// message is lost then and the result is 0, null or empty.
class QXTOOLS_API IQXOleVariant : public IInterface {
 public:
  /// It has no identifier of its own; all zeros find it.
  static constexpr GUID IID{};

  virtual HRESULT GetFields(Integer Index, TOleVariantField*& Result) = 0;
  virtual HRESULT GetItems(Integer Index, Variant& Result) = 0;
  virtual HRESULT GetValue(std::u16string_view Name, Variant& Result) = 0;
  virtual HRESULT SetItems(Integer Index, const Variant& Value) = 0;
  virtual HRESULT SetValue(std::u16string_view Name, const Variant& Value) = 0;
  virtual HRESULT GetCount(Integer& Result) = 0;
  virtual HRESULT GetSqlValue(std::u16string_view Name, WideString& Result) = 0;
  virtual HRESULT GetAction(Integer& Result) = 0;
  virtual HRESULT GetOption(Integer& Result) = 0;
  virtual HRESULT SetAction(Integer Value) = 0;
  virtual HRESULT SetOption(Integer Value) = 0;
  virtual HRESULT GetStoreProcIndex(Integer& Result) = 0;
  virtual HRESULT GetViewIndex(Integer& Result) = 0;
  virtual HRESULT SetStoreProcIndex(Integer Value) = 0;
  virtual HRESULT SetViewIndex(Integer Value) = 0;
  /// As the method of TQXOleVariant.
  virtual HRESULT Add(TOleVariantField*& Result) = 0;
  /// As the method of TQXOleVariant.
  virtual HRESULT AddValue(std::u16string_view Name, const Variant& Value) = 0;
  /// As the method of TQXOleVariant.
  virtual HRESULT Clear() = 0;
  /// `Packet` stays as it was when the call fails.
  virtual HRESULT SaveToOle(Variant& Packet) = 0;
  /// As the method of TQXOleVariant.
  virtual HRESULT LoadFromOle(const Variant& Packet) = 0;
  /// As the method of TQXOleVariant; null and 0 for an unknown name.
  virtual HRESULT FindField(std::u16string_view Name, TOleVariantField*& Result) = 0;

 protected:
  ~IQXOleVariant() = default;
};

/// The packet's fields, owned, in the order in which they were added; they keep their address until the
/// packet is cleared or loaded. A bad index raises EListError, "List index out of bounds (N)".
///
/// QueryInterface gives IQXOleVariant for the identifier of all zeros. References through it are this
/// object's: they lock it.
class QXTOOLS_API TQXOleVariant : public qxIntf::TSafeInterfacedObject {
 public:
  TQXOleVariant();
  ~TQXOleVariant() override;

  // --- By place, from 0 ------------------------------------------------------------------------------
  Integer GetCount() const { return FFields.GetCount(); }
  TOleVariantField* GetFields(Integer Index) const { return FFields.GetItems(Index); }
  Variant GetItems(Integer Index) const { return FFields.GetItems(Index)->Value; }
  void SetItems(Integer Index, const Variant& Value) { FFields.GetItems(Index)->Value = Value; }
  /// Appends a blank field.
  TOleVariantField* Add();
  /// On purpose: appends a blank field and stores neither name nor value; SetValue makes named fields.
  void AddValue(std::u16string_view Name, const Variant& Value);
  /// Deletes all fields.
  void Clear();

  // --- By name ---------------------------------------------------------------------------------------
  /// The LAST field of that name, or null.
  TOleVariantField* FindField(std::u16string_view Name);
  /// @throws Exception "Param NAME is not found."
  Variant GetValue(std::u16string_view Name);
  /// Sets the value of the last field of that name, or appends one.
  void SetValue(std::u16string_view Name, const Variant& Value);
  /// The value as an SQL literal. @throws as GetValue; EVariantError for a value without a text form.
  WideString GetSqlValue(std::u16string_view Name);

  // --- What the server is to do: fields like any other, of the names "Action", "Option" and so on ------
  // The getters raise as GetValue; EVariantError or EConvertError for a value that is no 32-bit integer.
  Integer GetAction() { return GetValue(u"Action").AsInteger(); }
  Integer GetOption() { return GetValue(u"Option").AsInteger(); }
  Integer GetStoreProcIndex() { return GetValue(u"StoreProcIndex").AsInteger(); }
  Integer GetViewIndex() { return GetValue(u"ViewIndex").AsInteger(); }
  void SetAction(Integer Value) { SetValue(u"Action", Value); }
  void SetOption(Integer Value) { SetValue(u"Option", Value); }
  void SetStoreProcIndex(Integer Value) { SetValue(u"StoreProcIndex", Value); }
  void SetViewIndex(Integer Value) { SetValue(u"ViewIndex", Value); }

  // --- The packet ------------------------------------------------------------------------------------
  /// Makes `Packet` an array of variants from 0 to 2n - 1: name (OLE string), value, name, value. Without
  /// fields `Packet` stays as it was.
  void SaveToOle(Variant& Packet) const;
  /// Replaces the fields by those of `Packet`; a name may be any value with a text form, and the last of an
  /// odd number of elements is ignored. On purpose: what is no array, or an empty one, changes nothing, and
  /// the elements are read from index 0 on, whatever the low bound.
  /// @throws EVariantError "Variant array index out of bounds", or for a name without a text form. The old
  /// fields are gone then; those read before stay.
  void LoadFromOle(const Variant& Packet);

 protected:
  void* FindInterface(const GUID& iid) override;

 private:
  class Face;

  TOleVariantField* Append(std::unique_ptr<TOleVariantField> field);

  OwnedList<TOleVariantField> FFields;
  RecordIndex FIndex;
  std::unique_ptr<Face> FFace;
};

}  // namespace qxTools::qxOleVariant
