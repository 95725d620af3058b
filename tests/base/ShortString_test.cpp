#include <qxTools/base/ShortString.h>

#include <cstring>

#include "support/Testing.h"

namespace {

using qxTools::ShortString;

TEST(ShortString, HoldsItsLengthThenTheTextCutToItsCapacity) {
  ShortString<4> s(std::string("a\0cdef", 6));
  EXPECT_EQ(std::memcmp(&s, "\4a\0cd", sizeof s), 0);
  s = "q";
  EXPECT_EQ(std::memcmp(&s, "\1q\0\0\0", sizeof s), 0);
  EXPECT_NE(s, "Q");
  EXPECT_NE(s, std::string("q\0", 2));
  std::memcpy(&s, "\377abcd", sizeof s);  // a length from raw memory
  EXPECT_EQ(s.Text(), "abcd");
}

}  // namespace
