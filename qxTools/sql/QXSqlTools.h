/// @file
/// T-SQL text: literals, lists, conditions and serial numbers, and a command text with "@" parameters.
///
/// Text is bytes (BIG5 where Chinese); only the apostrophe is escaped, by doubling. Nothing here touches a
/// database. The builders are linear in their input.
#pragma once

#include <qxTools/runtime/OwnedList.h>
#include <qxTools/runtime/Persistent.h>
#include <qxTools/runtime/StringList.h>
#include <qxTools/runtime/Variant.h>
#include <qxTools/sql/NameIndex.h>
#include <qxTools/sql/QXSqlDefine.h>

namespace qxTools::QXSqlTools {

using QXSqlDefine::TSqlTypeStruct;

/// Letter cases of field names.
enum TFieldNameType { fnDefault, fnUpperCase, fnLowerCase, fnSqlCase };

// --- Literals ----------------------------------------------------------------------------------------

/// "'" + S + "'" with every "'" inside doubled; "NULL" for an empty S. Blanks are not trimmed.
QXTOOLS_API std::string ToSQLStr(std::string_view s);

/// S as it stands, number or not; "NULL" for an empty S.
QXTOOLS_API std::string ToSQLint(std::string_view s);

/// The values as literals joined with ",". The letter of `types` at a value's place decides, in either case:
/// C, S, D and T quote it, F and N write it as it stands. A value without a letter, or with another one, is
/// left out.
QXTOOLS_API std::string ToSQLEx(std::span<const std::string> values, std::string_view types);

/// A variant as a literal: null "NULL"; dates quoted in the short date format, the time of day dropped; text
/// trimmed of spaces, then as ToSQLStr; booleans 1 and 0; everything else its text form, unquoted, so that an
/// empty variant gives "".
/// @throws EVariantError for a value without a text form, EConvertError for a date outside years 1 to 9999.
QXTOOLS_API std::string VarToSql(const Variant& value);

// --- Lists and ranges --------------------------------------------------------------------------------

/// The values between the commas as a list for IN: " ('a','b',NULL) ", an empty one as NULL.
///
/// On purpose: without a comma there are no blanks around the parentheses, "('a')".
QXTOOLS_API std::string ToSQLinlist(std::string_view list);

/// The two ends of "low~high" for BETWEEN, which the caller writes: "'low' and 'high'". A later "~" belongs
/// to the high end; without one the value stands for both.
QXTOOLS_API std::string ToSQLBetween(std::string_view range);

/// `more` joined to `condition` with " and ", or alone.
QXTOOLS_API std::string SQLAdd(std::string_view condition, std::string_view more);

// --- Numbers and names -------------------------------------------------------------------------------

/// The expression that prints the number `field` left-padded with zeros to `width` characters. A negative
/// width writes none at all.
QXTOOLS_API std::string SQLStrNO(std::string_view field, Integer width);

/// SQLStrNO, a dash and `caption` (a column or expression, pasted as it stands).
QXTOOLS_API std::string SQLNumCaption(std::string_view field, Integer width, std::string_view caption);

/// `name` in a letter case. fnSqlCase: lower case with a capital first letter ("Customer_name"), or, behind a
/// prefix whose "_" stands third, a capital fourth one ("tb_Order").
QXTOOLS_API std::string FormatFieldName(std::string_view name, TFieldNameType kind);

/// `prefix` + "_" + the part of `field` behind its first "_", or all of it.
QXTOOLS_API std::string FieldToParam(std::string_view field, std::string_view prefix);

// --- Types -------------------------------------------------------------------------------------------

/// The first type of that name in any case, or SqlStructEmpty.
QXTOOLS_API TSqlTypeStruct FindSqlStructByName(std::string_view name);

/// The first type with that ODBC code, or SqlStructEmpty: 3 is Decimal and never Money.
QXTOOLS_API TSqlTypeStruct FindSqlStructByDataType(Integer dataType);

// --- The command -------------------------------------------------------------------------------------

/// How a parameter's value is written: text, dates and times quoted, the others as they stand.
enum TSqlStyle { stString, stInteger, stReal, stDate, stTime, stBoolean, stFunction };

/// The two characters with which a text value names its own style, by TSqlStyle: "@S" to "@F".
QXTOOLS_API extern std::array<std::string, 7> ParamStyleHeader;

/// Which of the four.
enum TSqlLanguage { slSelect, slInsert, slDelete, slUpdate };

/// The texts of the four statements of one table.
struct TSqlOperation {
  /// The statements.
  AnsiString SelectSql;
  AnsiString InsertSql;
  AnsiString DeleteSql;
  AnsiString UpdateSql;
};

/// Events for hosts; nothing here raises them.
using TOnSqlInsert = std::function<void(TObject* sender, Integer id)>;
using TOnSqlDelete = std::function<void(TObject* sender, Integer id)>;
using TOnSqlUpdate = std::function<void(TObject* sender, Integer id)>;

/// One parameter of a command.
class QXTOOLS_API TQXSQLItem : public TPersistent {
 public:
  TQXSQLItem() = default;
  ~TQXSQLItem() override;

