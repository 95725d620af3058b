// Writing the values of all parameters into a text in one pass.
#pragma once

#include <qxTools/sql/ParameterNames.h>

#include <string>
#include <string_view>
#include <vector>

namespace qxTools::QXSqlTools {

/// Replaces the names of parameters with their literals, in any letter case.
///
/// This equals replacing parameter after parameter in the whole text as long as no replacement can make or
/// lengthen a token ("@" and the name characters after it): only tokens can match, each is matched by the
/// first parameter of the list alone, and what is left of it holds no "@" any more. Where that is not certain
/// the pass gives up.
class SinglePassSubstitution {
 public:
  /// For a list of `count` parameters.
  explicit SinglePassSubstitution(std::size_t count);

  /// Adds the next parameter of the list. An empty name replaces nothing. The name must outlive this object.
  void Add(std::string_view name, std::string literal);

  /// Returns whether one pass may be exact, as far as names and literals tell.
  bool CanBeExact() const;

  /// Appends the text with the literals in place. Returns false, and has appended a part of it, if one pass
  /// would not be exact.
  bool Append(std::string& out, std::string_view text) const;

 private:
  bool CannotMatch(std::string_view literal) const;

  ParameterNames names_;
  std::vector<std::string> literals_;
  bool hasOtherNames_ = false;  // that are no tokens
};

}  // namespace qxTools::QXSqlTools
