// A text from a user in a LIKE condition: %, _ and [ must stand for themselves. The second byte of a Chinese
// character can be one of these, so the text is escaped character by character, as wide text.
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <iostream>

using namespace qxTools;

namespace {

std::u16string LikeText(std::string_view text) {
  std::u16string escaped;
  for (const char16_t c : BytesToWide(text)) {
    const bool special = c == u'%' || c == u'_' || c == u'[';
    escaped += special ? std::u16string{u'[', c, u']'} : std::u16string{c};
  }
  return escaped;
}

}  // namespace

int main() {
  qxSqlStoreProc::TQXSqlStoreProc call;
  call.LoadStoreProc(u"select * from Goods where Name like @MM_Name");
  for (const char* typed : {"50%_[A]", "\xA5\x5C"}) {  // 功, whose second byte is a backslash
    call.SetValue("@MM_Name", u"%" + LikeText(typed) + u"%");
    std::cout << BytesToUtf8(call.GetParams("@MM_Name")->GetSqlValue()) << "\n";
  }
}
