/// @file
/// A T-SQL statement with "@" parameters and "[$...]" macros, turned into one call of sp_executesql: the
/// statement with its macros expanded and its apostrophes doubled, the declarations, the values.
///
/// Values are kept apart from the statement, so they may hold anything. Macros are text: the value of a macro
/// becomes part of the statement and must not come from outside unchecked. Each step takes time linear in the
/// text. Exception: if a value contains (or can complete) the name of a macro, or one name is inside another,
/// each macro takes one pass. A look-up by name takes constant time on average.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/StringList.h>
#include <qxTools/runtime/Variant.h>

#include <array>
#include <memory>

namespace qxTools {

class NamePlaces;

}  // namespace qxTools

namespace qxTools::qxSqlStoreProc {

/// The types that a parameter can be declared with. Their names are in StoreProcParamTypeStr.
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

/// Which "@" names are parameters.
enum TSearchParamType : std::uint8_t {
  spAuto,  ///< Names whose part before the first "_" is "@MM", in any letter case: "@MM", "@MM_Code".
  spAll,   ///< All names.
};

/// The names of the types, by TStoreProcParamType, for writing and for reading declarations. Programs may
/// change them; each call uses them as they are at that moment. "Unknown" is a type like the others.
QXTOOLS_API extern std::array<std::string, 15> StoreProcParamTypeStr;

/// Returns the declared type of a value, by its variant type. Single gives spDecimal; empty and null give
/// spSql_variant; arrays, objects, errors and references give spUnknown.
///
/// On purpose: an array gives spVarbinary only if its type is the bare code 0x2000; a byte array gives
/// spUnknown.
QXTOOLS_API TStoreProcParamType VarToParamType(const Variant& value);

/// Returns the declared length of a value: for a text its size in bytes (code page 950), for an array of the
/// bare code 0x2000 its number of dimensions, for anything else 0.
QXTOOLS_API Integer VarLength(const Variant& value);

/// One parameter or macro.
class QXTOOLS_API TQXSqlStoreProcItem : public TObject {
 public:
  /// Makes an item without a name; its value is null and its type spUnknown.
  TQXSqlStoreProcItem() = default;
  TQXSqlStoreProcItem(const TQXSqlStoreProcItem&) = delete;
  TQXSqlStoreProcItem& operator=(const TQXSqlStoreProcItem&) = delete;
  ~TQXSqlStoreProcItem() override;

  /// Returns the name, "@" or brackets included.
  const AnsiString& GetName() const { return name_; }
  /// Changes the name, without blanks around it. It may be any text. If memory runs out, std::bad_alloc is
  /// thrown and the name is unchanged.
  void SetName(std::string_view name);
  /// Returns the name in capitals, which look-ups compare.
  const AnsiString& GetUpperName() const { return upperName_; }

  /// Returns the value.
  const Variant& GetValue() const { return value_; }
  /// Sets the value. If auto style is on, style and length follow it (VarToParamType, VarLength). If memory
  /// runs out, std::bad_alloc is thrown and the item is unchanged.
  void SetValue(const Variant& value);
  /// Returns the value as a literal, written by VarToSql.
  /// @throws EVariantError for a value without a text form, EConvertError for a date outside years 1 to 9999.
  AnsiString GetSqlValue() const;

  /// Returns the declared type.
  TStoreProcParamType GetStyle() const { return style_; }
  /// Sets the declared type. It is kept until the next SetValue with auto style on.
  void SetStyle(TStoreProcParamType style) { style_ = style; }
  /// Returns whether style and length follow the value; true at first.
  bool GetAutoStyle() const { return autoStyle_; }
  /// Sets whether style and length follow the value from the next SetValue on.
  void SetAutoStyle(bool autoStyle) { autoStyle_ = autoStyle; }
  /// Returns the declared length. 0 means that none is written.
  Integer GetLength() const { return length_; }
  /// Sets the declared length. It is kept until the next SetValue with auto style on.
  void SetLength(Integer length) { length_ = length; }

 private:
  friend class TQXSqlStoreProc;

