/// @file
/// The catalogue of SQL Server column types: name, ODBC code, parameter style and whether the declaration has
/// a length. It is constant; QXSqlTools finds types in it by name and by code.
#pragma once

#include <qxTools/base/Types.h>

#include <array>

namespace qxTools::QXSqlDefine {

/// The types of the catalogue, in the order of SqlStruct.
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
  AnsiString Name;       ///< The name as the catalogue spells it.
  Integer DataType = 0;  ///< The ODBC code of the type; some types share one.
  /// How a value is written: 'S' string, 'N' integer, 'R' real, 'D' date, 'B' boolean, 'F' function
  /// (unquoted), 'U' unknown.
  char Style = 'U';
  bool Sized = false;  ///< Whether the declaration has a length, as in Varchar(20).

  /// Compares all four members.
  friend bool operator==(const TSqlTypeStruct&, const TSqlTypeStruct&) = default;
};

/// The type that a look-up returns if it finds none: no name, code 0, style 'U', not sized.
QXTOOLS_API extern const TSqlTypeStruct SqlStructEmpty;

/// The 25 types, indexed by TSqlTypes.
///
/// On purpose: two names are spelled "Bitint" and "Uniqueidentifie"; they are found by these spellings only.
QXTOOLS_API extern const std::array<TSqlTypeStruct, 25> SqlStruct;

}  // namespace qxTools::QXSqlDefine
