// A value that goes to a driver by itself, beside the statement.
#pragma once

#include <qxTools/runtime/Variant.h>

#include <cstdint>
#include <string>
#include <type_traits>

namespace qxtool::database {

/// ODBC's SQLLEN.
using Length = std::conditional_t<sizeof(void*) == 8, std::intptr_t, long>;

/// A value in the form that SQLBindParameter takes.
struct Parameter {
  std::int16_t source = 0;  // the C type
  std::int16_t type = 0;    // the SQL type
  std::size_t size = 0;     // the type's characters or digits
  std::int16_t scale = 0;
  std::string bytes = {};  // of a text in UTF-8 until it is bound
  bool isNull = false;
  Length length = 0;  // of the bytes, or that it is null; read when the statement runs

  bool IsText() const;
};

/// Texts (code page 950) are bound as WVARCHAR, integers as INTEGER or BIGINT, booleans as BIT, fractions as
/// DOUBLE, amounts of money as DECIMAL(19,4), dates as DATE, null as a WVARCHAR that is null.
/// @throws qxTools::Exception for a text with a byte that is no character, a date with a time of day, and
///   a value of another type.
Parameter ToParameter(const qxTools::Variant& value);

/// Binds a parameter to the `place`-th mark (1-based) of a statement handle; the parameter must stay until
/// the statement's results are read. Texts go as UTF-16, or as UTF-8 to a driver without wide calls.
/// Returns what SQLBindParameter returns.
std::int16_t Bind(Parameter& parameter, void* statement, std::uint16_t place, bool isWide);

}  // namespace qxtool::database