  /// Copies name, value, text and style of another TQXSQLItem.
  /// @throws EConvertError for any other source.
  void Assign(const TPersistent* source) override;
  std::string ClassName() const override { return "TQXSQLItem"; }

  /// The marker as found in the text, "@" included.
  const AnsiString& GetName() const { return name_; }
  void SetName(std::string_view name);

  Variant Value = "";          ///< As set.
  TSqlStyle Style = stString;  ///< How the text is written.
  AnsiString Text;             ///< What will stand in the statement, before quoting.

 private:
  friend class TQXSQLItems;

  AnsiString name_;
  AnsiString upperName_;
  NameIndex* index_ = nullptr;  // that of the list, told when the name changes
};

/// The parameters of a command, owned, in the order in which their names first occur. Names match in any
/// case; look-ups by name take constant time on average. A bad index raises EListError.
class QXTOOLS_API TQXSQLItems {
 public:
  TQXSQLItems() = default;
  TQXSQLItems(const TQXSQLItems&) = delete;
  TQXSQLItems& operator=(const TQXSQLItems&) = delete;

  /// Appends a new item; it lives until it is deleted or the list is cleared.
  TQXSQLItem* Add();
  /// The same with a name, which keeps looking up and adding in turn linear.
  TQXSQLItem* Add(std::string_view name);
  /// Adds an item for each "@" name in the text that has none yet.
  void AddNamesOf(std::string_view text);
  /// Replaces the items by copies of those of `source`; nothing happens for null.
  ///
  /// On purpose: a list assigned to itself ends empty.
  void Assign(const TQXSQLItems* source);
  /// Deletes all items.
  void Clear();
  /// Deletes the item at `index`.
  void Delete(Integer index);

  Integer GetCount() const { return items_.GetCount(); }
  TQXSQLItem* GetItems(Integer index) const { return items_.GetItems(index); }
  /// Assigns `item` into the one that stands there.
  void SetItems(Integer index, const TQXSQLItem& item);

  /// The item of that name, the LAST when there are several, or null.
  TQXSQLItem* FindByName(std::string_view name) const;
  /// Its position, or -1.
  Integer GetItemsIndex(std::string_view name) const;

  // Styles and values by name. All but FindAndModify raise Exception, "Parameters NAME is not found".
  TSqlStyle GetItemsStyle(std::string_view name) const;
  void SetItemsStyle(std::string_view name, TSqlStyle style);
  Variant GetItemsValue(std::string_view name) const;
  /// Sets value, style and text by the variant's type. Null is written as NULL. A text that begins with one
  /// of ParamStyleHeader, in any case, takes that style, and its value begins at the fourth byte ("@N:15" is
  /// the integer 15); other text keeps the style.
  /// @throws EConvertError for a date outside years 1 to 9999.
  ///
  /// On purpose: values of other types than null, boolean, 16- and 32-bit integer, byte, single, double,
  /// currency, date and text change nothing at all.
  void SetItemsValue(std::string_view name, const Variant& value);

