// An ordinary call and the safe one of the same statement and values, and what the safe one refuses to write.
#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/qxSqlSafeCall.h>

#include <iostream>

using namespace qxTools;
using namespace qxTools::qxSqlStoreProc;

int main() {
  TQXSqlStoreProc set;
  set.LoadStoreProc(u"select * from Customer where Name = @MM_Name and Since > @MM_Since");
  set.SetValue("@MM_Name", "O'Neil \xB3\xAF");  // 陳
  set.SetValue("@MM_Since", Variant::FromDate(EncodeDate(2024, 5, 1)));

  std::cout << BytesToUtf8(set.GetStoreProc()->GetText()) << "\n";
  TStringList call;
  qxSqlSafeCall::GetSafeStoreProc(set, call);
  std::cout << BytesToUtf8(call.GetText()) << "\n";

  set.SetValue("@MM_Name", "O'Neil \xB3");  // cut in the middle of the character
  try {
    qxSqlSafeCall::GetSafeStoreProc(set, call);
  } catch (const Exception& e) {
    std::cout << e.what() << "\n";
  }
}
