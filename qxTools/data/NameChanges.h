/// @file
/// Whether lists of records must read the names of their records again. For the folder's own use.
#pragma once

#include <atomic>
#include <cstdint>

namespace qxTools {

/// What NameChanges returns.
extern std::atomic<std::uint64_t> nameChanges;

/// Returns how often the name of a record was changed by a caller, in all lists together. Lists on several
/// threads share the count: a change elsewhere costs each one slow look-up.
inline std::uint64_t NameChanges() { return nameChanges.load(std::memory_order_relaxed); }

}  // namespace qxTools
