/// @file
/// The call of sp_executesql, written so that a server reads exactly the statement and the values of the set:
/// Unicode literals, types with a length or a precision, dates that no session setting changes.
///
/// The set and its own call text stay as they are; this unit only reads them. What has no exact form is not
/// written: an exception names the parameter and the reason. That is a value that was never set, an empty
/// variant, an object, an array other than one row of bytes, a byte that begins no character, a character
/// that code page 950 lacks, and a value that its declared type cannot hold.
///
/// A server drops a backslash at the end of a line inside a literal, and the line end with it. A text that
/// holds such a pair is written as literals joined by `+`, and the call passes it in a variable.
#pragma once

#include <qxTools/sql/qxSqlStoreProc.h>

#include <vector>

namespace qxTools::qxSqlSafeCall {

using qxSqlStoreProc::TQXSqlStoreProc;
using qxSqlStoreProc::TQXSqlStoreProcItem;

/// How texts are written and declared.
enum TSafeText : std::uint8_t {
  stNVarchar,   ///< `N'...'` as NVarchar, lengths in UTF-16 units.
  stVarchar,    ///< `'...'` as Varchar, lengths in bytes; the server reads it in the database's code page.
  stByContent,  ///< As stVarchar if all characters are ASCII, otherwise as stNVarchar.
};

/// The type that dates are declared with.
enum TSafeDate : std::uint8_t {
  sdDatetime,   ///< Datetime; Datetime2(3) for years before 1753, which Datetime lacks.
  sdDatetime2,  ///< Datetime2(3).
  sdDate,       ///< Date; the server drops a time of day.
};

/// A declared parameter.
struct TSafeParam {
  AnsiString Name = {};  ///< With its "@".
  AnsiString Type = {};  ///< The name of a type, as in "NVarchar".
  Integer Length = 0;    ///< The length or the precision; 0 if none is declared.
  Integer Scale = 0;     ///< The digits after the decimal point.
  bool Max = false;      ///< Whether the length is `(max)`.
  bool Output = false;   ///< Whether the statement gives a value back.
};

/// How a call is written.
struct TSafeCallOptions {
  TSafeText Text = stNVarchar;  ///< How texts are written and declared.
  std::vector<Integer> Lengths =
      {};                       ///< The lengths to choose from; if empty, 4000 for NVarchar, 8000 otherwise.
  TSafeDate Date = sdDatetime;  ///< The type of dates.
  std::vector<TSafeParam> Params = {};  ///< Declarations that replace those of the items of these names.
  bool EmptyIsNull = false;             ///< Write an empty text as NULL.
  bool TrimText = false;                ///< Write texts without the spaces at both ends.
  bool WriteExec = true;                ///< Begin with EXEC, which a call after another statement needs.
};

/// Reads a declaration list, as in "@a Decimal(10,2), @b NVarchar(max) OUTPUT"; comments are ignored. Knows
/// the types of the set and also Binary, Date, Datetime2, NVarchar, Numeric, Real, Smalldatetime, Time and
/// Uniqueidentifier, in any case. A blank text gives an empty list.
/// @throws Exception, quoting the declaration, for an unknown type, a length that the type cannot have, any
///   other text, and a name that occurs twice.
QXTOOLS_API std::vector<TSafeParam> ReadSafeParams(std::string_view declarations);

/// The declaration of an item, as in "@MM_Code NVarchar(4000)".
///
/// A value decides its type: the first length that holds a text, Decimal for a Single with few digits, Float
/// for other fractions. An item whose style or length was set by hand, or by LoadParams, keeps them; a null
/// is declared as a text unless its style was set.
/// @throws Exception, with the item's name in front, for a value without an exact form.
QXTOOLS_API AnsiString SafeDeclaration(const TQXSqlStoreProcItem& item, const TSafeCallOptions& options = {});

/// A value as a literal: N'O''Neil', 12.5, 1E-1, '2024-01-02T03:04:05.123', 0x00FF, NULL. A text with a
/// backslash at the end of a line is several literals joined by "+", which EXEC does not accept.
/// @throws Exception for a value without an exact form.
QXTOOLS_API AnsiString SafeLiteral(const Variant& value, const TSafeCallOptions& options = {});

/// Replaces the lines of `call` by the call of sp_executesql. The statement is sent as it is, its macros
/// replaced; "[##]" is text. Each parameter that returns a value, and each text that needs a variable, has
/// one, `@v1` and so on; the last line then selects what was returned, so a batch can hold one such call.
/// @throws Exception, with the name of the parameter or macro in front, for a value without an exact form;
///   `call` is unchanged then.
QXTOOLS_API void GetSafeStoreProc(TQXSqlStoreProc& set, TStrings& call, const TSafeCallOptions& options = {});

}  // namespace qxTools::qxSqlSafeCall
