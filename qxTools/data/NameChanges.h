/// @file
/// Whether lists of records must read the names of their records again. For the folder's own use.
#pragma once

#include <cstdint>

namespace qxTools {

/// Returns how often the name of a record was changed by a caller, in all lists together. Lists on several
/// threads share the count: a change elsewhere costs each one slow look-up.
std::uint64_t NameChanges();

}  // namespace qxTools