  /// Sets value and style of the item of that name. @return false when there is none.
  ///
  /// On purpose: the item's text stays, and with it the output, until SetItemsValue is called.
  bool FindAndModify(std::string_view name, std::string_view value, TSqlStyle style);

 private:
  TQXSQLItem& Existing(std::string_view name) const;
  Integer IndexOfUpper(std::string_view upperName) const;
  std::string_view UpperNameAt(Integer index) const { return GetItems(index)->upperName_; }

  OwnedList<TQXSQLItem> items_;
  mutable NameIndex index_;
};

/// A T-SQL command text with "@" parameters, and the text with their values in place.
///
/// The parameters follow the text: any change of InLines rebuilds them and drops values set before. Every
/// step is linear in the text; only where a value could make or lengthen a name in it, or a name was
/// changed, does the output take a pass a parameter.
class QXTOOLS_API TQXSQL : public TPersistent {
 public:
  TQXSQL();
  TQXSQL(const TQXSQL&) = delete;
  TQXSQL& operator=(const TQXSQL&) = delete;
  ~TQXSQL() override;
  std::string ClassName() const override { return "TQXSQL"; }

  /// The command text; changing it, also directly, finds the parameters anew.
  TStrings& GetInLines() { return inLines_; }
  /// Takes these lines and finds their parameters, also while InLines holds its event back.
  void SetInLines(const TStrings& lines) {
    inLines_.Assign(lines);
    FindParams();
  }
  /// Takes these lines; InLines' event finds the parameters.
  void LoadParamedCommand(const TStrings& lines) { inLines_.Assign(lines); }
  /// Takes the statement of `operation` that `language` picks.
  void AssignSql(const TSqlOperation& operation, TSqlLanguage language);

  TQXSQLItems& GetParams() { return params_; }
  void SetParams(const TQXSQLItems* params) { params_.Assign(params); }

  /// Rebuilds the parameters from the text. A name is "@" and ASCII letters, digits and "_", beginning with a
  /// letter; quotes are not looked at.
  ///
  /// On purpose: a lone "@" stays open (`@ x` is `@x`), and `@@ROWCOUNT` is the parameter `@ROWCOUNT`.
  void FindParams();
  void OnInLinesChange(TObject* sender);

  /// The text without `/* */` comments and without blank lines around it; a text without both marks comes
  /// back as it is. Comments do not nest, and marks inside quotes count.
  ///
  /// On purpose: outside a comment every "/" goes, with the character behind it, and a comment that ends in
  /// an odd number of "*" more than one (`/* x **/`) never closes.
  static WideString ClearNote(std::u16string_view text);

  /// The text without comments and with every parameter replaced by its value, in list order, in any case.
  /// The list stays the command's own and holds this output until the next call.
  ///
  /// On purpose: replacing is by plain substring, in the text as it stands by then. A name that begins a
  /// longer one also replaces that part of it, and a value that holds a later parameter's name is replaced
  /// inside its literal: values from outside belong into the stored-procedure set, whose call keeps them
  /// apart from the statement.
  TStrings& GetOutLines();

  /// Appends the letters of the seven styles, one a line, for pick lists.
  void FillCharType(TStrings& lines) const;

 private:
  TStrings inLines_;
  TStrings outLines_;
  TQXSQLItems params_;
};

/// The command that SQL() made, or null. Shared and unguarded; freed at the last package stop.
QXTOOLS_API extern TQXSQL* FDefaultSQL;

/// The shared default command, made at the first call.
QXTOOLS_API TQXSQL* SQL();

// For the package frame: the globals' first values, and giving back what they hold.
void FillGlobals();
void ReleaseGlobals();

}  // namespace qxTools::QXSqlTools
