/// @file
/// T-SQL text: literals, lists, conditions and serial numbers, and a command text with "@" parameters.
///
/// Text is bytes (BIG5 where Chinese). The apostrophe is the only character that is escaped: it is doubled.
/// Nothing here talks to a database. The builders take time linear in their input.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/Persistent.h>
#include <qxTools/runtime/StringList.h>
#include <qxTools/runtime/Variant.h>
#include <qxTools/sql/QXSqlDefine.h>

#include <memory>

namespace qxTools {

class NamePlaces;

}  // namespace qxTools

namespace qxTools::QXSqlTools {

using QXSqlDefine::TSqlTypeStruct;

/// The letter cases of FormatFieldName.
enum TFieldNameType {
  fnDefault,    ///< As it is.
  fnUpperCase,  ///< Capitals.
  fnLowerCase,  ///< Small letters.
  fnSqlCase,    ///< Small letters and one capital: "Customer_name", "tb_Order".
};

// --- Literals ----------------------------------------------------------------------------------------

/// Returns `s` between apostrophes, each apostrophe inside doubled: ToSQLStr("O'Neil") is "'O''Neil'".
/// Returns "NULL" if `s` is empty. Blanks are not trimmed.
QXTOOLS_API std::string ToSQLStr(std::string_view s);

/// Returns `s` unchanged, or "NULL" if it is empty. It is not checked to be a number.
QXTOOLS_API std::string ToSQLint(std::string_view s);

/// Returns the values as literals, separated by ",". The letter of `types` at a value's place decides, in
/// either case: C, S, D and T write it as ToSQLStr, F and N as ToSQLint. A value without a letter, or with
/// another letter, is left out: ToSQLEx({"a", "5", ""}, "SNS") is "'a',5,NULL".
QXTOOLS_API std::string ToSQLEx(std::span<const std::string> values, std::string_view types);

/// Returns a variant as a literal. Null is "NULL". A date is quoted in the short date format, its time of day
/// dropped. Text is trimmed of blanks and then written as by ToSQLStr. True is "1" and false is "0". Any
/// other value is its text form without quotes, so an empty variant is "".
/// @throws EVariantError for a value without a text form (an array, an object).
/// @throws EConvertError for a date outside the years 1 to 9999.
QXTOOLS_API std::string VarToSql(const Variant& value);

// --- Lists and ranges --------------------------------------------------------------------------------

/// Returns the values between the commas of `list` as a list for IN: ToSQLinlist("a,b,") is
/// " ('a','b',NULL) ".
///
/// On purpose: without a comma there are no blanks around the parentheses: "('a')".
QXTOOLS_API std::string ToSQLinlist(std::string_view list);

/// Returns the two ends of "low~high" for BETWEEN: ToSQLBetween("1~9") is "'1' and '9'". The word BETWEEN is
/// not part of it. Text after a second "~" belongs to the high end. Without a "~" the value is both ends.
QXTOOLS_API std::string ToSQLBetween(std::string_view range);

/// Returns `condition`, " and " and `more`; only `more` if `condition` is empty.
QXTOOLS_API std::string SQLAdd(std::string_view condition, std::string_view more);

// --- Numbers and names -------------------------------------------------------------------------------

/// Returns an SQL expression that pads the number in column `field` with zeros on the left to `width`
/// characters. A negative `width` is written as nothing at all.
QXTOOLS_API std::string SQLStrNO(std::string_view field, Integer width);

/// Returns an SQL expression for the padded number (SQLStrNO), " - " and `caption`. `caption` is a column or
/// an expression and is not quoted.
QXTOOLS_API std::string SQLNumCaption(std::string_view field, Integer width, std::string_view caption);

/// Returns `name` in a letter case. fnSqlCase gives small letters with a capital first one
/// ("CUSTOMER_NAME" gives "Customer_name"); if the first "_" is the third character, the fourth one is the
/// capital instead ("TB_ORDER" gives "tb_Order").
QXTOOLS_API std::string FormatFieldName(std::string_view name, TFieldNameType kind);

/// Returns `prefix`, "_" and the part of `field` after its first "_", or all of `field` if it has none:
/// FieldToParam("tb_Name", "@MM") is "@MM_Name".
QXTOOLS_API std::string FieldToParam(std::string_view field, std::string_view prefix);

// --- Types -------------------------------------------------------------------------------------------

/// Returns the first type of that name, in any letter case, or SqlStructEmpty if there is none.
QXTOOLS_API TSqlTypeStruct FindSqlStructByName(std::string_view name);

/// Returns the first type with that ODBC code, or SqlStructEmpty if there is none. Some types share a code:
/// 3 gives Decimal and never Money.
QXTOOLS_API TSqlTypeStruct FindSqlStructByDataType(Integer dataType);

// --- The command -------------------------------------------------------------------------------------

/// How a parameter's text is written into the output.
enum TSqlStyle {
  stString,    ///< Quoted, as by ToSQLStr.
  stInteger,   ///< Unquoted; NULL if empty.
  stReal,      ///< Unquoted, also if empty.
  stDate,      ///< Quoted, as by ToSQLStr.
  stTime,      ///< Quoted, as by ToSQLStr.
  stBoolean,   ///< Unquoted; NULL if empty.
  stFunction,  ///< Unquoted, also if empty: an expression such as GETDATE().
};

/// The two characters with which a text value names its own style, by TSqlStyle: "@S", "@N", "@R", "@D",
/// "@T",
/// "@B" and "@F". Programs may change them.
QXTOOLS_API extern std::array<std::string, 7> ParamStyleHeader;

/// Selects one statement of a TSqlOperation.
enum TSqlLanguage {
  slSelect,  ///< SelectSql.
  slInsert,  ///< InsertSql.
  slDelete,  ///< DeleteSql.
  slUpdate,  ///< UpdateSql.
};

/// The texts of the four statements of one table.
struct TSqlOperation {
  AnsiString SelectSql;  ///< Reads records.
  AnsiString InsertSql;  ///< Adds a record.
  AnsiString DeleteSql;  ///< Deletes records.
  AnsiString UpdateSql;  ///< Changes records.
};

/// An event for programs that insert a record; nothing in this library fires it.
using TOnSqlInsert = std::function<void(TObject* sender, Integer id)>;
/// An event for programs that delete a record; nothing in this library fires it.
using TOnSqlDelete = std::function<void(TObject* sender, Integer id)>;
/// An event for programs that change a record; nothing in this library fires it.
using TOnSqlUpdate = std::function<void(TObject* sender, Integer id)>;

/// One parameter of a command.
class QXTOOLS_API TQXSQLItem : public TPersistent {
 public:
  /// Makes an item without a name, with an empty text as its value.
  TQXSQLItem() = default;
  ~TQXSQLItem() override;

