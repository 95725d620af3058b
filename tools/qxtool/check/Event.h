// What the rules are told about while a file is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "SqlLexer.h"
#include "SqlNames.h"

namespace qxTools::qxSqlStoreProc {
class TQXSqlStoreProcItem;
}

namespace qxtool::check {

enum class EventKind : std::uint8_t {
  // A statement's tokens, each with its token.
  kLiteral,
  kQuoted,
  kBlockComment,
  kOddCharacter,
  kUnclosed,
  kVariable,
  // What the library finds in a statement; `token` is where it begins.
  kName,
  kMacro,
  kQuoteMark,    // [##]
  kRemoval,      // a range that is removed as a comment
  kJoined,       // the same, ranges without anything between them taken together
  kFront,        // what a call removes in front of the first ASCII character
  kSlash,        // a slash that a command removes, with the character behind it
  kOpenComment,  // where a command's comment begins that takes the rest of the text
  kBackslash,    // a backslash in front of a line end
  // What the order of a statement's tokens says.
  kDeclared,         // a variable by DECLARE
  kUnsizedVariable,  // the type of a declared variable, without its length
  kUnsizedCast,      // the type of CAST or CONVERT, without its length
  kBareDecimal,      // decimal or numeric without a precision
  kArgument,         // the name in `EXEC p @name = 1`
  kDynamicText,      // EXEC ( .. @x .. ); `joined` with a "+"
  kClientCommand,    // GO, $(name), :setvar
  kStatementEnd,     // all of the statement was read
  // A file as a whole.
  kWholeFile,
  // The filled set of a call: each parameter and macro, and the declaration list that was given for it.
  kItem,
  kDeclarations,
  kCommandValue,  // a parameter of a filled command
};

struct Event {
  EventKind kind;
  std::size_t begin = 0;
  std::size_t end = 0;
  Token token;
  NameUse name;
  MacroUse macro;
  bool joined = false;
};

}  // namespace qxtool::check
