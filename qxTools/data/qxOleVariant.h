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

  virtual HRESULT GetFields(Integer index, TOleVariantField*& result) = 0;
  virtual HRESULT GetItems(Integer index, Variant& result) = 0;
  virtual HRESULT GetValue(std::u16string_view name, Variant& result) = 0;
  virtual HRESULT SetItems(Integer index, const Variant& value) = 0;
  virtual HRESULT SetValue(std::u16string_view name, const Variant& value) = 0;
  virtual HRESULT GetCount(Integer& result) = 0;
  virtual HRESULT GetSqlValue(std::u16string_view name, WideString& result) = 0;
  virtual HRESULT GetAction(Integer& result) = 0;
  virtual HRESULT GetOption(Integer& result) = 0;
  virtual HRESULT SetAction(Integer value) = 0;
  virtual HRESULT SetOption(Integer value) = 0;
  virtual HRESULT GetStoreProcIndex(Integer& result) = 0;
  virtual HRESULT GetViewIndex(Integer& result) = 0;
  virtual HRESULT SetStoreProcIndex(Integer value) = 0;
  virtual HRESULT SetViewIndex(Integer value) = 0;
  /// As the method of TQXOleVariant.
  virtual HRESULT Add(TOleVariantField*& result) = 0;
  /// As the method of TQXOleVariant.
  virtual HRESULT AddValue(std::u16string_view name, const Variant& value) = 0;
  /// As the method of TQXOleVariant.
  virtual HRESULT Clear() = 0;
  /// `Packet` stays as it was when the call fails.
  virtual HRESULT SaveToOle(Variant& packet) = 0;
  /// As the method of TQXOleVariant.
  virtual HRESULT LoadFromOle(const Variant& packet) = 0;
  /// As the method of TQXOleVariant; null and 0 for an unknown name.
  virtual HRESULT FindField(std::u16string_view name, TOleVariantField*& result) = 0;

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
  Integer GetCount() const { return fields_.GetCount(); }
  TOleVariantField* GetFields(Integer index) const { return fields_.GetItems(index); }
  Variant GetItems(Integer index) const { return fields_.GetItems(index)->Value; }
  void SetItems(Integer index, const Variant& value) { fields_.GetItems(index)->Value = value; }
  /// Appends a blank field.
  TOleVariantField* Add();
  /// On purpose: appends a blank field and stores neither name nor value; SetValue makes named fields.
  void AddValue(std::u16string_view name, const Variant& value);
  /// Deletes all fields.
  void Clear();

  // --- By name ---------------------------------------------------------------------------------------
  /// The LAST field of that name, or null.
  TOleVariantField* FindField(std::u16string_view name);
  /// @throws Exception "Param NAME is not found."
  Variant GetValue(std::u16string_view name);
  /// Sets the value of the last field of that name, or appends one.
  void SetValue(std::u16string_view name, const Variant& value);
  /// The value as an SQL literal. @throws as GetValue; EVariantError for a value without a text form.
  WideString GetSqlValue(std::u16string_view name);

  // --- What the server is to do: fields like any other, of the names "Action", "Option" and so on ------
  // The getters raise as GetValue; EVariantError or EConvertError for a value that is no 32-bit integer.
  Integer GetAction() { return GetValue(u"Action").AsInteger(); }
  Integer GetOption() { return GetValue(u"Option").AsInteger(); }
  Integer GetStoreProcIndex() { return GetValue(u"StoreProcIndex").AsInteger(); }
  Integer GetViewIndex() { return GetValue(u"ViewIndex").AsInteger(); }
  void SetAction(Integer value) { SetValue(u"Action", value); }
  void SetOption(Integer value) { SetValue(u"Option", value); }
  void SetStoreProcIndex(Integer value) { SetValue(u"StoreProcIndex", value); }
  void SetViewIndex(Integer value) { SetValue(u"ViewIndex", value); }

  // --- The packet ------------------------------------------------------------------------------------
  /// Makes `Packet` an array of variants from 0 to 2n - 1: name (OLE string), value, name, value. Without
  /// fields `Packet` stays as it was.
  void SaveToOle(Variant& packet) const;
  /// Replaces the fields by those of `Packet`; a name may be any value with a text form, and the last of an
  /// odd number of elements is ignored. On purpose: what is no array, or an empty one, changes nothing, and
  /// the elements are read from index 0 on, whatever the low bound.
  /// @throws EVariantError "Variant array index out of bounds", or for a name without a text form. The old
  /// fields are gone then; those read before stay.
  void LoadFromOle(const Variant& packet);

 protected:
  void* FindInterface(const GUID& iid) override;

 private:
  class Face;

  TOleVariantField* Append(std::unique_ptr<TOleVariantField> field);

  OwnedList<TOleVariantField> fields_;
  RecordIndex index_;
  std::unique_ptr<Face> face_;
};

}  // namespace qxTools::qxOleVariant
