// NULL and empty texts: an empty text is written as NULL. How to write '' where it is meant.
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <iostream>

using namespace qxTools;
using namespace qxTools::QXSqlTools;

int main() {
  std::cout << "ToSQLStr: [" << ToSQLStr("") << "] [" << ToSQLStr(" ") << "]\n";
  std::cout << "VarToSql: [" << VarToSql("") << "] [" << VarToSql(" ") << "] [" << VarToSql(Variant::Null())
            << "] [" << VarToSql(Variant()) << "]\n";

  // In a command: "@F:" writes the value as it stands.
  TQXSQL command;
  command.GetInLines().SetText("update Goods set Note = @Note, Kind = @Kind where Code = @Code");
  command.GetParams().SetItemsValue("@Note", "@F:''");
  command.GetParams().SetItemsValue("@Kind", Variant::Null());
  command.GetParams().SetItemsValue("@Code", "A-7");
  std::cout << command.GetOutLines().GetText();

  // In a call: the statement turns NULL into an empty text.
  qxSqlStoreProc::TQXSqlStoreProc call;
  call.LoadStoreProc(u"update Goods set Note = isnull(@MM_Note, '')");
  call.SetValue("@MM_Note", "");
  call.GetParams("@MM_Note")->SetAutoStyle(false);
  call.GetParams("@MM_Note")->SetLength(40);  // Varchar(40) and not Varchar
  std::cout << call.GetStoreProc()->GetText();
}
