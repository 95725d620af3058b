/// @file
/// A hash for names that ignore letter case. For the stores' own use.
#pragma once

#include <qxTools/base/Ascii.h>

#include <cstddef>
#include <cstdint>

namespace qxTools::stores {

/// Equal for names that are SameText.
inline std::size_t CaselessHash(std::string_view name) {
  std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(UpperChar(c))) * 0x100000001B3;
  return static_cast<std::size_t>(hash ^ hash >> 32);
}

}  // namespace qxTools::stores