  AnsiString name_;
  AnsiString upperName_;
  Variant value_ = Variant::Null();
  TStoreProcParamType style_ = spUnknown;
  bool autoStyle_ = true;
  Integer length_ = 0;
  NamePlaces* names_ = nullptr;  // of the set, which must know when the name changes
};

/// A statement, its parameters and its macros.
///
///     TQXSqlStoreProc set;
///     set.LoadStoreProc(u"select * from [$Table] where Code = @MM_Code");
///     set.SetValue("$Table", "Goods");
///     set.SetValue("@MM_Code", "O'Neil");
///     set.GetStoreProc()->GetText();
///     // sp_executesql N'
///     // select * from Goods where Code = @MM_Code
///     // ',
///     // N'@MM_Code Varchar(6)',
///     // 'O''Neil'
///
/// Parameters and macros follow the statement: any change of its text or of the search mode finds them anew
/// and drops their values. So load the text first and set the values then. An item is valid until the next
/// such change, or until Clear, LoadParams or Delete.
class QXTOOLS_API TQXSqlStoreProc : public TObject {
 public:
  /// Makes a set without a statement; its search mode is spAuto.
  TQXSqlStoreProc();
  TQXSqlStoreProc(const TQXSqlStoreProc&) = delete;
  TQXSqlStoreProc& operator=(const TQXSqlStoreProc&) = delete;
  ~TQXSqlStoreProc() override;

  // --- The statement ---------------------------------------------------------------------------------
  /// Replaces the statement with these lines, without their comments (ClearNote), and finds its parameters
  /// and macros. If memory runs out, std::bad_alloc is thrown; the statement is the old one, empty or the new
  /// one, and unless it is the old one there are no parameters and macros. The set can be loaded again.
  void LoadStoreProc(const TStrings* lines);
  /// Replaces the statement with this text, without its comments (ClearNote), and finds its parameters and
  /// macros. If memory runs out, std::bad_alloc is thrown; the statement is the old one, empty or the new
  /// one, and unless it is the old one there are no parameters and macros. The set can be loaded again.
  void LoadStoreProc(std::u16string_view text);
  /// Returns the lines of the statement. Any change of them finds parameters and macros anew.
  TStrings& GetStatement() { return statement_; }
  /// Returns which "@" names are parameters.
  TSearchParamType GetSearchParamType() const { return searchMode_; }
  /// Sets which "@" names are parameters, and finds parameters and macros anew, as SearchAllParams does.
  void SetSearchParamType(TSearchParamType mode);

  /// Replaces parameters and macros with those of the statement: parameters outside quoted literals, macros
  /// everywhere. A macro is "[$" and everything up to the next "]", so a text that opens many and closes few
  /// has long names. If memory runs out, std::bad_alloc is thrown and there are no parameters and macros.
  ///
  /// On purpose: a lone "@" waits for its name (`@ x` is `@x`), a name that a further "@" follows at once is
  /// dropped (`@a@b` is `@b`), and a literal right after a name ends it only with its closing quote.
  void SearchAllParams();
  /// Calls SearchAllParams. It is the handler of the statement's change event; `sender` is ignored.
  void DoChange(TObject* sender);

  /// Returns the text without comments (`/* ... */`). If there was one, what is before the first character
  /// from
  /// "!" to DEL is removed too. Comments do not nest; `/*/` is a whole comment. A `*/` before the first `/*`
  /// ends the work, and so does a comment that never closes.
  ///
  /// On purpose: Chinese text before the first such character is removed together with the blanks.
  static WideString ClearNote(std::u16string_view text);

  // --- Parameters and macros -------------------------------------------------------------------------
  /// Deletes all parameters and macros. The statement is unchanged.
  virtual void Clear();

