/// @file
/// The data packet: named values that travel between a client and a server as one variant array of names and
/// values in turn.
///
/// A name is stored in capitals (ASCII letters only) as code page 950 bytes, cut to 20 of them, also inside a
/// double-byte character. A name that is looked for is put into capitals but not cut. On purpose: a name of
/// more than 20 bytes is therefore never found, and each SetValue with it appends one more field. Blanks
/// count. A look-up by name takes constant time on average.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/data/BlockRecord.h>
#include <qxTools/data/RecordName.h>
#include <qxTools/data/qxIntf.h>
#include <qxTools/runtime/Variant.h>

#include <memory>
#include <vector>

namespace qxTools::qxOleVariant {

/// One value with its name.
struct QXTOOLS_API TOleVariantField : BlockRecord {
  /// Makes a field with an empty name and an empty variant.
  TOleVariantField() = default;
  /// Makes a field of that name (its first 20 bytes), which must be in capitals, and value.
  TOleVariantField(std::string_view name, Variant value) : Name(name), Value(std::move(value)) {}

  RecordName<20> Name;  ///< In capitals. A name that a caller assigns is compared as it is.
  Variant Value;        ///< Callers may assign to it.
};

/// A list of variants, for callers; nothing in this library uses it.
using AOleVariantField = std::vector<Variant>;

/// The packet for other modules. Each method does what the method of TQXOleVariant with that name does, and
/// returns S_OK (0); where that one throws, it returns E_UNEXPECTED (0x8000FFFF), the message is lost and
/// `result` is 0, null or empty.
class QXTOOLS_API IQXOleVariant : public IInterface {
 public:
  /// All zeros: the interface has no identifier of its own.
  static constexpr GUID IID{};

  /// Sets `result` to the field at `index` (0-based), or to null. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL GetFields(Integer index, TOleVariantField*& result) = 0;
  /// Sets `result` to the value at `index` (0-based), or to empty. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL GetItems(Integer index, Variant& result) = 0;
  /// Sets `result` to the value of that name, or to empty. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL GetValue(std::u16string_view name, Variant& result) = 0;
  /// Sets the value at `index` (0-based). @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL SetItems(Integer index, const Variant& value) = 0;
  /// Sets the value of that name, or appends it. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL SetValue(std::u16string_view name, const Variant& value) = 0;
  /// Sets `result` to the number of fields. @return S_OK.
  virtual HRESULT QXTOOLS_CALL GetCount(Integer& result) = 0;
  /// Sets `result` to the value of that name as an SQL literal, or to "". @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL GetSqlValue(std::u16string_view name, WideString& result) = 0;
  /// Sets `result` to the value named "Action", or to 0. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL GetAction(Integer& result) = 0;
  /// Sets `result` to the value named "Option", or to 0. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL GetOption(Integer& result) = 0;
  /// Sets the value named "Action". @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL SetAction(Integer value) = 0;
  /// Sets the value named "Option". @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL SetOption(Integer value) = 0;
  /// Sets `result` to the value named "StoreProcIndex", or to 0. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL GetStoreProcIndex(Integer& result) = 0;
  /// Sets `result` to the value named "ViewIndex", or to 0. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL GetViewIndex(Integer& result) = 0;
  /// Sets the value named "StoreProcIndex". @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL SetStoreProcIndex(Integer value) = 0;
  /// Sets the value named "ViewIndex". @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL SetViewIndex(Integer value) = 0;
  /// Appends an empty field and sets `result` to it, or to null. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL Add(TOleVariantField*& result) = 0;
  /// On purpose: appends an empty field; name and value are ignored. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL AddValue(std::u16string_view name, const Variant& value) = 0;
  /// Deletes all fields. @return S_OK.
  virtual HRESULT QXTOOLS_CALL Clear() = 0;
  /// Sets `packet` to the array of names and values. It is unchanged if there are no fields, or if the call
  /// fails. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL SaveToOle(Variant& packet) = 0;
  /// Replaces the fields with those of `packet`. @return S_OK or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL LoadFromOle(const Variant& packet) = 0;
  /// Sets `result` to the LAST field of that name, or to null; an unknown name is not an error. @return S_OK
  /// or E_UNEXPECTED.
  virtual HRESULT QXTOOLS_CALL FindField(std::u16string_view name, TOleVariantField*& result) = 0;

