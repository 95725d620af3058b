// The names and macros that the library finds in a statement, with their places in the whole text.
#pragma once

#include <qxTools/sql/NameScanner.h>

#include <string_view>

#include "Characters.h"
#include "CommentRemoval.h"

namespace qxtool::check {

/// How a statement is used. kCommand: values are written into the text. kCall: sp_executesql with the names
/// @MM and @MM_...; kCallAll: with every name.
enum class Route { kCommand, kCall, kCallAll };

/// A name as the library reads it.
struct NameUse {
  std::string_view name;    // without "@"
  std::size_t at = 0;       // the place of its "@"
  std::size_t begin = 0;    // the place of the name
  std::size_t end = 0;      // behind it; a removed comment inside the name counts
  bool secondByte = false;  // the "@" is the second byte of a character
  bool IsDirect() const { return begin == at + 1; }
};

/// True if this route makes a parameter of the name (without "@").
bool IsParameter(std::string_view name, Route route);

/// Reads the names front to back.
class SqlNames {
 public:
  SqlNames(const KeptText& kept, Route route);

  /// The next name. Returns false if there is none left.
  bool Next(NameUse& use);

 private:
  std::string_view text_;
  qxTools::NameScanner scanner_;
  SecondBytes seconds_;
  KeptText::Places places_;
};

/// A macro as a call reads it: "[$" and all up to the next "]".
struct MacroUse {
  std::size_t begin = 0;
  std::size_t end = 0;      // behind "]", or behind the name if there is no "]"
  std::string_view name;    // between the marks
  bool closed = false;      // there is a "]"
  bool plain = false;       // letters, digits and "_" only
  bool secondByte = false;  // one of its brackets is the second byte of a character
};

/// Reads the macros front to back. A name that is not plain ends at its first odd character.
class SqlMacros {
 public:
  explicit SqlMacros(const KeptText& kept);

  bool Next(MacroUse& use);

 private:
  std::string_view text_;
  SecondBytes seconds_;
  KeptText::Places places_;
  std::size_t place_ = 0;
  std::size_t lastClose_;
};

}  // namespace qxtool::check
