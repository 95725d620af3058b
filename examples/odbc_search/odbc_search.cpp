// Connects to a database over ODBC, sends statements that the library has written, and prints the rows.
//
//   odbc_search                  SQLite, in memory
//   odbc_search CONNECTION       for SQL Server: "Driver=FreeTDS;Server=HOST;Port=1433;TDS_Version=7.4;
//                                UID=USER;PWD=PASSWORD;ClientCharset=UTF-8"
//
// SQL Server gets the call of sp_executesql, which keeps the values apart from the statement. Other servers
// do not have it: they get the statement with the values written into it. Text goes to the driver as UTF-8
// and comes back so.
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>
#include <sql.h>
#include <sqlext.h>

#include <iostream>

namespace {

using namespace qxTools;

//! [connection]
/// An ODBC handle that frees itself, and throws what the driver says.
class Handle {
 public:
  Handle(SQLSMALLINT type, SQLHANDLE parent) : type_(type) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle_))) throw Exception("no ODBC handle");
  }
  ~Handle() { SQLFreeHandle(type_, handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE Get() const { return handle_; }

  /// SQL_NO_DATA is not an error: an update that changed no row returns it.
  void Check(SQLRETURN result) const {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    SQLCHAR state[6] = {};
    SQLCHAR text[1024] = {};
    SQLGetDiagRec(type_, handle_, 1, state, nullptr, text, sizeof text, nullptr);
    throw Exception(std::string(reinterpret_cast<char*>(state)) + " " + reinterpret_cast<char*>(text));
  }

 private:
  SQLSMALLINT type_;
  SQLHANDLE handle_ = nullptr;
};

SQLCHAR* Text(std::string& text) { return reinterpret_cast<SQLCHAR*>(text.data()); }

class Connection {
 public:
  explicit Connection(std::string target)
      : environment_(SQL_HANDLE_ENV, nullptr), connection_(SQL_HANDLE_DBC, Version3(environment_)) {
    connection_.Check(SQLDriverConnect(connection_.Get(), nullptr, Text(target), SQL_NTS, nullptr, 0, nullptr,
                                       SQL_DRIVER_NOPROMPT));
  }
  ~Connection() { SQLDisconnect(connection_.Get()); }

  SQLHANDLE Get() const { return connection_.Get(); }

  bool IsSqlServer() const {
    char name[64] = {};
    connection_.Check(SQLGetInfo(connection_.Get(), SQL_DBMS_NAME, name, sizeof name, nullptr));
    return std::string_view(name).find("SQL Server") != std::string_view::npos;
  }

 private:
  static SQLHANDLE Version3(const Handle& environment) {
    SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    return environment.Get();
  }

  Handle environment_;
  Handle connection_;
};

/// The text of a column of the current row, in pieces as long as it is.
std::string Value(const Handle& statement, SQLUSMALLINT column) {
  std::string value;
  char piece[256];
  for (;;) {
    SQLLEN length = 0;
    const SQLRETURN result =
        SQLGetData(statement.Get(), column, SQL_C_CHAR, piece, static_cast<SQLLEN>(sizeof piece), &length);
    statement.Check(result);
    if (result == SQL_NO_DATA) return value;
    if (length == SQL_NULL_DATA) return "NULL";
    value += piece;
    if (result == SQL_SUCCESS) return value;
  }
}

/// Sends a statement, which is bytes in code page 950, and prints its rows, if it has any.
void Run(const Connection& connection, std::string_view statement) {
  const Handle handle(SQL_HANDLE_STMT, connection.Get());
  std::string utf8 = BytesToUtf8(statement);
  handle.Check(SQLExecDirect(handle.Get(), Text(utf8), SQL_NTS));
  SQLSMALLINT columns = 0;
  handle.Check(SQLNumResultCols(handle.Get(), &columns));
  while (columns > 0 && SQLFetch(handle.Get()) == SQL_SUCCESS) {
    for (SQLSMALLINT i = 1; i <= columns; ++i)
      std::cout << (i > 1 ? "  " : "") << Value(handle, static_cast<SQLUSMALLINT>(i));
    std::cout << "\n";
  }
}
//! [connection]

//! [search]
constexpr char16_t kSearch[] =
    u"select Code, GoodsName, Qty from [$Goods] where GoodsName like @MM_Name and Qty >= @MM_Qty order by "
    u"Code";

/// The call for SQL Server: the statement, the declarations and the values, apart.
std::string CallText(std::string_view table, std::string_view name, Integer quantity) {
  qxSqlStoreProc::TQXSqlStoreProc call;
  call.LoadStoreProc(kSearch);
  call.SetValue("$Goods", table);
  call.SetValue("@MM_Name", name);
  call.SetValue("@MM_Qty", quantity);
  return call.GetStoreProc()->GetText();
}

/// The statement for other servers, with the values as literals in it.
std::string CommandText(std::string_view table, std::string_view name, Integer quantity) {
  QXSqlTools::TQXSQL command;
  std::string text = WideToBytes(kSearch);
  command.GetInLines().SetText(text.replace(text.find("[$Goods]"), 8, table));
  command.GetParams().SetItemsValue("@MM_Name", name);
  command.GetParams().SetItemsValue("@MM_Qty", quantity);
  return command.GetOutLines().GetText();
}
//! [search]

void MakeGoods(const Connection& connection, const std::string& table, bool isSqlServer) {
  Run(connection, std::string(isSqlServer ? "create table " : "create temp table ") + table +
                      " (Code varchar(8), GoodsName varchar(40), Qty int)");
  const std::vector<std::string> rows[] = {
      {"A-1", "LED\xBF\x4F\xBA\xDE", "24"},                // 燈管
      {"A-2", "O'Neil \xBF\x4F\xBA\xDE", "3"},             // 燈管
      {"B-1", "\xC1\xB3\xB5\xB7\xB0\x5F\xA4\x6C", "500"},  // 螺絲起子
      {"B-2", "O'Neil LED\xBF\x4F\xBA\xDE", "12"},         // 燈管
  };
  for (const std::vector<std::string>& row : rows)
    Run(connection, "insert into " + table + " values (" + QXSqlTools::ToSQLEx(row, "SSN") + ")");
}

void Search(const std::string& target) {
  const Connection connection(target);
  const bool isSqlServer = connection.IsSqlServer();
  const std::string table = isSqlServer ? "#Goods" : "Goods";
  MakeGoods(connection, table, isSqlServer);
  const std::string name = "%\xBF\x4F\xBA\xDE%";  // 燈管
  const std::string statement = (isSqlServer ? CallText : CommandText)(table, name, 10);
  std::cout << BytesToUtf8(statement);
  Run(connection, statement);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Search(argc > 1 ? argv[1] : "Driver=SQLite3;Database=:memory:");
  } catch (const Exception& e) {
    std::cerr << "odbc_search: " << e.what() << "\n";
    return 2;
  }
}
