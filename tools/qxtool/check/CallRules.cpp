// CALL5..: the values of a call.
#include <qxTools/base/Ascii.h>
#include <qxTools/base/CodePage950.h>
#include <qxTools/sql/QXSqlTools.h>
#include <qxTools/sql/qxSqlStoreProc.h>

#include <cmath>
#include <optional>
#include <set>

#include "Characters.h"
#include "Context.h"

namespace qxtool::check {

namespace {

using namespace qxTools;
using namespace qxTools::qxSqlStoreProc;

void ReportItem(Context& context, const std::string& message) {
  context.Report(0, 0, Shown(context.item->GetName()) + ": " + message);
}

bool IsTextType(TStoreProcParamType style) {
  return style == spChar || style == spNChar || style == spVarchar;
}

/// The text of a text parameter's value; nothing for other values and for macros.
std::optional<std::string> TextOf(const Context& context) {
  const Variant& value = context.item->GetValue();
  return !context.itemIsMacro && value.IsString() ? std::optional(value.AsString()) : std::nullopt;
}

void NoType(const Event&, Context& context) {
  if (context.itemIsMacro) return;
  if (context.item->GetValue().IsEmpty())
    ReportItem(context, "an empty variant leaves nothing between two commas");
  else if (context.item->GetStyle() == spUnknown)
    ReportItem(context, "it has no type, so Unknown is declared");
}

void UntypedNull(const Event&, Context& context) {
  if (!context.itemIsMacro && context.item->GetStyle() == spSql_variant && context.item->GetValue().IsNull())
    ReportItem(context, "Null is declared as Sql_variant");
}

void OddLength(const Event&, Context& context) {
  const TQXSqlStoreProcItem& item = *context.item;
  if (context.itemIsMacro || !IsTextType(item.GetStyle())) return;
  const bool wide = item.GetStyle() == spNChar;
  const std::string text = TextOf(context).value_or("");
  const std::size_t needed = wide ? BytesToWide(text).size() : text.size();
  if (item.GetLength() <= 0)
    ReportItem(context, "a text type without a length is one character");
  else if (item.GetLength() > (wide ? 4000 : 8000))
    ReportItem(context, "the server refuses a length of " + std::to_string(item.GetLength()));
  else if (needed > static_cast<std::size_t>(item.GetLength()))
    ReportItem(context, "the value needs " + std::to_string(needed) + ", declared are " +
                            std::to_string(item.GetLength()) + ": the end is cut off");
}

bool HasDecimalComma(const Variant& value) {
  const bool real = value.Type() == varSingle || value.Type() == varDouble || value.Type() == varCurrency;
  return real && value.AsString().find(',') != std::string::npos;
}

void OddNumber(const Event&, Context& context) {
  const Variant& value = context.item->GetValue();
  if (context.itemIsMacro) return;
  const TStoreProcParamType style = context.item->GetStyle();
  const bool number = value.Type() == varSingle || value.Type() == varDouble;
  if (HasDecimalComma(value))
    ReportItem(context, "a decimal comma makes two values of one");
  else if (style == spDecimal && number && value.AsDouble() != std::trunc(value.AsDouble()))
    ReportItem(context, "Decimal has no decimals: the fraction is rounded away");
  else if (style == spTinyint && value.Type() == varShortInt && value.AsInteger() < 0)
    ReportItem(context, "Tinyint holds no negative number");
  else if (style == spInt && value.Type() == varLongWord && value.AsDouble() > 2147483647.0)
    ReportItem(context, "the number is too large for Int");
}

void LocalDate(const Event&, Context& context) {
  const Variant& value = context.item->GetValue();
  if (context.itemIsMacro || value.Type() != varDate) return;
  const double date = value.AsDouble();
  ReportItem(context, date != std::trunc(date) ? "the time of day is not written"
                                               : "the server's language decides which is the month");
}

void BlankText(const Event&, Context& context) {
  const auto text = TextOf(context);
  if (!text) return;
  if (text->find_first_not_of(' ') == std::string::npos)
    ReportItem(context, "an empty text is written as NULL");
  else if (text->starts_with(' ') || text->ends_with(' '))
    ReportItem(context, "blanks at the ends are not written");
}

bool EndsInLeadByte(std::string_view text) {
  std::size_t last = 0;
  for (std::size_t i = 0; i < text.size(); i += CharacterSize(text, i)) last = i;
  return !text.empty() && last + 1 == text.size() && Byte(text[last]) > 0x80 && Byte(text[last]) < 0xFF;
}

bool HasBackslashAtLineEnd(std::string_view text) {
  SecondBytes seconds(text);
  for (std::size_t at = text.find('\\'); at != kNowhere; at = text.find('\\', at + 1))
    if (at + 1 < text.size() && (text[at + 1] == '\r' || text[at + 1] == '\n') && !seconds.IsSecond(at))
      return true;
  return false;
}

/// The first "~" is part of a character, and a later one is a character of its own.
bool IsTornRange(std::string_view text) {
  SecondBytes seconds(text);
  std::size_t at = text.find('~');
  if (at == kNowhere || !seconds.IsSecond(at)) return false;
  while (at != kNowhere && seconds.IsSecond(at)) at = text.find('~', at + 1);
  return at != kNowhere;
}

void BrokenText(const Event&, Context& context) {
  const auto text = TextOf(context);
  if (!text) return;
  if (EndsInLeadByte(*text))
    ReportItem(context, "the last byte is half of a character: it takes the quote along");
  if (HasBackslashAtLineEnd(*text))
    ReportItem(context, "a backslash in front of a line end: the server drops both");
  if (IsTornRange(*text)) ReportItem(context, "the range is cut inside a character");
}

/// Values are put in one after the other: a name in this one is replaced if it is that of a later one.
void LaterName(Context& context) {
  const auto& items = *context.commandItems;
  const auto& item = *items.GetItems(context.commandItem);
  if (item.Text.find('@') == std::string::npos) return;
  const std::string text = UpperCase(item.Text);
  for (Integer i = context.commandItem + 1; i < items.GetCount(); ++i) {
    const std::string& later = items.GetItems(i)->GetName();
    if (text.find(UpperCase(later)) == std::string::npos) continue;
    return context.Report(
        0, 0, Shown(item.GetName()) + ": its value holds " + Shown(later) + ", which is replaced in there");
  }
}

void MacroText(Context& context) {
  const Variant& value = context.item->GetValue();
  if (!context.itemIsMacro || !value.IsString()) return;
  const std::string text = value.AsString();
  for (const std::string_view mark : {"'", "--", "/*", ";", "[$"}) {
    if (text.find(mark) == std::string::npos) continue;
    return ReportItem(context, "its text holds " + std::string(mark) + ", which becomes code");
  }
}

void TextAsCode(const Event& event, Context& context) {
  event.kind == EventKind::kCommandValue ? LaterName(context) : MacroText(context);
}

// --- Declarations ------------------------------------------------------------------------------------

/// Calls `visit` with each piece between commas outside parentheses.
template <class Visit>
void ForEachDeclaration(std::string_view list, Visit visit) {
  int depth = 0;
  std::size_t begin = 0;
  for (std::size_t i = 0; i <= list.size(); ++i) {
    const char c = i < list.size() ? list[i] : ',';
    depth += c == '(' ? 1 : c == ')' ? -1 : 0;
    if (c != ',' || (depth > 0 && i < list.size())) continue;
    visit(begin, list.substr(begin, i - begin));
    begin = i + 1;
  }
}

const char* FaultOf(std::string_view declaration) {
  const std::string upper = UpperCase(declaration);
  const auto has = [&](std::string_view part) { return upper.find(part) != std::string::npos; };
  const std::size_t open = upper.find('(');
  if (open != std::string::npos && upper.find(',', open) != std::string::npos)
    return "a precision with a comma is cut at the comma";
  if (has("(MAX)")) return "(max) is refused";
  if (has(" OUTPUT") || has(" OUT ")) return "OUTPUT is refused";
  if (has(" NVARCHAR")) return "NVarchar is refused";
  return nullptr;
}

void OddDeclaration(const Event&, Context& context) {
  std::set<std::string> names;
  ForEachDeclaration(context.text, [&](std::size_t begin, std::string_view declaration) {
    const std::size_t lead = std::min(declaration.find_first_not_of(" \t\r\n"), declaration.size());
    declaration.remove_prefix(lead);
    begin += lead;
    const std::string name = UpperCase(declaration.substr(0, declaration.find(' ')));
    if (name.empty()) return;
    const char* const fault =
        names.insert(name).second ? FaultOf(declaration) : "a repeated name is passed over";
    if (fault != nullptr) context.Report(begin, begin + declaration.size(), fault);
  });
}

void LengthOfValue(const Event&, Context& context) {
  if (TextOf(context) && context.item->GetAutoStyle() && context.item->GetStyle() == spVarchar)
    ReportItem(context, "its length follows the value: each length is a plan of its own");
}

constexpr Rule kCallRules[] = {
    {"CALL501", Level::kError, FileKind::kCall, 0, true, "a parameter without a type, or an empty variant",
     "Unknown is no type of the server, and an empty variant writes nothing between two commas.",
     "Set every parameter, on purpose to Null too.", "declare @MM_Code Unknown\nset @MM_Code=A1\n",
     "set @MM_Code=A1\n", On(EventKind::kItem), NoType},
    {"CALL502", Level::kWarning, FileKind::kCall, 0, true, "Null as Sql_variant",
     "Sql_variant converts to no other type by itself, and comparing makes the other side one.",
     "Declare the parameter, or use the safe call.", "set @MM_Code:null\n",
     "declare @MM_Code Int\nset @MM_Code:null\n", On(EventKind::kItem), UntypedNull},
    {"CALL503", Level::kError, FileKind::kCall, 0, true, "a length that is missing, too large or too small",
     "Without a length a text is one character; above 8000 (NChar 4000) the call is refused; below the "
     "value's bytes the end is cut off silently.",
     "Declare the length, or use the safe call.", "declare @MM_Code Varchar(3)\nset @MM_Code=A1234\n",
     "declare @MM_Code Varchar(8)\nset @MM_Code=A1234\n", On(EventKind::kItem), OddLength},
    {"CALL504", Level::kError, FileKind::kCall, 0, true, "a number that its type does not hold",
     "Decimal without a precision is (18,0) and rounds; other types overflow; a decimal comma makes two "
     "values.",
     "Use a double, or the safe call.", "declare @MM_Price Decimal\nset @MM_Price:float=12.5\n",
     "declare @MM_Price Float\nset @MM_Price:float=12.5\n", On(EventKind::kItem), OddNumber},
    {"CALL505", Level::kWarning, FileKind::kCall, 0, true, "a date",
     "The time of day is not written, and yyyy/mm/dd is read by DATEFORMAT: under dmy day and month change "
     "places.",
     "Use the safe call, or pass the text 20240102.", "set @MM_Day:date=2024/01/02\n",
     "set @MM_Day=20240102\n", On(EventKind::kItem), LocalDate},
    {"CALL506", Level::kWarning, FileKind::kCall, 0, true, "an empty text, or one with blanks at its ends",
     "An empty or blank text is written as NULL, and blanks at the ends are not written.",
     "Use the safe call, which writes N''.", "set @MM_Code= A1\n", "set @MM_Code=A1\n", On(EventKind::kItem),
     BlankText},
    {"CALL507", Level::kError, FileKind::kCall, 0, true, "a text that is torn on its way",
     "Half a character takes the closing quote along; a backslash in front of a line end is dropped with it; "
     "a range is cut at its first ~, also inside a character.",
     "Pass whole characters; use the safe call.", "set @MM_Code=A\xA4\n", "set @MM_Code=A\xA4\x40\n",  // 一
     On(EventKind::kItem), BrokenText},
    {"CALL508", Level::kError, FileKind::kCall, 0, true, "a value that becomes a part of the statement",
     "A macro's text becomes a part of the statement: what follows an apostrophe, -- or ; runs as code. A "
     "command's values are put in one after the other: the name of a later parameter in a value is replaced "
     "there, and the later value's quotes end its literal.",
     "Use a parameter of a call.", "set $Orders=Orders; drop table Goods\n", "set $Orders=Orders\n",
     On(EventKind::kItem, EventKind::kCommandValue), TextAsCode},
    {"CALL509", Level::kError, FileKind::kCall, 0, true, "a declaration that is refused or passed over",
     "The list is cut at every comma, its types are fifteen, and of equal names the first counts.",
     "Use the safe call's declarations.", "declare @MM_Price Decimal(19,4)\n", "declare @MM_Price Decimal\n",
     On(EventKind::kDeclarations), OddDeclaration},
    {"CALL510", Level::kInformation, FileKind::kCall, 0, false, "a Varchar as long as its value",
     "The server keeps a plan for each length: plans multiply.", "Declare the length, or use the safe call.",
     "set @MM_Code=A1\n", "declare @MM_Code Varchar(40)\nset @MM_Code=A1\n", On(EventKind::kItem),
     LengthOfValue},
};

}  // namespace

std::span<const Rule> CallRules() { return kCallRules; }

}  // namespace qxtool::check
