// What most tests use, of the standard library as well.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "support/MessageOf.h"
#include "support/TemporaryFolder.h"

namespace qxTools::test {

/// A table of the values of a function. See Rows.
template <class In, class Out, class Function>
class RowsOf {
 public:
  explicit RowsOf(Function function) : function_(std::move(function)) {}
  /// Expects the function to give `want` for `in`; a failure is reported at the place of this row.
  const RowsOf& operator()(const In& in, const Out& want, int line = __builtin_LINE(),
                           const char* file = __builtin_FILE()) const {
    if (const Out got = function_(in); !(got == want))
      ADD_FAILURE_AT(file, line) << "for " << testing::PrintToString(in) << "\n  found "
                                 << testing::PrintToString(got) << "\n wanted "
                                 << testing::PrintToString(want);
    return *this;
  }

 private:
  Function function_;
};

/// Rows(UpperCase)("a", "A")("1", "1"): one call a row, which knows its own line. What goes in and what comes
/// out are texts unless told.
template <class In = std::string, class Out = In, class Function>
RowsOf<In, Out, Function> Rows(Function function) {
  return RowsOf<In, Out, Function>(std::move(function));
}

/// Rows of what came out and what should: Results<Integer>()(At("b", "abc", 1), 2).
template <class T>
auto Results() {
  return Rows<T>([](const T& found) -> const T& { return found; });
}

/// Up to `most` of the pieces, drawn at random.
inline std::string RandomText(std::mt19937& random, std::initializer_list<const char*> pieces,
                              unsigned most) {
  std::string text;
  for (auto i = random() % (most + 1); i > 0; --i) text += pieces.begin()[random() % pieces.size()];
  return text;
}

}  // namespace qxTools::test