 protected:
  ~IQXOleVariant() = default;
};

/// The packet. It owns its fields and keeps them in the order in which they were added; they keep their
/// address until the packet is cleared or loaded. If memory runs out, std::bad_alloc is thrown and the packet
/// is unchanged, unless a function says otherwise.
///
/// QueryInterface gives IQXOleVariant for the identifier of all zeros. References taken through it lock this
/// object (qxTools/data/qxIntf.h).
class QXTOOLS_API TQXOleVariant : public qxIntf::TSafeInterfacedObject {
 public:
  /// Makes an empty packet.
  TQXOleVariant();
  ~TQXOleVariant() override;

  // --- By index, from 0 ------------------------------------------------------------------------------
  /// Returns the number of fields.
  Integer GetCount() const;
  /// Returns the field at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  TOleVariantField* GetFields(Integer index) const;
  /// Returns the value at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  Variant GetItems(Integer index) const { return GetFields(index)->Value; }
  /// Sets the value at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  void SetItems(Integer index, const Variant& value) { GetFields(index)->Value = value; }
  /// Appends a field with an empty name and an empty variant, and returns it.
  TOleVariantField* Add();
  /// On purpose: appends an empty field; name and value are ignored. SetValue makes named fields.
  void AddValue(std::u16string_view name, const Variant& value);
  /// Deletes all fields.
  void Clear();

  // --- By name ---------------------------------------------------------------------------------------
  /// Returns the LAST field of that name, or null if there is none.
  TOleVariantField* FindField(std::u16string_view name);
  /// Returns the value of the LAST field of that name.
  /// @throws Exception "Param NAME is not found."
  Variant GetValue(std::u16string_view name);
  /// Sets the value of the LAST field of that name, or appends a field of that name and value.
  void SetValue(std::u16string_view name, const Variant& value);
  /// Returns the value of the LAST field of that name as an SQL literal (VarToSql).
  /// @throws Exception "Param NAME is not found."
  /// @throws EVariantError for a value without a text form, EConvertError for a date outside years 1 to 9999.
  WideString GetSqlValue(std::u16string_view name);

  // --- What the server is to do: fields like any other -----------------------------------------------
  /// Returns the value named "Action".
  /// @throws Exception "Param Action is not found."
  /// @throws EVariantError or EConvertError for a value that is not a 32-bit integer.
  Integer GetAction() { return GetValue(u"Action").AsInteger(); }
  /// Returns the value named "Option".
  /// @throws Exception "Param Option is not found."
  /// @throws EVariantError or EConvertError for a value that is not a 32-bit integer.
  Integer GetOption() { return GetValue(u"Option").AsInteger(); }
  /// Returns the value named "StoreProcIndex".
  /// @throws Exception "Param StoreProcIndex is not found."
  /// @throws EVariantError or EConvertError for a value that is not a 32-bit integer.
  Integer GetStoreProcIndex() { return GetValue(u"StoreProcIndex").AsInteger(); }
  /// Returns the value named "ViewIndex".
  /// @throws Exception "Param ViewIndex is not found."
  /// @throws EVariantError or EConvertError for a value that is not a 32-bit integer.
  Integer GetViewIndex() { return GetValue(u"ViewIndex").AsInteger(); }
  /// Sets the value named "Action".
  void SetAction(Integer value) { SetValue(u"Action", value); }
  /// Sets the value named "Option".
  void SetOption(Integer value) { SetValue(u"Option", value); }
  /// Sets the value named "StoreProcIndex".
  void SetStoreProcIndex(Integer value) { SetValue(u"StoreProcIndex", value); }
  /// Sets the value named "ViewIndex".
  void SetViewIndex(Integer value) { SetValue(u"ViewIndex", value); }

  // --- The packet ------------------------------------------------------------------------------------
  /// Sets `packet` to an array of variants from 0 to 2n - 1: name (OLE string), value, name, value. If there
  /// are no fields, `packet` is unchanged.
  void SaveToOle(Variant& packet) const;
  /// Replaces the fields with those of `packet`. A name may be any value with a text form. The last one of an
  /// odd number of elements is ignored.
  /// @throws EVariantError "Variant array index out of bounds", or for a name without a text form;
  /// std::bad_alloc if memory runs out. The old fields are deleted then; those read before are kept.
  ///
  /// On purpose: a value that is not an array, or an empty array, changes nothing, and the elements are read
  /// from index 0 on, whatever the low bound.
  void LoadFromOle(const Variant& packet);

 protected:
  /// Returns the packet's interface of that identifier, or null.
  void* FindInterface(const GUID& iid) override;

 private:
  class ComAdapter;
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace qxTools::qxOleVariant
