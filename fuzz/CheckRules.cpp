// The checker: its tokens, its view of comments and names against the library's, and every rule on any text.
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include "Plain.h"
#include "Target.h"
#include "check/CheckFile.h"
#include "check/CommentRemoval.h"
#include "check/SqlLexer.h"

namespace {

using namespace qxTools;
using namespace qxtool::check;
namespace plain = fuzz::plain;

/// The tokens come in order, and only blanks are between them.
void CheckTokens(const std::string& text) {
  SqlLexer lexer(text);
  std::size_t end = 0;
  for (Token token; lexer.Next(token); end = token.end) {
    for (std::size_t i = end; i < token.begin; ++i) FUZZ_CHECK(static_cast<unsigned char>(text[i]) <= ' ');
    FUZZ_CHECK(token.begin >= end && token.end > token.begin && token.end <= text.size());
  }
}

std::vector<std::string> NamesOf(const std::string& text, Route route) {
  const CommentRemoval removal = route == Route::kCommand ? CommentRemoval() : RemovedByCall(text);
  const KeptText kept(text, removal);
  SqlNames scanner(kept, route);
  std::vector<std::string> names;
  for (NameUse use; scanner.Next(use);) {
    FUZZ_CHECK(text[use.at] == '@' && text[use.begin] == use.name.front() &&
               text[use.end - 1] == use.name.back());
    if (!IsParameter(use.name, route)) continue;
    const std::string upper = "@" + plain::Upper(std::string(use.name));
    if (std::find(names.begin(), names.end(), upper) == names.end()) names.push_back(upper);
  }
  return names;
}

std::vector<std::string> NamesOfSet(const std::string& text, qxSqlStoreProc::TSearchParamType mode) {
  qxSqlStoreProc::TQXSqlStoreProc set;
  set.SetSearchParamType(mode);
  set.LoadStoreProc(BytesToWide(text));
  std::vector<std::string> names;
  for (Integer i = 0; i < set.GetParamCount(); ++i) names.push_back(set.GetItems(i)->GetUpperName());
  return names;
}

std::vector<std::string> NamesOfCommand(const std::string& text) {
  QXSqlTools::TQXSQL command;
  command.GetInLines().SetText(text);
  std::vector<std::string> names;
  for (Integer i = 0; i < command.GetParams().GetCount(); ++i)
    names.push_back(plain::Upper(command.GetParams().GetItems(i)->GetName()));
  return names;
}

std::string Joined(const std::string& text, const CommentRemoval& removal) {
  return std::string(KeptText(text, removal).Text());
}

std::string WithoutBlanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\r' || c == '\n'; });
  return text;
}

void AskEveryRule(const std::string& text, const char* name, bool utf8) {
  FileOptions options;
  options.pedantic = true;
  options.utf8 = utf8;
  for (const Route route : {Route::kCommand, Route::kCall, Route::kCallAll}) {
    options.route = route;
    for (const ShownFinding& finding : CheckBytes(name, text, options, {}).findings)
      FUZZ_CHECK(finding.line > 0 && finding.column > 0 && finding.byteOffset <= text.size() &&
                 finding.byteOffset + finding.byteLength <= text.size() + 1 && finding.excerpt.size() < 1000);
  }
}

}  // namespace

FUZZ_TARGET(CheckRules) {
  const bool utf8 = input.Bit();
  const std::string bytes = input.Rest(600);
  for (const char* name : {"a.sql", "a.ini", "a.tbl", "a.txt"}) AskEveryRule(bytes, name, utf8);

  // As the library has a text: lines that end in CR LF, and each character by its main code.
  const std::string text = WideToBytes(BytesToWide(plain::WithCrLf(bytes)));
  CheckTokens(text);
  const std::u16string wide = BytesToWide(text);
  FUZZ_CHECK(Joined(text, RemovedByCall(text)) ==
             WideToBytes(qxSqlStoreProc::TQXSqlStoreProc::ClearNote(wide)));
  FUZZ_CHECK(WithoutBlanks(Joined(text, RemovedByCommand(text))) ==
             WithoutBlanks(WideToBytes(QXSqlTools::TQXSQL::ClearNote(wide))));
  FUZZ_CHECK(NamesOf(text, Route::kCommand) == NamesOfCommand(text));
  FUZZ_CHECK(NamesOf(text, Route::kCall) == NamesOfSet(text, qxSqlStoreProc::spAuto));
  FUZZ_CHECK(NamesOf(text, Route::kCallAll) == NamesOfSet(text, qxSqlStoreProc::spAll));
}