  /// Copies name, value, text and style of another TQXSQLItem. If memory runs out, std::bad_alloc is thrown
  /// and this item is unchanged.
  /// @throws EConvertError "Cannot assign a SOURCE to a TQXSQLItem" for any other source.
  void Assign(const TPersistent* source) override;
  /// Returns "TQXSQLItem".
  std::string ClassName() const override { return "TQXSQLItem"; }

  /// Returns the name as it is in the text, "@" included.
  const AnsiString& GetName() const { return name_; }
  /// Changes the name. It may be any text; an empty name replaces nothing. If memory runs out, std::bad_alloc
  /// is thrown and the name is unchanged.
  void SetName(std::string_view name);

  Variant Value = "";          ///< The value as it was set.
  TSqlStyle Style = stString;  ///< How Text is written into the output.
  AnsiString Text;             ///< What is written into the output, before it is quoted.

 private:
  friend class TQXSQLItems;

  AnsiString name_;
  NamePlaces* names_ = nullptr;  // of the list, which must know when the name changes
};

/// The parameters of a command, in the order in which their names first occur. The list owns them. Names
/// match in any letter case. A look-up by name takes constant time on average.
class QXTOOLS_API TQXSQLItems {
 public:
  /// Makes an empty list.
  TQXSQLItems();
  ~TQXSQLItems();
  TQXSQLItems(const TQXSQLItems&) = delete;
  TQXSQLItems& operator=(const TQXSQLItems&) = delete;

