// Values and texts as the literals of safe calls.
#pragma once

#include <qxTools/sql/SafeTypes.h>

namespace qxTools::qxSqlSafeCall {

/// Returns whether a backslash is directly before a line end: a literal with one has to be cut after it.
bool HasContinuation(std::string_view text);

/// Appends `N'...'`, or `'...'` if not `national`; with a continuation, several of them joined by `+`.
void AppendTextLiteral(std::string& out, std::string_view text, bool national);

/// The text of a value, as the options want it. @throws Exception for a broken character, and for one that
/// code page 950 lacks.
std::string TextOf(const Variant& value, const TSafeCallOptions& options);

/// Whether texts like this one are written as `N'...'`.
bool IsNational(std::string_view text, const TSafeCallOptions& options);

/// The type that a value decides. @throws Exception for a value without an exact form.
TSafeParam TypeOfValue(const Variant& value, const TSafeCallOptions& options);

/// Gives a declared type without a length or a precision the first one that holds the value.
void CompleteType(TSafeParam& param, const Variant& value, const TSafeCallOptions& options);

/// The literal of a value for a parameter of that type.
/// @throws Exception if the type cannot hold it, and for a value without an exact form.
std::string LiteralFor(const Variant& value, const TSafeParam& param, const TSafeCallOptions& options);

}  // namespace qxTools::qxSqlSafeCall
