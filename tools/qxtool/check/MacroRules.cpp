// SQL3..: macros.
#include <qxTools/base/Ascii.h>

#include "Context.h"

namespace qxtool::check {

namespace {

void OddMacro(const Event& event, Context& context) {
  const bool isCommand = context.route == Route::kCommand;
  if (event.kind == EventKind::kQuoteMark) {
    if (!isCommand) context.Report(event, "[##] becomes two apostrophes");
    return;
  }
  const MacroUse& macro = event.macro;
  if (isCommand) {
    if (macro.plain) context.Report(event, "a command has no macros: this stays as it is");
    return;
  }
  if (!macro.closed) return context.Report(event, "this macro has no ]");
  if (macro.secondByte)
    return context.Report(event, "a bracket of this macro is the second byte of a character");
  if (!macro.plain) context.Report(event, "this is a macro whose name runs up to the next ]");
}

void InLiteral(const Event& event, Context& context) {
  if (event.token.kind == TokenKind::kLiteral)
    context.Report(event, "a macro in a literal: an apostrophe in its text ends that literal");
}

void OtherSpelling(const Event& event, Context& context) {
  if (!event.macro.plain) return;
  const std::string name(event.macro.name);
  const auto [first, isNew] = context.macros.emplace(qxTools::UpperCase(name), name);
  if (!isNew && first->second != name)
    context.Report(event, "only the first spelling, [$" + Shown(first->second) + "], is replaced");
}

constexpr Rule kMacroRules[] = {
    {"SQL301", Level::kWarning, FileKind::kStatement, kEveryRoute, true,
     "a macro that may not be meant as one",
     "A macro is [$ and all up to the next ]: the class of a LIKE pattern becomes one. [##] becomes two "
     "apostrophes. A command replaces no macros at all.",
     "Write LIKE '%$%' or CHARINDEX, and macros with letters, digits and _ only.",
     "select Code from Goods where Price like '[$ ]%'\n", "select Code from Goods where Price like '$%'\n",
     On(EventKind::kMacro, EventKind::kQuoteMark), OddMacro},
    {"SQL302", Level::kWarning, FileKind::kStatement, kCallRoutes, true, "a macro in a literal",
     "A macro is text of the statement. An apostrophe in its value ends the literal, and what follows runs "
     "as code.",
     "Use a parameter.", "select Code from Goods where Name = '[$Name]'\n",
     "select Code from Goods where Name = @MM_Name\n", On(EventKind::kMacro), InLiteral},
    {"SQL303", Level::kError, FileKind::kStatement, kCallRoutes, true, "one macro in two letter cases",
     "They are one macro, which is found in any letter case but replaced only as it is spelled first.",
     "Spell it in one way.", "select * from [$Orders] where exists (select 1 from [$ORDERS])\n",
     "select * from [$Orders] where exists (select 1 from [$Orders])\n", On(EventKind::kMacro),
     OtherSpelling},
};

}  // namespace

std::span<const Rule> MacroRules() { return kMacroRules; }

}  // namespace qxtool::check
