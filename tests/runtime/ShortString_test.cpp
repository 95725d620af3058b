#include <gtest/gtest.h>
#include <qxTools/runtime/ShortString.h>

#include <cstring>
#include <string>

namespace {

using qxTools::ShortString;

TEST(ShortString, HoldsItsLengthThenTheTextCutToItsCapacity) {
  const ShortString<4> cut(std::string("a\0cdef", 6));
  EXPECT_EQ(std::memcmp(&cut, "\4a\0cd", sizeof cut), 0);
  ShortString<4> s = "xyz";
  s = "q";
  EXPECT_EQ(std::memcmp(&s, "\1q\0\0\0", sizeof s), 0);
  EXPECT_EQ(ShortString<255>(std::string(300, 'x')).Length(), 255U);
}

TEST(ShortString, ComparesTextAndLength) {
  EXPECT_EQ(ShortString<4>("ab"), ShortString<4>("ab"));
  EXPECT_NE(ShortString<4>("ab"), ShortString<4>("aB"));
  EXPECT_NE(ShortString<4>("ab"), std::string("ab\0", 3));
  EXPECT_EQ(ShortString<4>(), "");
}

TEST(ShortString, ALengthFromRawMemoryStaysInside) {
  ShortString<3> s;
  std::memcpy(&s,
              "\xFF"
              "abc",
              sizeof s);
  EXPECT_EQ(s.Text(), "abc");
}

}  // namespace
