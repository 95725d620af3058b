// What most tests use.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/MessageOf.h"
#include "support/TemporaryFolder.h"

namespace qxTools::test {

/// Expects `function` to give the second of each row for the first.
template <class Function, class Rows>
void ExpectEach(Function&& function, const Rows& rows) {
  for (const auto& [in, want] : rows) EXPECT_EQ(function(in), want) << "for " << testing::PrintToString(in);
}

/// The same for rows written in the call; they are texts unless told.
template <class In = std::string, class Out = In, class Function>
void ExpectRows(Function&& function, std::initializer_list<std::pair<In, Out>> rows) {
  ExpectEach(function, rows);
}

/// Up to `most` of the pieces, drawn at random.
inline std::string RandomText(std::mt19937& random, std::initializer_list<const char*> pieces,
                              unsigned most) {
  std::string text;
  for (auto i = random() % (most + 1); i > 0; --i) text += pieces.begin()[random() % pieces.size()];
  return text;
}

}  // namespace qxTools::test
