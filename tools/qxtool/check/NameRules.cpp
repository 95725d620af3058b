// SQL2..: names behind "@".
#include <algorithm>

#include "Context.h"

namespace qxtool::check {

namespace {

using NameEntry = Names::value_type;

bool IsText(TokenKind kind) { return kind == TokenKind::kLiteral; }
bool IsQuotedName(TokenKind kind) { return kind == TokenKind::kBracket || kind == TokenKind::kQuoted; }

bool IsPlainName(std::string_view name) {
  return !name.empty() && qxTools::IsNameStart(name[0]) && std::ranges::all_of(name, qxTools::IsNameChar);
}

/// The names that the library finds, in order of their letters.
std::vector<const NameEntry*> FoundInOrder(const Names& names) {
  std::vector<const NameEntry*> found;
  for (const NameEntry& entry : names)
    if (entry.second.order != kNowhere) found.push_back(&entry);
  std::ranges::sort(found, {}, [](const NameEntry* entry) { return std::string_view(entry->first); });
  return found;
}

/// Reports in the order of the places.
class InOrder {
 public:
  explicit InOrder(Context& context) : context_(context) {}
  InOrder(const InOrder&) = delete;
  InOrder& operator=(const InOrder&) = delete;
  ~InOrder() = default;

  void Add(std::size_t begin, std::size_t end, std::string message) {
    found_.push_back({begin, end, std::move(message)});
  }
  void Report() {
    std::ranges::sort(found_, {}, &Found::begin);
    for (Found& found : found_) context_.Report(found.begin, found.end, std::move(found.message));
  }

