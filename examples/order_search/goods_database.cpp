// Makes the small goods database that the search runs on, from the four string tables beside this file:
//
//   goods_database FOLDER "Driver=SQLite3;Database=goods.db"
//
// The records are written as INSERT statements by the SQL unit and sent over ODBC as UTF-8.
#include <qxTools/base/Exceptions.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/stores/QXStringTable.h>
#include <qxTools/strings/QXStrTools.h>

#include <iostream>

#include "database/Charset.h"
#include "database/Odbc.h"

namespace {

using namespace qxTools;
namespace database = qxtool::database;

struct Table {
  std::string name;
  std::string fields;      // as the string table names them
  std::string fieldTypes;  // S a text, D a date, N a number
  std::string columns;
};

const Table kTables[] = {
    {"Customer", "CustNo,CustName", "SS", "CustNo varchar(8) primary key, CustName varchar(40) not null"},
    {"Goods", "Code,GoodsName,Kind", "SSS",
     "Code varchar(8) primary key, GoodsName varchar(40) not null, Kind varchar(20)"},
    {"OrderHead", "OrderNo,OrderDate,CustNo,Status,Rush", "SDSSN",
     "OrderNo varchar(8) primary key, OrderDate varchar(10), CustNo varchar(8), Status varchar(8), Rush int"},
    {"OrderDetail", "OrderNo,GoodsCode,Qty,Price", "SSNN",
     "OrderNo varchar(8), GoodsCode varchar(8), Qty int, Price decimal(12,2)"},
};

/// The current record as a list of literals; an empty text is NULL.
std::string Literals(const QXStringTable::TQXStringTable& records, const Table& table) {
  std::vector<std::string> values;
  for (Integer i = 1; i <= records.GetFieldCount(); ++i)
    values.push_back(records.GetField(QXStrTools::GetAt(",", table.fields, i)));
  return QXSqlTools::ToSQLEx(values, table.fieldTypes);
}

std::string InsertOf(const Table& table, const std::string& folder) {
  QXStringTable::TQXStringTable records("#TEMP");
  records.LoadFromFile(folder + "/" + table.name + ".tbl");
  std::string rows;
  records.Top();
  for (Integer i = 1; i <= records.GetReccount(); ++i, records.Next())
    rows += (i > 1 ? ",\n (" : "\n (") + Literals(records, table) + ")";
  return "insert into " + table.name + " (" + table.fields + ") values" + rows;
}

void MakeDatabase(const std::string& folder, const database::Connection& connection) {
  const auto send = [&](const std::string& statement) {
    database::Statement(connection).Execute(database::ForServer(statement, database::Charset::kUtf8));
  };
  for (const Table& table : kTables) {
    send("drop table if exists " + table.name);
    send("create table " + table.name + " (" + table.columns + ")");
    send(InsertOf(table, folder));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: goods_database FOLDER CONNECTION\n";
    return 2;
  }
  try {
    MakeDatabase(argv[1], database::Connection(argv[2]));
  } catch (const std::exception& e) {
    std::cerr << "goods_database: " << e.what() << "\n";
    return 2;
  }
}
