// The types that safe calls declare, and what each can hold.
#pragma once

#include <qxTools/sql/qxSqlSafeCall.h>

#include <string>
#include <string_view>

namespace qxTools::qxSqlSafeCall {

/// What decides whether a value fits a type.
enum class TypeKind { kBytes, kUnits, kBinary, kDecimal, kInteger, kFraction, kOther };

struct SafeType {
  std::string_view name;
  TypeKind kind;
  Integer most = 0;      // the greatest length or precision; 0: the type takes none
  bool hasMax = false;   // whether `(max)` can be its length
  std::int64_t low = 0;  // of an integer type
  std::int64_t high = 0;
};

/// Looks a type up by its name in any case. @throws Exception if it is unknown.
const SafeType& FindSafeType(std::string_view name);

/// The declared type as text, as in "Decimal(10,2)". @throws Exception if the type cannot have its length.
std::string TypeText(const TSafeParam& param);

/// A parameter of that type with the first of the lengths to choose from that holds `size`, or `(max)`.
/// @throws Exception if no length holds it.
TSafeParam Sized(const SafeType& type, std::size_t size, const std::vector<Integer>& lengths);

/// A Decimal with the first of the common precisions that holds the digits of `number`.
/// @return false if none does; `param` is unchanged then.
bool FindPrecision(TSafeParam& param, std::string_view number);

/// The last of those precisions.
void SetWidestPrecision(TSafeParam& param);

/// Whether a Decimal of that precision and scale holds the digits of `number`.
bool HoldsDigits(std::string_view number, Integer precision, Integer scale);

/// @throws Exception if `name` is not "@" and then letters, digits, "_", "#", "$", "@" or bytes beyond ASCII.
void CheckName(std::string_view name);

}  // namespace qxTools::qxSqlSafeCall
