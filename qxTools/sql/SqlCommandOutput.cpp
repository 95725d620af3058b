// The output of a command: comments out, values in.
#include <qxTools/base/CodePage950Bytes.h>
#include <qxTools/base/Lines.h>
#include <qxTools/sql/CommandNotes.h>
#include <qxTools/sql/LinePieces.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/SinglePassSubstitution.h>
#include <qxTools/strings/QXStrTools.h>

namespace qxTools::QXSqlTools {

namespace {

std::string LiteralOf(const TQXSQLItem& item) {
  switch (item.Style) {
    case stString:
    case stDate:
    case stTime:
      return ToSQLStr(item.Text);
    case stInteger:
    case stBoolean:
      return ToSQLint(item.Text);
    default:
      return item.Text;
  }
}

/// The lines that are filled, and whether they are in main codes already.
struct Source {
  const TStrings& lines;
  bool hasMainCodes;

  void UseMainCodes(std::string& text) const {
    if (!hasMainCodes) qxTools::UseMainCodes(text);
  }
};

/// Returns false, and has added something, where one pass is not exact.
bool FillInOnePass(const Source& source, const TQXSQLItems& items, TStrings& filled) {
  SinglePassSubstitution substitution(static_cast<std::size_t>(items.GetCount()));
  for (Integer i = 0; i < items.GetCount(); ++i)
    substitution.Add(items.GetItems(i)->GetName(), LiteralOf(*items.GetItems(i)));
  std::string out;
  return substitution.CanBeExact() && ForEachPiece(source.lines, [&](std::string& piece) {
           source.UseMainCodes(piece);
           out.clear();
           if (!substitution.Append(out, piece)) return false;
           ForEachLine<char>(out, [&](std::string_view line) { filled.Add(line); });
           return true;
         });
}

void FillItemByItem(const Source& source, const TQXSQLItems& items, TStrings& filled) {
  std::string text = source.lines.GetText();
  source.UseMainCodes(text);
  for (Integer i = 0; i < items.GetCount(); ++i) {
    const TQXSQLItem& item = *items.GetItems(i);
    text = QXStrTools::ReplaceAllStr(text, item.GetName(), LiteralOf(item), true);
  }
  filled.SetText(text);
}

void Fill(const Source& source, const TQXSQLItems& items, TStrings& filled) {
  if (!FillInOnePass(source, items, filled)) FillItemByItem(source, items, filled);
}

/// Removing comments can join two bytes to a character of a second code, which stays.
TStrings WithoutNotes(const TStrings& lines) {
  std::string text = lines.GetText();
  UseMainCodes(text);
  RemoveNotes(text);
  TStrings kept;
  kept.SetText(text);
  return kept;
}

}  // namespace

WideString TQXSQL::ClearNote(std::u16string_view text) {
  WideString kept(text);
  RemoveNotes(kept);
  return kept;
}

TStrings& TQXSQL::GetOutLines() {
  outLines_.Clear();
  TStrings filled;
  if (HasNotes(inLines_))
    Fill({WithoutNotes(inLines_), true}, params_, filled);
  else
    Fill({inLines_, false}, params_, filled);
  outLines_.Assign(filled);
  return outLines_;
}

}  // namespace qxTools::QXSqlTools
