// Three ways to T-SQL text: literals, a command with its values in place, and a call that keeps them apart.
#include <qxTools/runtime/DateTime.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <iostream>

using namespace qxTools;
using namespace qxTools::QXSqlTools;
using qxTools::qxSqlStoreProc::TQXSqlStoreProc;

int main() {
  // Literals and conditions.
  std::string where = SQLAdd("", "Name = " + ToSQLStr("O'Neil"));
  where = SQLAdd(where, "Qty between " + ToSQLBetween("5~9"));
  where = SQLAdd(where, "Kind in" + ToSQLinlist("a,b,,c"));
  std::cout << "where " << where << "\n";
  std::cout << VarToSql(Variant::FromDate(EncodeDate(2003, 1, 31))) << " " << VarToSql(Variant::Null())
            << "\n";

  // A command: the parameters are found in the text, the values replace them.
  TQXSQL command;
  command.GetInLines().SetText("select * from Goods where ID = @ID and Name = @Name /* by both */");
  command.GetParams().SetItemsValue("@ID", 15);
  command.GetParams().SetItemsValue("@Name", "O'Neil");
  std::cout << command.GetOutLines().GetText();

  // A call of sp_executesql: statement, declarations and values stay apart, so a value may hold anything.
  TQXSqlStoreProc search;
  search.LoadStoreProc(u"select * from [$Table] where Name = @MM_Name and Qty > @MM_Qty");
  search.SetValue("$Table", "Goods");
  search.SetValue("@MM_Name", "'; drop table Goods --");
  search.SetValue("@MM_Qty", 10);
  std::cout << search.GetStoreProc()->GetText();
}