  /// Appends an item without a name and returns it. It is valid until it is deleted or the list is cleared.
  TQXSQLItem* Add();
  /// Appends an item with this name and returns it. Adding and finding in turn stays linear.
  TQXSQLItem* Add(std::string_view name);
  /// Appends an item for each "@" name in `text` (see TQXSQL::FindParams) that the list does not have yet. A
  /// name at the very end of `text`, with nothing after it, is ignored. If memory runs out, std::bad_alloc is
  /// thrown and the list is unchanged.
  void AddNamesOf(std::string_view text);
  /// Replaces the items with copies of those of `source`. Does nothing if `source` is null. If memory runs
  /// out, std::bad_alloc is thrown and the list is unchanged.
  ///
  /// On purpose: a list that is assigned to itself is empty afterwards.
  void Assign(const TQXSQLItems* source);
  /// Deletes all items.
  void Clear();
  /// Deletes the item at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  void Delete(Integer index);

  /// Returns the number of items.
  Integer GetCount() const;
  /// Returns the item at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  TQXSQLItem* GetItems(Integer index) const;
  /// Copies `item` into the item at `index` (0-based), as TQXSQLItem::Assign does.
  /// @throws EListError "List index out of bounds (N)".
  void SetItems(Integer index, const TQXSQLItem& item);

  /// Returns the item of that name, the LAST one if there are several, or null if there is none.
  TQXSQLItem* FindByName(std::string_view name) const;
  /// Returns the index (0-based) of the LAST item of that name, or -1 if there is none.
  Integer GetItemsIndex(std::string_view name) const;

  /// Returns the style of the item that FindByName finds.
  /// @throws Exception "Parameters NAME is not found".
  TSqlStyle GetItemsStyle(std::string_view name) const;
  /// Sets the style of the item that FindByName finds.
  /// @throws Exception "Parameters NAME is not found".
  void SetItemsStyle(std::string_view name, TSqlStyle style);
  /// Returns the value of the item that FindByName finds.
  /// @throws Exception "Parameters NAME is not found".
  Variant GetItemsValue(std::string_view name) const;
  /// Sets value, style and text of the item that FindByName finds, by the type of `value`. Null is written as
  /// NULL. A text that begins with one of ParamStyleHeader, in any letter case, takes that style, and its
  /// value begins at the fourth byte: "@N:15" is the integer 15. Any other text keeps the item's style. After
  /// an exception the item is unchanged.
  /// @throws Exception "Parameters NAME is not found".
  /// @throws EConvertError for a date outside the years 1 to 9999.
  ///
  /// On purpose: a value of another type than null, boolean, 16- and 32-bit integer, byte, single, double,
  /// currency, date and text changes nothing at all.
  void SetItemsValue(std::string_view name, const Variant& value);

  /// Sets value and style of the item that FindByName finds. Returns false if there is none.
  ///
  /// On purpose: Text is unchanged, and so is the output, until SetItemsValue is called.
  bool FindAndModify(std::string_view name, std::string_view value, TSqlStyle style);

 private:
  struct State;

  TQXSQLItem& Existing(std::string_view name) const;

