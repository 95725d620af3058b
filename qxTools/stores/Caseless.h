/// @file
/// A hash for names that ignore letter case. For the stores' own use.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace qxTools::stores {

/// Equal for names that are SameText: what tells capitals from small letters is the bit 0x20.
inline std::size_t CaselessHash(std::string_view name) {
  std::uint64_t hash = name.size();
  while (!name.empty()) {
    std::uint64_t word = 0;
    const std::size_t read = name.copy(reinterpret_cast<char*>(&word), sizeof word);
    hash = (hash ^ (word | 0x2020202020202020)) * 0x9E3779B97F4A7C15;
    hash ^= hash >> 32;
    name.remove_prefix(read);
  }
  return static_cast<std::size_t>(hash);
}

}  // namespace qxTools::stores
