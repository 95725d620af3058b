// The command with "@" parameters: names found, comments out and values in, against their wording.
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/QXSqlTools.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
namespace plain = fuzz::plain;

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

std::vector<std::string> Names(const std::string& text) {
  std::vector<std::string> names;
  std::vector<std::string> known;
  std::string token;
  for (const char c : text) {
    if (c == '@') {
      token = "@";
    } else if (token.empty()) {
      continue;
    } else if (IsLetter(c)) {
      token += c;
    } else if ((c >= '0' && c <= '9') || c == '_') {
      if (token != "@") token += c;
    } else if (token != "@") {
      const std::string upper = plain::Upper(token);
      if (std::find(known.begin(), known.end(), upper) == known.end()) {
        names.push_back(token);
        known.push_back(upper);
      }
      token.clear();
    }
  }
  return names;
}

std::string ClearNote(const std::string& text) {
  if (plain::Trim(text).empty() || text.find("/*") == plain::kNone || text.find("*/") == plain::kNone)
    return text;
  std::string kept;
  bool inComment = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool last = i + 1 == text.size();
    if (!inComment && text[i] == '/' && !last) {
      inComment = text[++i] == '*';
    } else if (inComment && text[i] == '*' && !last) {
      inComment = text[++i] != '/';
    } else if (!inComment) {
      kept += text[i];
    }
  }
  auto lines = plain::Lines(kept);
  while (!lines.empty() && plain::Trim(lines.front()).empty()) lines.erase(lines.begin());
  while (!lines.empty() && plain::Trim(lines.back()).empty()) lines.pop_back();
  return plain::Joined(lines);
}

std::string LiteralOf(const QXSqlTools::TQXSQLItem& item) {
  switch (item.Style) {
    case QXSqlTools::stReal:
    case QXSqlTools::stFunction:
      return item.Text;
    case QXSqlTools::stInteger:
    case QXSqlTools::stBoolean:
      return item.Text.empty() ? "NULL" : item.Text;
    default:
      return plain::Quoted(item.Text);
  }
}

}  // namespace

FUZZ_TARGET(CommandText) {
  constexpr std::size_t kBudget = std::size_t{1} << 20;
  std::string values[3];
  for (std::string& value : values) value = input.Text(12);
  const std::string statement = input.Rest(400);

  QXSqlTools::TQXSQL command;
  command.GetInLines().SetText(statement);
  const std::string text = plain::WithCrLf(statement);
  FUZZ_CHECK(command.GetInLines().GetText() == text);
  const auto names = Names(text);
  auto& params = command.GetParams();
  FUZZ_CHECK(params.GetCount() == static_cast<Integer>(names.size()));
  for (Integer i = 0; i < params.GetCount(); ++i) {
    const std::string& name = names[static_cast<std::size_t>(i)];
    FUZZ_CHECK(params.GetItems(i)->GetName() == name && params.GetItemsIndex(name) == i);
    if (i < 3) params.SetItemsValue(name, values[i]);
  }

  // Wide text of single units: a second byte of a character is no mark here.
  const std::string ascii = [&] {
    std::string copy = text;
    for (char& c : copy) c = static_cast<char>(c & 0x7F);
    return copy;
  }();
  FUZZ_CHECK(WideToBytes(command.ClearNote(BytesToWide(ascii))) == ClearNote(ascii));

  std::optional<std::string> out = WideToBytes(command.ClearNote(BytesToWide(text)));
  for (Integer i = 0; i < params.GetCount() && out; ++i)
    out =
        plain::ReplaceAll(*out, params.GetItems(i)->GetName(), LiteralOf(*params.GetItems(i)), true, kBudget);
  if (out) FUZZ_CHECK(command.GetOutLines().GetText() == plain::WithCrLf(*out));
}
