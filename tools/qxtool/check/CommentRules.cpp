// SQL1..: what becomes of comments, and of what only looks like one.
#include <algorithm>

#include "Characters.h"
#include "Context.h"

namespace qxtool::check {

namespace {

bool IsWordByte(char c) {
  return qxTools::IsNameChar(c) || c == '@' || c == '#' || c == '$' || Byte(c) >= 0x80;
}

void LostSlash(const Event& event, Context& context) {
  const std::string_view lost = context.TextOf(event).substr(1);
  const std::string shown = lost == " " ? "the blank" : "\"" + Shown(lost) + "\"";
  context.Report(event.begin, event.begin + 1,
                 Byte(lost[0]) < ' ' ? "this slash and the line break behind it are removed"
                                     : "this slash and " + shown + " behind it are removed");
}

void LostRest(const Event& event, Context& context) {
  if (event.kind == EventKind::kOpenComment)
    return context.Report(event, "this comment does not end for the command: the rest of the text is lost");
  const Token& token = event.token;
  const bool runsOn = context.route == Route::kCommand && token.kind == TokenKind::kBlockComment &&
                      event.begin == token.begin && event.end > token.end && event.end < context.text.size();
  if (runsOn)
    context.Report(event.begin, event.begin + 2,
                   "the command does not see the end of this comment: it goes on to the next one");
}

/// Removal that begins where the server reads no comment, or ends before the comment does.
void RemovedCode(const Event& event, Context& context) {
  const Token& token = event.token;
  const auto report = [&](const char* where) {
    context.Report(
        event.begin, event.begin + 2,
        std::string("the mark of a comment in ") + where + " takes a part of the statement with it");
  };
  switch (token.kind) {
    case TokenKind::kBlockComment:
      if (event.begin != token.begin || (event.end < token.end && token.nested == 0))
        context.Report(event.begin, event.begin + 2,
                       "the call takes another part for this comment: what is left of it becomes code");
      return;
    case TokenKind::kLineComment:
      if (event.end > token.end) report("a line comment");
      return;
    case TokenKind::kLiteral:
      return report("a literal");
    case TokenKind::kBracket:
    case TokenKind::kQuoted:
      return report("a name");
    default:
      return report("code");
  }
}

void Nested(const Event& event, Context& context) {
  if (event.token.nested == 0 || !event.token.closed) return;
  context.Report(event.token.nested, event.token.nested + 2,
                 "a comment inside a comment: its end ends both, and the tail becomes code");
}

void Joined(const Event& event, Context& context) {
  if (event.kind == EventKind::kFront) {
    const std::string_view front = context.TextOf(event);
    const auto high = std::ranges::find_if(front, [](char c) { return Byte(c) >= 0x80; });
    const std::size_t place = event.begin + static_cast<std::size_t>(high - front.begin());
    if (high != front.end() && context.text.substr(event.begin, 2) != "/*")
      context.Report(place, place + CharacterSize(context.text, place),
                     "what is in front of the first ASCII character is removed with the comments");
    return;
  }
  const bool before = event.begin > 0 && IsWordByte(context.text[event.begin - 1]);
  const bool behind = event.end < context.text.size() && IsWordByte(context.text[event.end]);
  if (before && behind) context.Report(event, "two words become one where this comment is removed");
}

constexpr Rule kCommentRules[] = {
    {"SQL101", Level::kError, FileKind::kStatement, kCommandRoute, true,
     "a slash outside comments, in a command with comments",
     "Once a command holds a comment, every slash outside comments is removed, together with the character "
     "behind it: divisions, dates and paths change.",
     "Use -- comments, or the call.", "/* half */ select Qty/2 from Stock\n",
     "-- half\nselect Qty/2 from Stock\n", On(EventKind::kSlash), LostSlash},
    {"SQL102", Level::kError, FileKind::kStatement, kCommandRoute, true,
     "a comment that the command does not see the end of",
     "Inside a comment every star takes the character behind it along. After an even number of stars the "
     "closing slash is not seen, and all behind is lost.",
     "End comments with one star and a slash.", "/** banner **/\nselect Code from Goods\n",
     "/* banner */\nselect Code from Goods\n", On(EventKind::kOpenComment, EventKind::kRemoval), LostRest},
    {"SQL103", Level::kError, FileKind::kStatement, kEveryRoute, true,
     "the mark of a comment in a literal, a name or a line comment",
     "Comments are removed without a look at literals, names and line comments. What is between such a mark "
     "and the next end of a comment is cut out of the statement.",
     "Pass the text as a value, or write the mark in two parts: '/' + '*'.",
     "select Code from Goods where Path like '/*%' /* all */\n",
     "select Code from Goods where Path like @MM_Path /* all */\n", On(EventKind::kRemoval), RemovedCode},
    {"SQL104", Level::kError, FileKind::kStatement, kEveryRoute, true, "a comment inside a comment",
     "The server nests comments; the removal does not. It ends at the first end of a comment, and the tail "
     "of the outer comment becomes code.",
     "Make one comment of it, or use -- for the inner one.",
     "/* old: /* key */ Code */\nselect Code from Goods\n", "/* old: key, Code */\nselect Code from Goods\n",
     On(EventKind::kBlockComment), Nested},
    {"SQL105", Level::kWarning, FileKind::kStatement, kEveryRoute, true,
     "a comment whose removal joins two words or takes text in front with it",
     "A comment parts two words for the server, but nothing is left in its place. A call that removed a "
     "comment also removes what is in front of the first ASCII character, Chinese too.",
     "Put a blank beside the comment, and begin the statement with its first keyword.",
     "select Code from/* all */Goods\n", "select Code from /* all */ Goods\n",
     On(EventKind::kJoined, EventKind::kFront), Joined},
};

}  // namespace

std::span<const Rule> CommentRules() { return kCommentRules; }

}  // namespace qxtool::check
