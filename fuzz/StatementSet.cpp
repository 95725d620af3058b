// The stored-procedure set: parameters and macros found, comments out and the call text, against their
// wording.
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
namespace plain = fuzz::plain;

using Names = std::vector<std::string>;

void AddNew(Names& names, const std::string& name) {
  for (const std::string& known : names)
    if (plain::Upper(known) == plain::Upper(name)) return;
  names.push_back(name);
}

Names Parameters(const std::string& text, bool all) {
  Names names;
  std::string token;
  bool outside = true;
  for (const char c : text) {
    if (c == '\'') outside = !outside;
    if (!outside) continue;
    if (c == '@') token = "@";
    if (c == '@' || token.empty()) continue;
    const bool digit = (c >= '0' && c <= '9') || c == '_';
    if (digit || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
      if (!digit || token != "@") token += c;
    } else if (token != "@") {
      if (all || plain::Upper(token.substr(0, token.find('_'))) == "@MM") AddNew(names, token);
      token.clear();
    }
  }
  return names;
}

Names Macros(const std::string& text) {
  Names names;
  for (std::int32_t k = 1; k <= plain::Occurs("[$", text); ++k) {
    const auto open = static_cast<std::size_t>(plain::At("[$", text, k)) - 1;
    const std::size_t close = text.find(']', open);
    if (close != plain::kNone) AddNew(names, text.substr(open, close + 1 - open));
  }
  return names;
}

std::u16string ClearNote(std::u16string text) {
  const auto open = [&] { return text.find(u"/*"); };
  const auto close = [&] { return text.find(u"*/"); };
  if (text.find_first_not_of(u' ') == plain::kNone || open() == plain::kNone || open() >= close() ||
      close() == plain::kNone)
    return text;
  while (open() != plain::kNone && close() != plain::kNone && open() < close())
    text = text.substr(0, open()) + text.substr(close() + 2);
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] >= 33 && text[i] <= 127) return text.substr(i);
  return text;
}

}  // namespace

FUZZ_TARGET(StatementSet) {
  constexpr std::size_t kBudget = std::size_t{1} << 20;
  const bool all = input.Bit();
  std::string values[4];
  for (std::string& value : values) value = input.Text(12);
  const std::u16string wide = BytesToWide(input.Rest(400));

  qxSqlStoreProc::TQXSqlStoreProc set;
  FUZZ_CHECK(set.ClearNote(wide) == ClearNote(wide));
  set.LoadStoreProc(wide);
  set.SetSearchParamType(all ? qxSqlStoreProc::spAll : qxSqlStoreProc::spAuto);  // searches again
  const std::string text = plain::WithCrLf(WideToBytes(ClearNote(wide)));
  FUZZ_CHECK(set.GetStatement().GetText() == text);

  const Names names = Parameters(text, all);
  FUZZ_CHECK(set.GetParamCount() == static_cast<Integer>(names.size()));
  for (Integer i = 0; i < set.GetParamCount(); ++i) {
    FUZZ_CHECK(set.GetItems(i)->GetName() == names[static_cast<std::size_t>(i)]);
    if (i < 2) set.SetValue(set.GetItems(i)->GetName(), values[i]);
  }
  const Names macros = Macros(text);
  FUZZ_CHECK(set.GetFuncCount() == static_cast<Integer>(macros.size()));
  std::optional<std::string> body = text;
  for (Integer i = 0; i < set.GetFuncCount(); ++i) {
    const std::string& name = macros[static_cast<std::size_t>(i)];
    FUZZ_CHECK(set.GetFuncItems(i)->GetName() == name && set.FindFunc(name) == i);
    const std::string value = i < 2 ? values[2 + i] : "";
    set.GetFuncItems(i)->SetValue(value);
    if (body) body = plain::ReplaceAll(*body, name, value, false, kBudget);
  }
  if (body) body = plain::ReplaceAll(*body, "'", "[##]", false, 8 * kBudget);
  if (body) body = plain::ReplaceAll(*body, "[##]", "''", false, 8 * kBudget);
  if (!body) return;

  std::string declarations;
  std::string literals;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool isSet = i < 2;
    const std::string value = isSet ? values[i] : "";
    declarations += (i == 0 ? "" : " , ") + names[i] + (isSet ? " Varchar" : " Unknown");
    if (!value.empty()) declarations += "(" + std::to_string(value.size()) + ")";
    literals += (i == 0 ? "" : " , ") + plain::Quoted(plain::Trim(value));
  }
  std::string call = "sp_executesql N'\r\n" + *body + "'";
  if (!names.empty()) call += ",\r\nN'" + declarations + "', \r\n" + literals;
  FUZZ_CHECK(set.GetStoreProc()->GetText() == call + "\r\n");
}
