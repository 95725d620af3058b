// Work of a row that is not qxTools': what it is checked against.
#pragma once

#include <valgrind/callgrind.h>

/// The result of `work`, whose instructions are not counted.
template <class Work>
auto Uncounted(Work work) {
  CALLGRIND_TOGGLE_COLLECT;
  auto result = work();
  CALLGRIND_TOGGLE_COLLECT;
  return result;
}
