/// @file
/// A T-SQL statement with "@" parameters and "[$...]" macros, turned into one call of sp_executesql: the
/// statement with its macros expanded and its apostrophes doubled, the declarations, the values.
///
/// Values stay apart from the statement, so they may hold anything. Macros are text: a macro's value is part
/// of the statement and must not come from outside unchecked. Every step is linear in the text; only where a
/// value could make or lengthen a macro's name, or one stands inside another, does each macro take a pass.
/// Look-ups by name take constant time on average.
#pragma once

#include <qxTools/runtime/OwnedList.h>
#include <qxTools/runtime/StringList.h>
#include <qxTools/runtime/Variant.h>
#include <qxTools/sql/NameIndex.h>

#include <array>

namespace qxTools::qxSqlStoreProc {

/// The types that a parameter can be declared with.
enum TStoreProcParamType : std::uint8_t {
  spUnknown,
  spBigint,
  spBit,
  spChar,
  spNChar,
  spDatetime,
  spDecimal,
  spFloat,
  spInt,
  spMoney,
  spSmallint,
  spSql_variant,
  spTinyint,
  spVarbinary,
  spVarchar,
};

/// Which "@" names the scanner keeps: spAuto those whose part before the first "_" is "@MM" in any case,
/// spAll every one.
enum TSearchParamType : std::uint8_t { spAuto, spAll };

/// The names of the types, for writing and for reading declarations; writable, and used as they are at that
/// moment. "Unknown" is a type like the others.
QXTOOLS_API extern std::array<std::string, 15> StoreProcParamTypeStr;

/// The declared type of a value. Single gives spDecimal, empty and null give spSql_variant; arrays, objects,
/// errors and references give spUnknown.
///
/// On purpose: an array gives spVarbinary only with the bare code 0x2000; a byte array is spUnknown.
QXTOOLS_API TStoreProcParamType VarToParamType(const Variant& value);

/// The declared length of a value: bytes of a text in code page 950, dimensions of an array with the bare
/// code 0x2000, 0 for everything else.
QXTOOLS_API Integer VarLength(const Variant& value);

/// One parameter or macro.
class QXTOOLS_API TQXSqlStoreProcItem : public TObject {
 public:
  TQXSqlStoreProcItem() = default;
  TQXSqlStoreProcItem(const TQXSqlStoreProcItem&) = delete;
  TQXSqlStoreProcItem& operator=(const TQXSqlStoreProcItem&) = delete;
  ~TQXSqlStoreProcItem() override;

  /// The name, "@" or brackets included. SetName trims spaces.
  const AnsiString& GetName() const { return name_; }
  void SetName(std::string_view name);
  /// What look-ups compare: the name in capitals.
  const AnsiString& GetUpperName() const { return upperName_; }

  const Variant& GetValue() const { return value_; }
  /// With auto style on, style and length follow the value.
  void SetValue(const Variant& value);
  /// The value as a literal (VarToSql).
  AnsiString GetSqlValue() const;

  TStoreProcParamType GetStyle() const { return style_; }
  void SetStyle(TStoreProcParamType style) { style_ = style; }
  bool GetAutoStyle() const { return autoStyle_; }
  void SetAutoStyle(bool autoStyle) { autoStyle_ = autoStyle; }
  /// The declared length; 0 writes none.
  Integer GetLength() const { return length_; }
  void SetLength(Integer length) { length_ = length; }

 private:
  friend class TQXSqlStoreProc;

  AnsiString name_;
  AnsiString upperName_;
  Variant value_ = Variant::Null();
  TStoreProcParamType style_ = spUnknown;
  bool autoStyle_ = true;
  Integer length_ = 0;
  NameIndex* index_ = nullptr;  // that of the set, told when the name changes
};

/// A statement, its parameters and its macros.
///
/// Parameters and macros follow the statement: any change of its text and of the search mode finds them anew
/// and drops their values, so values are set after the text is loaded. An item is good until then, or until
/// Clear, LoadParams or Delete.
class QXTOOLS_API TQXSqlStoreProc : public TObject {
 public:
  TQXSqlStoreProc();
  TQXSqlStoreProc(const TQXSqlStoreProc&) = delete;
  TQXSqlStoreProc& operator=(const TQXSqlStoreProc&) = delete;
  ~TQXSqlStoreProc() override;

