// A text as a Unicode literal, also with characters that code page 950 lacks: these are written by their
// numbers.
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/QXSqlTools.h>

#include <iostream>

using namespace qxTools;

namespace {

/// N'...' for the characters of the page, NCHAR(n) for each UTF-16 unit of the others.
std::string UnicodeLiteral(std::u16string_view text) {
  std::string literal = "N'";
  for (const char16_t unit : text) {
    const std::string bytes = WideToBytes(std::u16string_view(&unit, 1));
    if (bytes == "?" && unit != u'?')
      literal += "' + NCHAR(" + std::to_string(static_cast<unsigned>(unit)) + ") + N'";
    else
      literal += bytes == "'" ? "''" : bytes;
  }
  return literal + "'";
}

}  // namespace

int main() {
  QXSqlTools::TQXSQL command;
  command.GetInLines().SetText("update Customer set Name = @Name where ID = @ID");
  // "@F:" writes the value as it stands, so it must be a complete literal.
  command.GetParams().SetItemsValue("@Name", "@F:" + UnicodeLiteral(u"O'Neil \u5803\u9673"));  // 堃陳
  command.GetParams().SetItemsValue("@ID", 7);
  std::cout << BytesToUtf8(command.GetOutLines().GetText());
}