  std::unique_ptr<State> state_;
};

/// A T-SQL command text with "@" parameters, and the text with their values in place.
///
///     TQXSQL command;
///     command.GetInLines().SetText("select * from Goods where Name = @Name");
///     command.GetParams().SetItemsValue("@Name", "O'Neil");
///     command.GetOutLines().GetText();  // select * from Goods where Name = 'O''Neil'
///
/// The parameters follow the text: any change of InLines finds them anew and drops the values set before.
/// Each step takes time linear in the text. Exception: if a value could make or lengthen a name in the text,
/// or a name was changed to one that the text cannot hold, the output takes one pass for each parameter.
class QXTOOLS_API TQXSQL : public TPersistent {
 public:
  /// Makes a command without text.
  TQXSQL();
  TQXSQL(const TQXSQL&) = delete;
  TQXSQL& operator=(const TQXSQL&) = delete;
  ~TQXSQL() override;
  /// Returns "TQXSQL".
  std::string ClassName() const override { return "TQXSQL"; }

  /// Returns the lines of the command text. Any change of them finds the parameters anew.
  TStrings& GetInLines() { return inLines_; }
  /// Replaces the command text and finds its parameters, also while InLines holds its change event back.
  void SetInLines(const TStrings& lines) {
    inLines_.Assign(lines);
    FindParams();
  }
  /// Replaces the command text. Its parameters are found by the change event of InLines, so not while that is
  /// held back.
  void LoadParamedCommand(const TStrings& lines) { inLines_.Assign(lines); }
  /// Replaces the command text with the statement of `operation` that `language` selects.
  void AssignSql(const TSqlOperation& operation, TSqlLanguage language);

  /// Returns the parameters.
  TQXSQLItems& GetParams() { return params_; }
  /// Replaces the parameters with copies of those of `params`. Does nothing if it is null.
  void SetParams(const TQXSQLItems* params) { params_.Assign(params); }

  /// Replaces the parameters with those of the text. A name is "@" and ASCII letters, digits and "_", a
  /// letter first. Names inside quotes count. If memory runs out, std::bad_alloc is thrown and there are no
  /// parameters.
  ///
  /// On purpose: a lone "@" waits for its name (`@ x` is `@x`), `@@ROWCOUNT` is the parameter `@ROWCOUNT`,
  /// and a name that a further "@" follows at once is dropped (`@a@b` is `@b`).
  void FindParams();
  /// Calls FindParams. It is the handler of the change event of InLines; `sender` is ignored.
  void OnInLinesChange(TObject* sender);

  /// Returns the text without comments (`/* ... */`) and without blank lines at its start and end, each line
  /// followed by CR LF. A text that does not hold both marks is returned unchanged. Comments do not nest, and
  /// marks inside quotes count.
  ///
  /// On purpose: outside a comment every "/" is removed together with the character after it, and a comment
  /// that ends in an even number of "*" (`/* x **/`) never closes.
  static WideString ClearNote(std::u16string_view text);

  /// Returns the text without comments and with each parameter replaced by its value, one parameter after the
  /// other, in any letter case. The list belongs to the command and is replaced by the next call. If memory
  /// runs out, std::bad_alloc is thrown and the list is empty.
  ///
  /// On purpose: replacing is by plain substring, in the text as it is by then. A name that begins a longer
  /// one also replaces that part of it, and a value that holds the name of a later parameter is replaced
  /// inside its literal. Values from outside belong into the stored-procedure set
  /// (qxTools/sql/qxSqlStoreProc.h), whose call keeps them apart from the statement.
  TStrings& GetOutLines();

  /// Appends the letters of the seven styles (S, N, R, D, T, B, F) to `lines`, one a line, for pick lists.
  void FillCharType(TStrings& lines) const;

 private:
  TStrings inLines_;
  TStrings outLines_;
  TQXSQLItems params_;
};

/// The command that SQL() made, or null. It is shared by all threads without a lock, and freed at the last
/// stop of the package.
QXTOOLS_API extern TQXSQL* FDefaultSQL;

/// Returns the shared default command. The first call makes it.
QXTOOLS_API TQXSQL* SQL();

/// Gives the globals of this unit their first values. Called by the package frame.
void FillGlobals();
/// Frees what the globals of this unit hold. Called by the package frame.
void ReleaseGlobals();

}  // namespace qxTools::QXSqlTools
