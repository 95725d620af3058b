// SQL4..: what a server reads otherwise than it was meant.
#include <qxTools/base/Ascii.h>

#include <optional>

#include "Characters.h"
#include "Context.h"
#include "SqlStructure.h"

namespace qxtool::check {

namespace {

/// The text of a literal that is closed, between its apostrophes.
std::string_view Inner(const Event& event, const Context& context) {
  const std::string_view text = context.TextOf(event).substr(event.token.national ? 2 : 1);
  return event.token.closed ? text.substr(0, text.size() - 1) : text;
}

// --- Dates -------------------------------------------------------------------------------------------

/// Reads texts such as 2024/1/2 from front to back.
class DateReader {
 public:
  explicit DateReader(std::string_view text) : rest_(text) {}

  /// The number of digits, which are skipped.
  std::size_t Digits() {
    std::size_t count = 0;
    while (count < rest_.size() && qxTools::IsDigit(rest_[count])) ++count;
    rest_.remove_prefix(count);
    return count;
  }
  /// The next character, which is skipped; NUL at the end.
  char Next() {
    const char c = rest_.empty() ? '\0' : rest_[0];
    rest_.remove_prefix(rest_.empty() ? 0 : 1);
    return c;
  }
  /// True at the end, and in front of a blank and a time.
  bool AtEnd() const {
    return rest_.empty() || (rest_.size() > 3 && rest_[0] == ' ' && qxTools::IsDigit(rest_[1]) &&
                             rest_.find(':') < rest_.size());
  }