 private:
  struct Found {
    std::size_t begin;
    std::size_t end;
    std::string message;
  };
  Context& context_;
  std::vector<Found> found_;
};

/// In order of letters the names that begin one are a chain in front of it; the one that comes first in the
/// text is the one that tears it.
void Torn(const Event&, Context& context) {
  InOrder report(context);
  std::vector<std::pair<const NameEntry*, const NameEntry*>>
      chain;  // a name, and the first of it and those above
  for (const NameEntry* const entry : FoundInOrder(context.names)) {
    while (!chain.empty() && !entry->first.starts_with(chain.back().first->first)) chain.pop_back();
    const NameEntry* first = chain.empty() ? entry : chain.back().second;
    if (first->second.order < entry->second.order)
      report.Add(entry->second.foundBegin, entry->second.foundEnd,
                 "@" + Shown(first->first) + " comes first and replaces the beginning of this name");
    else
      first = entry;
    chain.emplace_back(entry, first);
  }
  report.Report();
}

void InText(const Event& event, Context& context) {
  const bool text = context.route == Route::kCommand && IsText(event.token.kind);
  if (event.name.secondByte || (!text && !IsQuotedName(event.token.kind))) return;
  const std::string where = text ? "a literal" : "a quoted name";
  if (event.name.IsDirect())
    return context.Report(event, "@" + Shown(event.name.name) + " in " + where + " is replaced by its value");
  context.Report(event.begin, event.begin + 1, Level::kInformation,
                 "this @ in " + where + " makes a parameter of the later word " + Shown(event.name.name));
}

void InComment(const Event& event, Context& context) {
  const bool block = event.token.kind == TokenKind::kBlockComment;
  if ((event.token.kind != TokenKind::kLineComment && !(block && context.pedantic)) || event.name.secondByte)
    return;
  context.Report(event.begin, event.end, block ? Level::kInformation : Level::kWarning,
                 "@" + Shown(event.name.name) + " in a comment is a parameter that nobody sets");
}

void Global(const Event& event, Context& context) {
  if (event.token.kind != TokenKind::kGlobal || !event.name.IsDirect()) return;
  context.Report(event.token.begin, event.token.end, "this becomes the parameter @" + Shown(event.name.name));
}

void OtherName(const Event& event, Context& context) {
  if (event.kind == EventKind::kName) {
    if (event.name.secondByte && event.token.kind != TokenKind::kBlockComment)
      context.Report(event.begin - 1, event.begin + 1,
                     "the second byte of this character is taken for @: it makes the parameter @" +
                         Shown(event.name.name));
    return;
  }
  const std::string_view name = context.TextOf(event).substr(1);
  if (!name.empty() && !IsPlainName(name))
    context.Report(event, "another name than this one is found: only ASCII letters, digits and _ count");
}

void FlippedQuotes(const Event&, Context& context) {
  std::map<std::size_t, std::pair<const NameEntry*, bool>> byPlace;
  for (const NameEntry& entry : context.names) {
    const NameFacts& facts = entry.second;
    if (facts.flippedBy == kNowhere || !IsPlainName(entry.first)) continue;
    const bool missed = facts.usedBegin != kNowhere && facts.order == kNowhere;
    const bool taken = facts.usedBegin == kNowhere && facts.order != kNowhere && !facts.foundInCode;
    if (missed || taken) byPlace.emplace(facts.flippedBy, std::pair(&entry, missed));
  }
  for (const auto& [place, found] : byPlace)
    context.Report(place, found.first->second.flippedEnd,
                   "the apostrophe in here hides where literals begin: @" + Shown(found.first->first) +
                       (found.second ? " behind it is not found" : " in a literal becomes a parameter"));
}

void Declared(const Event&, Context& context) {
  const NameEntry* first = nullptr;
  for (const NameEntry& entry : context.names) {
    const NameFacts& facts = entry.second;
    if (!facts.declaredByText || facts.order == kNowhere) continue;
    if (first == nullptr || facts.declaredBegin < first->second.declaredBegin) first = &entry;
  }
  if (first == nullptr) return;
  const std::size_t begin = first->second.declaredBegin;
  context.Report(begin, begin + first->first.size() + 1,
                 "the statement declares @" + Shown(first->first) + ", and it is a parameter too");
}

void Undeclared(const Event&, Context& context) {
  InOrder report(context);
  for (const auto& [name, facts] : context.names)
    if (facts.usedBegin != kNowhere && !facts.declared && !name.empty() && !IsParameter(name, context.route))
      report.Add(
          facts.usedBegin, facts.usedEnd,
          "@" + Shown(name) + " is declared nowhere: the call makes parameters of @MM and @MM_... only");
  report.Report();
}

void Argument(const Event& event, Context& context) {
  context.Report(event, "the name of this argument is taken for a parameter");
}

constexpr Rule kNameRules[] = {
    {"SQL201", Level::kError, FileKind::kStatement, kCommandRoute, true,
     "a name that begins a longer one found later",
     "A command replaces name after name in the order in which they are found, by plain text. The shorter "
     "name also replaces the beginning of the longer one.",
     "Rename one of them so that no name begins another, or use the call.",
     "select Name from Goods where Code = @Code and CodeEx = @CodeEx\n",
     "select Name from Goods where Code = @Code and CodeEx = @ExCode\n", On(EventKind::kStatementEnd), Torn},
    {"SQL202", Level::kError, FileKind::kStatement, kCommandRoute | kCallAllRoute, true,
     "a name in a literal or in a quoted name",
     "A command looks for names everywhere. A value with its own quotes ends the literal that it is put "
     "into, and a mail address changes. A call that takes every name finds those in quoted names.",
     "Join the parts: '%' + @x + '%'.", "select Name from Goods where Name like '%@Part%'\n",
     "select Name from Goods where Name like '%' + @Part + '%'\n", On(EventKind::kName), InText},
    {"SQL203", Level::kWarning, FileKind::kStatement, kCommandRoute | kCallAllRoute, true,
     "a name in a line comment",
     "It is a parameter like the others, and nobody sets it: a call declares it as Unknown. In a command a "
     "value with a line break ends the comment. In block comments, which a command removes after it found "
     "the "
     "names, this is a note, with --pedantic.",
     "Write the name without its @.", "select Code -- as in @Code\n  from Goods\n",
     "select Code -- as in Code\n  from Goods\n", On(EventKind::kName), InComment},
    {"SQL204", Level::kError, FileKind::kStatement, kCommandRoute | kCallAllRoute, true, "a name with two @",
     "The second @ begins a name like any other: @@ROWCOUNT becomes the parameter @ROWCOUNT and is replaced.",
     "Use the call without --all, which takes @MM names only.",
     "delete from Goods where Code = @Code\nselect @@ROWCOUNT\n",
     "delete from Goods where Code = @Code\nselect ROWCOUNT_BIG()\n", On(EventKind::kName), Global},
    {"SQL205", Level::kError, FileKind::kStatement, kCommandRoute | kCallAllRoute, true,
     "a name that is read as another one",
     "A name is @, an ASCII letter, and ASCII letters, digits and _. One with other characters is found in "
     "part or not at all, and a Chinese character whose second byte is 40 is taken for @.",
     "Use ASCII names, and pass such a text as a value.", "select Name from Goods where Code = @_Code\n",
     "select Name from Goods where Code = @Code\n", On(EventKind::kName, EventKind::kVariable), OtherName},
    {"SQL206", Level::kError, FileKind::kStatement, kCallRoutes, true,
     "an odd apostrophe in a comment or a name that hides a parameter",
     "The call tells literals from code by counting apostrophes, also in line comments and quoted names. "
     "Behind an odd one literals count as code and code as literals.",
     "Write \"do not\", or double the apostrophe.",
     "select Code -- don't change\n  from Goods where Code = @MM_Code\n",
     "select Code -- do not change\n  from Goods where Code = @MM_Code\n", On(EventKind::kStatementEnd),
     FlippedQuotes},
    {"SQL207", Level::kError, FileKind::kStatement, kCommandRoute | kCallAllRoute, true,
     "a parameter that the statement declares itself",
     "The command writes its value into the DECLARE (DECLARE NULL int), and the call declares it twice.",
     "Name parameters @MM_... and use the call without --all.",
     "declare @Total int\nselect @Total = count(*) from Goods\n",
     "select count(*) from Goods where Kind = @Kind\n", On(EventKind::kStatementEnd), Declared},
    {"SQL208", Level::kWarning, FileKind::kStatement, kCallRoute, true, "a variable that nothing declares",
     "The call makes parameters of @MM and @MM_... only. The server refuses every other variable that is not "
     "declared in the text (error 137).",
     "Name it @MM_..., or use --all.", "select Name from Goods where Code = @Code\n",
     "select Name from Goods where Code = @MM_Code\n", On(EventKind::kStatementEnd), Undeclared},
    {"SQL209", Level::kError, FileKind::kStatement, kCommandRoute | kCallAllRoute, true,
     "an argument passed by its name",
     "The name of the argument is taken for a parameter: a command writes the value in its place.",
     "Pass arguments by their order, or use the call without --all.", "exec AddGoods @Code = 'A1'\n",
     "exec AddGoods 'A1'\n", On(EventKind::kArgument), Argument},
};

}  // namespace

std::span<const Rule> NameRules() { return kNameRules; }

}  // namespace qxtool::check
