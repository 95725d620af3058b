// Searches orders: loads the statement beside this file, sets its parameters and prints the call that an
// application sends to SQL Server.
//
//   order_search order_search.sql
//
// The statement and the call are bytes in code page 950; they are shown as UTF-8, as terminals have it.
#include <qxTools/base/CodePage950.h>
#include <qxTools/base/Exceptions.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <iostream>

namespace {

using namespace qxTools;
using qxSqlStoreProc::TQXSqlStoreProc;

//! [call]
std::string CallText(const char* fileName) {
  TStringList statement;
  statement.LoadFromFile(fileName);

  TQXSqlStoreProc search;
  search.LoadStoreProc(&statement);  // finds @MM_... and [$...]
  search.SetValue("$Orders", "OrderHead");
  search.SetValue("@MM_From", Variant::FromDate(EncodeDate(2003, 1, 1)));
  search.SetValue("@MM_To", Variant::FromDate(EncodeDate(2003, 12, 31)));
  search.SetValue("@MM_Customer", "%\xA6\xB3\xAD\xAD\xA4\xBD\xA5\x71%");  // 有限公司
  search.SetValue("@MM_Qty", 10);
  search.SetValue("@MM_Rush", true);
  return search.GetStoreProc()->GetText();
}
//! [call]

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: order_search STATEMENT.sql\n";
    return 2;
  }
  try {
    std::cout << BytesToUtf8(CallText(argv[1])) << std::flush;
  } catch (const Exception& e) {
    std::cerr << "order_search: " << e.what() << "\n";
    return 2;
  }
  return std::cout.good() ? 0 : 2;
}