 private:
  std::string_view rest_;
};

struct DateShape {
  std::size_t digits[3];
  char separator;
};

std::optional<DateShape> ReadDate(std::string_view text) {
  if (text.size() < 6 || text.size() > 40) return std::nullopt;
  DateReader reader(text);
  DateShape shape{};
  shape.digits[0] = reader.Digits();
  shape.separator = reader.Next();
  shape.digits[1] = reader.Digits();
  const bool same = reader.Next() == shape.separator;
  shape.digits[2] = reader.Digits();
  const bool known = shape.separator == '/' || shape.separator == '.' || shape.separator == '-';
  return known && same && reader.AtEnd() ? std::optional(shape) : std::nullopt;
}

bool IsShort(std::size_t digits) { return digits == 1 || digits == 2; }

bool IsYearFirst(const DateShape& shape) {
  return shape.digits[0] == 4 && IsShort(shape.digits[1]) && IsShort(shape.digits[2]);
}

void AmbiguousDate(const Event& event, Context& context) {
  const auto shape = ReadDate(Inner(event, context));
  if (!shape) return;
  const bool yearLast = IsShort(shape->digits[0]) && IsShort(shape->digits[1]) &&
                        (shape->digits[2] == 2 || shape->digits[2] == 4);
  if (yearLast || (IsYearFirst(*shape) && shape->separator != '-'))
    context.Report(event, "the server's language decides which is the day and which the month");
}

void DashedDate(const Event& event, Context& context) {
  const auto shape = ReadDate(Inner(event, context));
  if (shape && IsYearFirst(*shape) && shape->separator == '-')
    context.Report(event, "as datetime this is read by the server's language");
}

// --- Literals and characters -------------------------------------------------------------------------

void ClientCommand(const Event& event, Context& context) {
  if (event.kind == EventKind::kClientCommand)
    return context.Report(event, "a command of query tools, which the server does not know");
  const std::size_t at = FindClientVariable(context.TextOf(event));
  if (at != kNowhere)
    context.Report(event.begin + at, event.begin + at + 2, "query tools replace this; a server does not");
}

void Backslash(const Event& event, Context& context) {
  const auto report = [&](std::size_t place) {
    context.Report(place, place + 1,
                   "the server drops this backslash together with the line break behind it");
  };
  if (context.route != Route::kCommand) {
    if (event.kind == EventKind::kBackslash) report(event.begin);
    return;
  }
  if (event.kind != EventKind::kLiteral) return;
  const std::string_view text = context.TextOf(event);
  SecondBytes seconds(text);
  for (std::size_t at = text.find('\\'); at != kNowhere; at = text.find('\\', at + 1))
    if (at + 1 < text.size() && (text[at + 1] == '\r' || text[at + 1] == '\n') && !seconds.IsSecond(at))
      report(event.begin + at);
}

void NarrowLiteral(const Event& event, Context& context) {
  if (event.token.beyondAscii && !event.token.national)
    context.Report(event, "without N this text goes through the database's code page");
}

void OddCharacter(const Event& event, Context& context) {
  context.Report(event, "\"" + std::string(context.TextOf(event)) + "\" is no character of the language");
}

void QuotedName(const Event& event, Context& context) {
  context.Report(event, "a setting of the connection decides whether this is a name or a text");
}

void Unclosed(const Event& event, Context& context) {
  const TokenKind kind = event.token.kind;
  const char* const what = kind == TokenKind::kLiteral        ? "this literal"
                           : kind == TokenKind::kBlockComment ? "this comment"
                                                              : "this name";
  context.Report(event.begin, event.begin + 1, std::string(what) + " never ends");
}

// --- Types -------------------------------------------------------------------------------------------

void UnsizedVariable(const Event& event, Context& context) {
  context.Report(event, "a variable of this type without a length holds one character or byte");
}

void UnsizedCast(const Event& event, Context& context) {
  context.Report(event, event.kind == EventKind::kBareDecimal
                            ? "without a precision this is (18,0): digits behind the point are rounded away"
                            : "without a length this is 30 characters or bytes");
}

void DynamicText(const Event& event, Context& context) {
  if (event.joined) return context.Report(event, "a text joined from variables is executed");
  if (context.pedantic)
    context.Report(event.begin, event.end, Level::kInformation, "the text of a variable is executed");
}

constexpr Rule kServerRules[] = {
    {"SQL401", Level::kError, FileKind::kStatement, kEveryRoute, true, "a command of query tools",
     "GO, $(name), :r and :setvar are read by the clients that run scripts. For a server they are syntax "
     "errors.",
     "Split the file at GO, and write [$name] for a macro.",
     "select Code from Goods\nGO\nselect Code from Stock\n",
     "select Code from Goods\nselect Code from Stock\n", On(EventKind::kClientCommand, EventKind::kLiteral),
     ClientCommand},
    {"SQL402", Level::kError, FileKind::kStatement, kEveryRoute, true,
     "a backslash right in front of a line end, in a literal",
     "The server drops both. A call puts the whole statement into a literal, so that a -- comment that ends "
     "in a backslash swallows the next line.",
     "Put a dot or another character behind the backslash.",
     "select Path from Files where Path = 'C:\\\nNew' -- C:\\\n",
     "select Path from Files where Path = 'C:\\New' -- C:\\.\n",
     On(EventKind::kBackslash, EventKind::kLiteral), Backslash},
    {"SQL403", Level::kWarning, FileKind::kStatement, kEveryRoute, true,
     "Chinese text in a literal without N",
     "Such a literal goes through the code page of the database. What that lacks is lost, and nothing says "
     "so.",
     "Write N'..'. Switch the rule off where all databases have code page 950.",
     "select Code from Goods where Kind = '\xA4\xAD\xAA\xF7'\n",   // 五金
     "select Code from Goods where Kind = N'\xA4\xAD\xAA\xF7'\n",  // 五金
     On(EventKind::kLiteral), NarrowLiteral},
    {"SQL404", Level::kWarning, FileKind::kStatement, kEveryRoute, true,
     "a date that depends on the server's language",
     "DATEFORMAT and the language of the login decide which number is the month.", "Write '20240102'.",
     "select Code from Orders where Day = '1/2/2024'\n", "select Code from Orders where Day = '20240102'\n",
     On(EventKind::kLiteral), AmbiguousDate},
    {"SQL405", Level::kInformation, FileKind::kStatement, kEveryRoute, false,
     "a date with dashes, which datetime reads by the server's language",
     "As datetime '2024-01-02' is read by DATEFORMAT; as date and datetime2 it is not.",
     "Write '20240102' or '2024-01-02T03:04:05'.", "select Code from Orders where Day = '2024-01-02'\n",
     "select Code from Orders where Day = '2024-01-02T00:00:00'\n", On(EventKind::kLiteral), DashedDate},
    {"SQL406", Level::kWarning, FileKind::kStatement, kEveryRoute, true,
     "a variable of a text or binary type without a length",
     "Without a length it holds one character or byte.", "Write the length.", "declare @Name varchar\n",
     "declare @Name varchar(40)\n", On(EventKind::kUnsizedVariable), UnsizedVariable},
    {"SQL407", Level::kInformation, FileKind::kStatement, kEveryRoute, false,
     "a conversion without a length, or a decimal without a precision",
     "In CAST and CONVERT the length is 30 then; decimal is (18,0) and rounds.", "Write the numbers.",
     "select cast(Price as varchar) from Goods\n", "select cast(Price as varchar(20)) from Goods\n",
     On(EventKind::kUnsizedCast, EventKind::kBareDecimal), UnsizedCast},
    {"SQL408", Level::kError, FileKind::kStatement, kEveryRoute, true,
     "full-width punctuation or a curly quote in code", "It is no mark of the language: a syntax error.",
     "Write the ASCII character.", "select Code\xA1\x41 Name from Goods\n",  // ，
     "select Code, Name from Goods\n", On(EventKind::kOddCharacter), OddCharacter},
    {"SQL409", Level::kWarning, FileKind::kStatement, kEveryRoute, true,
     "EXEC of a text that is joined from variables",
     "What a variable holds runs as code, and each text is a plan of its own.",
     "Use sp_executesql with parameters. Names may go through QUOTENAME.",
     "declare @MM_Sql varchar(99)\nexec('delete from ' + @MM_Sql)\n",
     "exec sp_executesql N'delete from Goods where Code = @p', N'@p int', @MM_Code\n",
     On(EventKind::kDynamicText), DynamicText},
    {"SQL410", Level::kInformation, FileKind::kStatement, kEveryRoute, false, "text in double quotes",
     "QUOTED_IDENTIFIER decides whether it is a name or a text.", "Write '..' or [..].",
     "select \"Code\" from Goods\n", "select [Code] from Goods\n", On(EventKind::kQuoted), QuotedName},
    {"SQL411", Level::kError, FileKind::kStatement, kEveryRoute, true,
     "a literal, name or comment without an end", "The server refuses the statement.", "Close it.",
     "select Code from Goods where Name = 'Lee\n", "select Code from Goods where Name = 'Lee'\n",
     On(EventKind::kUnclosed), Unclosed},
};

}  // namespace

std::span<const Rule> ServerRules() { return kServerRules; }

}  // namespace qxtool::check
