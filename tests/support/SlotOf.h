#pragma once

#include <bit>
#include <cstdint>

namespace qxTools::test {

/// The number of a virtual method's slot in its table, 0 for the first.
template <class Method>
std::uintptr_t SlotOf(Method method) {
  struct Layout {
    std::uintptr_t slot;
    std::intptr_t adjustment;
  };
  return (std::bit_cast<Layout>(method).slot - 1) / sizeof(void*);
}

}  // namespace qxTools::test
