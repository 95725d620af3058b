// 32-bit arithmetic that wraps, as coordinates do.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

constexpr Integer WrapAdd(Integer a, Integer b) {
  return static_cast<Integer>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

constexpr Integer WrapSubtract(Integer a, Integer b) {
  return static_cast<Integer>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

constexpr Integer WrapMultiply(Integer a, Integer b) {
  return static_cast<Integer>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

}  // namespace qxTools