  // --- The statement ---------------------------------------------------------------------------------
  /// Takes the statement, without its comments, and finds its parameters and macros.
  void LoadStoreProc(const TStrings* lines);
  void LoadStoreProc(std::u16string_view text);
  /// The statement's lines; changing them finds parameters and macros anew.
  TStrings& GetStatement() { return statement_; }
  TSearchParamType GetSearchParamType() const { return searchMode_; }
  void SetSearchParamType(TSearchParamType mode);

  /// Finds parameters outside quoted literals, and macros everywhere. A macro is "[$" and all up to the next
  /// "]", so a text that opens many and closes few has long names.
  ///
  /// On purpose: a lone "@" stays open (`@ x` is `@x`), and a literal that begins right behind a name ends it
  /// only with its closing quote.
  void SearchAllParams();
  void DoChange(TObject* sender);

  /// The text without `/* */` comments; with one removed, also without what stands before its first character
  /// from "!" to DEL. Comments do not nest; `/*/` is a whole one. A `*/` before the first `/*`, and a comment
  /// that never closes, end the work.
  ///
  /// On purpose: Chinese in front of the first such character goes with the blanks.
  static WideString ClearNote(std::u16string_view text);

  // --- Parameters and macros -------------------------------------------------------------------------
  /// Frees all parameters and macros; the statement stays.
  virtual void Clear();

  Integer GetParamCount() const { return params_.items.GetCount(); }
  Integer GetFuncCount() const { return funcs_.items.GetCount(); }
  /// The item at a place counted from 0. @throws EListError for a bad one.
  TQXSqlStoreProcItem* GetItems(Integer index) const { return params_.items.GetItems(index); }
  TQXSqlStoreProcItem* GetFuncItems(Integer index) const { return funcs_.items.GetItems(index); }
  /// The place of the LAST item of that name in any case, or -1.
  Integer FindParam(std::string_view name) const;
  /// The same for a macro, brackets included.
  Integer FindFunc(std::string_view name) const;
  /// The item of that name. @throws EListError, of index -1, for an unknown one.
  TQXSqlStoreProcItem* GetParams(std::string_view name) const { return GetItems(FindParam(name)); }
  TQXSqlStoreProcItem* GetFuncs(std::string_view name) const { return GetFuncItems(FindFunc(name)); }

  /// The value by name: "@Code" is a parameter, "$Table" and "[$Table]" are the macro. An empty name gives
  /// empty and sets nothing.
  /// @throws Exception "Invalid Name NAME" for another beginning, EListError for an unknown name.
  Variant GetValue(std::string_view name) const;
  void SetValue(std::string_view name, const Variant& value);

  /// Appends a parameter without a name.
  TQXSqlStoreProcItem* Add();
  /// Frees a parameter. @throws EListError for a bad index; an unknown name does nothing.
  void Delete(Integer index);
  void Delete(std::string_view name);

  // --- Declarations ----------------------------------------------------------------------------------
  /// Replaces the parameters by those of a declaration list, as in "@a Int , @b Varchar(20)"; comments are
  /// left out, the first of equal names wins. A blank text changes nothing. Lines given as one text are glued
  /// at their CR LF; those of a list are parted by a blank.
  /// @throws Exception "Param Error" for a piece without a blank, "ParamStyle not Found" for an unknown type;
  ///   EConvertError for a length that is no integer. What was read before stays, the old set is gone.
  void LoadParams(const TStrings* lines);
  void LoadParams(std::u16string_view declarations);
  /// The declaration list of the parameters.
  void SaveParams(WideString& declarations) const;
  void SaveParams(TStrings* lines) const;

  // --- The call --------------------------------------------------------------------------------------
  /// The call text. The list stays the set's own and is built anew at each call.
  /// @throws EVariantError for a value without a text form; the list is then empty.
  TStrings* GetStoreProc();

 private:
  /// Items and the index of their names.
  struct NamedItems {
    OwnedList<TQXSqlStoreProcItem> items;
    mutable NameIndex index;

    TQXSqlStoreProcItem* Add(std::string_view name);
    Integer Find(std::string_view upperName) const;
    void Delete(Integer i);
    void Clear();
  };

  void Load(WideString text);
  TQXSqlStoreProcItem* ItemByName(std::string_view name) const;
  void FindNames(std::string_view text);
  void FindMacros(std::string_view text);
  void LoadDeclaration(std::string_view piece);
  AnsiString Declarations() const;

  NamedItems params_;
  NamedItems funcs_;
  TStrings statement_;
  TStrings call_;
  TSearchParamType searchMode_ = spAuto;
};

// For the package frame: the globals' first values, and giving back what they hold.
void FillGlobals();
void ReleaseGlobals();

}  // namespace qxTools::qxSqlStoreProc
