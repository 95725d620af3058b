#include <qxTools/sql/QXSqlDefine.h>

namespace qxTools::QXSqlDefine {

// The names are short enough to stand in the strings themselves: the catalogue holds nothing that a shut-down
// would have to give back.

QXTOOLS_GLOBAL const TSqlTypeStruct SqlStructEmpty{};

// clang-format off
QXTOOLS_GLOBAL const std::array<TSqlTypeStruct, 25> SqlStruct{{
    // Name             DataType Style Sized
    {"Bitint",               -5, 'N', false},
    {"Binary",               -2, 'N', true},
    {"Bit",                  -7, 'B', false},
    {"Char",                  1, 'S', true},
    {"Datetime",             11, 'D', false},
    {"Decimal",               3, 'N', false},
    {"Float",                 6, 'R', false},
    {"Image",                -4, 'N', false},
    {"Int",                   4, 'N', false},
    {"Money",                 3, 'R', false},
    {"Nchar",                -8, 'S', true},
    {"Ntext",               -10, 'S', false},
    {"Numeric",               2, 'N', false},
    {"Nvarchar",             -9, 'S', true},
    {"Real",                  7, 'R', false},
    {"Smalldatetime",        11, 'D', false},
    {"Smallint",              5, 'N', false},
    {"Smallmoney",            3, 'R', false},
    {"Sql_variant",        -150, 'F', false},
    {"Text",                 -1, 'S', false},
    {"Timestamp",            -2, 'N', false},
    {"Tinyint",              -6, 'N', false},
    {"Uniqueidentifie",     -11, 'N', false},
    {"Varbinary",            -3, 'N', true},
    {"Varchar",              12, 'S', true},
}};
// clang-format on
static_assert(Sql_Varchar + 1 == SqlStruct.size(), "one row a member of TSqlTypes");

}  // namespace qxTools::QXSqlDefine
