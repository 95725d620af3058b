// Declaration lists: read as their wording has it, and read again as they were saved.
#include <qxTools/base/CodePage950.h>
#include <qxTools/runtime/Numbers.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
namespace plain = fuzz::plain;
using qxSqlStoreProc::TQXSqlStoreProc;

struct Declaration {
  std::string name;
  Integer style;
  Integer length;
  friend bool operator==(const Declaration&, const Declaration&) = default;
};

std::vector<Declaration> Of(const TQXSqlStoreProc& set) {
  std::vector<Declaration> list;
  for (Integer i = 0; i < set.GetParamCount(); ++i)
    list.push_back({set.GetItems(i)->GetName(), set.GetItems(i)->GetStyle(), set.GetItems(i)->GetLength()});
  return list;
}

Declaration ReadPiece(const std::string& piece) {
  const std::size_t blank = piece.find(' ');
  if (blank == plain::kNone) throw Exception("Param Error");
  Declaration read{plain::Trim(piece.substr(0, blank)), 0, 0};
  std::string type = plain::Trim(piece.substr(blank + 1));
  const std::size_t open = type.find('(');
  if (open != plain::kNone) {
    const std::size_t close = type.find(')');
    const bool closed = close != plain::kNone && close > open;
    read.length = StrToInt(closed ? type.substr(open + 1, close - open - 1) : "");
    type = plain::Trim(type.substr(0, open));
  }
  for (const std::string& known : qxSqlStoreProc::StoreProcParamTypeStr) {
    if (plain::Upper(known) == plain::Upper(type)) return read;
    ++read.style;
  }
  throw Exception("ParamStyle not Found");
}

void Read(std::string text, std::vector<Declaration>& list) {
  for (std::size_t i = 0; i < text.size();) {
    if (text.compare(i, 2, "\r\n") == 0)
      text.erase(i, 2);
    else
      ++i;
  }
  if (plain::Trim(text).empty()) return;
  list.clear();
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(',', start), text.size());
    const Declaration read = ReadPiece(plain::Trim(text.substr(start, end - start)));
    const bool known = std::any_of(list.begin(), list.end(), [&](const Declaration& other) {
      return plain::Upper(other.name) == plain::Upper(read.name);
    });
    if (!known) list.push_back(read);
    start = end + 1;
  }
}

/// Whether the name comes back from wide text: two bytes that met where a line break was cut out need not.
bool IsWide(const Declaration& item) { return WideToBytes(BytesToWide(item.name)) == item.name; }

}  // namespace

FUZZ_TARGET(Declarations) {
  const std::u16string wide = BytesToWide(input.Rest(2000));
  TQXSqlStoreProc set;
  set.LoadParams(u"@old Int");
  std::vector<Declaration> expected = Of(set);
  std::string expectedError;
  std::string error;
  const bool good =
      fuzz::Completes([&] { Read(WideToBytes(set.ClearNote(wide)), expected); }, &expectedError);
  FUZZ_CHECK(fuzz::Completes([&] { set.LoadParams(wide); }, &error) == good);
  FUZZ_CHECK(error == expectedError && Of(set) == expected);

  // What was saved reads the same, unless cutting made a comment, a line break or a character of its pieces.
  WideString saved;
  set.SaveParams(saved);
  if (saved.find(u"/*") != plain::kNone || saved.find(u"\r\n") != plain::kNone || saved.empty()) return;
  if (!std::ranges::all_of(expected, IsWide)) return;
  TQXSqlStoreProc again;
  again.LoadParams(saved);
  FUZZ_CHECK(Of(again) == expected);
}