  /// Returns the number of parameters.
  Integer GetParamCount() const;
  /// Returns the number of macros.
  Integer GetFuncCount() const;
  /// Returns the parameter at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  TQXSqlStoreProcItem* GetItems(Integer index) const;
  /// Returns the macro at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  TQXSqlStoreProcItem* GetFuncItems(Integer index) const;
  /// Returns the index (0-based) of the LAST parameter of that name, "@" included, in any letter case and
  /// without blanks around it; -1 if there is none.
  Integer FindParam(std::string_view name) const;
  /// Returns the index (0-based) of the LAST macro of that name, brackets included ("[$Table]"), in any
  /// letter case and without blanks around it; -1 if there is none.
  Integer FindFunc(std::string_view name) const;
  /// Returns the parameter that FindParam finds.
  /// @throws EListError "List index out of bounds (-1)" if there is none.
  TQXSqlStoreProcItem* GetParams(std::string_view name) const { return GetItems(FindParam(name)); }
  /// Returns the macro that FindFunc finds.
  /// @throws EListError "List index out of bounds (-1)" if there is none.
  TQXSqlStoreProcItem* GetFuncs(std::string_view name) const { return GetFuncItems(FindFunc(name)); }

  /// Returns a value by name: "@Code" names a parameter, "$Table" and "[$Table]" name the macro. An empty
  /// name gives an empty variant.
  /// @throws Exception "Invalid Name NAME" if the name begins otherwise.
  /// @throws EListError "List index out of bounds (-1)" for an unknown name.
  Variant GetValue(std::string_view name) const;
  /// Sets a value by name: "@Code" names a parameter, "$Table" and "[$Table]" name the macro. Does nothing
  /// for an empty name.
  /// @throws Exception "Invalid Name NAME" if the name begins otherwise.
  /// @throws EListError "List index out of bounds (-1)" for an unknown name.
  void SetValue(std::string_view name, const Variant& value);

  /// Appends a parameter without a name and returns it.
  TQXSqlStoreProcItem* Add();
  /// Deletes the parameter at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  void Delete(Integer index);
  /// Deletes the parameter that FindParam finds. Does nothing if there is none.
  void Delete(std::string_view name);

  // --- Declarations ----------------------------------------------------------------------------------
  /// Replaces the parameters with those of a list of declarations, as in "@a Int , @b Varchar(20)". Comments
  /// are removed first (ClearNote). The lines are joined with a blank after each. The first of equal names
  /// counts. A text of blanks only changes nothing. After an exception the old parameters are deleted; those
  /// read before it are kept.
  /// @throws Exception "Param Error" for a declaration without a blank, "ParamStyle not Found" for an unknown
  /// type.
  /// @throws EConvertError for a length that is not an integer.
  void LoadParams(const TStrings* lines);
  /// Replaces the parameters with those of a list of declarations, as in "@a Int , @b Varchar(20)". Comments
  /// are removed first (ClearNote), and each CR LF. The first of equal names counts. A text of blanks only
  /// changes nothing. After an exception the old parameters are deleted; those read before it are kept.
  /// @throws Exception "Param Error" for a declaration without a blank, "ParamStyle not Found" for an unknown
  /// type.
  /// @throws EConvertError for a length that is not an integer.
  void LoadParams(std::u16string_view declarations);
  /// Sets `declarations` to the list of declarations of the parameters, as in "@a Int , @b Varchar(20)".
  void SaveParams(WideString& declarations) const;
  /// Sets `lines` to the list of declarations of the parameters, as in "@a Int , @b Varchar(20)".
  void SaveParams(TStrings* lines) const;

  // --- The call --------------------------------------------------------------------------------------
  /// Builds the text of the call and returns it. The list belongs to the set and is replaced by the next
  /// call. It has four lines, of which the second holds the whole statement; without declarations or values,
  /// two.
  /// @throws EVariantError for a value without a text form, EConvertError for a date outside years 1 to 9999;
  /// std::bad_alloc if memory runs out. The list is empty then.
  TStrings* GetStoreProc();

 private:
  struct State;

  void Load(std::string text);
  TQXSqlStoreProcItem* ItemByName(std::string_view name) const;
  void FindNames(std::string_view text);
  void FindMacros(std::string_view text);
  void LoadDeclaration(std::string_view piece);
  AnsiString Declarations() const;
  AnsiString Values() const;

  std::unique_ptr<State> state_;  // parameters and macros
  TStrings statement_;
  TStrings call_;
  TSearchParamType searchMode_ = spAuto;
};

/// Gives the globals of this unit their first values. Called by the package frame.
void FillGlobals();
/// Frees what the globals of this unit hold. Called by the package frame.
void ReleaseGlobals();

}  // namespace qxTools::qxSqlStoreProc
