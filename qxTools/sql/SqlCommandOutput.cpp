// The output of a command: comments out, values in.
#include <qxTools/base/CodePage950Bytes.h>
#include <qxTools/sql/CommandNotes.h>
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

std::optional<std::string> FillInOnePass(std::string_view text, const TQXSQLItems& items) {
  SinglePassSubstitution substitution;
  for (Integer i = 0; i < items.GetCount(); ++i)
    substitution.Add(items.GetItems(i)->GetName(), LiteralOf(*items.GetItems(i)));
  return substitution.Apply(text);
}

std::string FillItemByItem(std::string text, const TQXSQLItems& items) {
  for (Integer i = 0; i < items.GetCount(); ++i) {
    const TQXSQLItem& item = *items.GetItems(i);
    text = QXStrTools::ReplaceAllStr(text, item.GetName(), LiteralOf(item), true);
  }
  return text;
}

}  // namespace

WideString TQXSQL::ClearNote(std::u16string_view text) {
  WideString kept(text);
  RemoveNotes(kept);
  return kept;
}

TStrings& TQXSQL::GetOutLines() {
  outLines_.Clear();
  std::string text = inLines_.GetText();
  UseMainCodes(text);
  RemoveNotes(text);
  auto filled = FillInOnePass(text, params_);
  text = filled ? *std::move(filled) : FillItemByItem(std::move(text), params_);
  outLines_.SetText(text);
  return outLines_;
}

}  // namespace qxTools::QXSqlTools
