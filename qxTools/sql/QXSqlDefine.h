/// @file
/// The catalogue of SQL Server column types: name, ODBC code, parameter style and whether a length belongs to
/// the declaration. Constant data; QXSqlTools looks types up in it.
#pragma once

#include <qxTools/base/Types.h>

#include <array>

namespace qxTools::QXSqlDefine {

/// The catalogued types, in the order of SqlStruct.
enum TSqlTypes {
  Sql_Bitint,
  Sql_Binary,
  Sql_Bit,
  Sql_Char,
  Sql_Datetime,
  Sql_Decimal,
  Sql_Float,
  Sql_Image,
  Sql_Int,
  Sql_Money,
  Sql_Nchar,
  Sql_Ntext,
  Sql_Numeric,
  Sql_Nvarchar,
  Sql_Real,
  Sql_Smalldatetime,
  Sql_Smallint,
  Sql_Smallmoney,
  Sql_Sql_variant,
  Sql_Text,
  Sql_Timestamp,
  Sql_Tinyint,
  Sql_Uniqueidentifie,
  Sql_Varbinary,
  Sql_Varchar,
};

/// One column type.
struct TSqlTypeStruct {
  AnsiString Name;       ///< As the catalogue spells it.
  Integer DataType = 0;  ///< The ODBC SQL data type code (sql.h, sqlext.h); some types share one.
  /// How a value is written: 'S' string, 'N' integer, 'R' real, 'D' date, 'B' boolean, 'F' function (as it
  /// stands), 'U' unknown.
  char Style = 'U';
  bool Sized = false;  ///< Declared with a length.

  friend bool operator==(const TSqlTypeStruct&, const TSqlTypeStruct&) = default;
};

/// What a look-up gives that found nothing: no name, code 0, style 'U', not sized.
QXTOOLS_API extern const TSqlTypeStruct SqlStructEmpty;

/// The 25 types, indexed by TSqlTypes.
///
/// On purpose: "Bitint" and the cut "Uniqueidentifie" are spelled so; look-ups by name depend on it.
QXTOOLS_API extern const std::array<TSqlTypeStruct, 25> SqlStruct;

}  // namespace qxTools::QXSqlDefine
