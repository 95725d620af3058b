/// @file
/// Hash tables whose keys are names that ignore letter case. For the stores' own use.
#pragma once

#include <qxTools/runtime/Ascii.h>

#include <cstddef>
#include <cstdint>

namespace qxTools::stores {

struct CaselessHash {
  std::size_t operator()(std::string_view name) const {
    std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(UpperChar(c))) * 0x100000001B3;
    return static_cast<std::size_t>(hash ^ hash >> 32);
  }
};

struct CaselessEqual {
  bool operator()(std::string_view a, std::string_view b) const { return SameText(a, b); }
};

}  // namespace qxTools::stores
