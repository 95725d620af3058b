// Which type a call declares for a value, and how to choose another one.
#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <iostream>

using namespace qxTools;
using namespace qxTools::qxSqlStoreProc;

int main() {
  TQXSqlStoreProc call;
  call.LoadStoreProc(
      u"select @MM_Text, @MM_Int, @MM_Big, @MM_Bit, @MM_Real, @MM_Money, @MM_Date, @MM_Null, @MM_Code");
  call.SetValue("@MM_Text", "O'Neil");
  call.SetValue("@MM_Int", 10);
  call.SetValue("@MM_Big", std::int64_t{10});
  call.SetValue("@MM_Bit", true);
  call.SetValue("@MM_Real", 1.5);
  call.SetValue("@MM_Money", Variant::FromCurrency(15000));  // in ten-thousandths
  call.SetValue("@MM_Date", Variant::FromDate(EncodeDate(2024, 5, 1)));
  call.SetValue("@MM_Null", Variant::Null());

  // A type of your choice: switch the automatic one off first, then set style, length and value.
  TQXSqlStoreProcItem* code = call.GetParams("@MM_Code");
  code->SetAutoStyle(false);
  code->SetStyle(spChar);
  code->SetLength(20);
  code->SetValue("A-7");

  for (Integer i = 0; i < call.GetParamCount(); ++i) {
    const TQXSqlStoreProcItem* item = call.GetItems(i);
    std::cout << item->GetName() << " " << StoreProcParamTypeStr[item->GetStyle()] << " " << item->GetLength()
              << " " << item->GetSqlValue() << "\n";
  }
}
