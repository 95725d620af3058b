#include <qxTools/calendar/QXToDigit.h>

#include "support/Testing.h"

namespace {

using namespace qxTools::QXToDigit;

// Numbers in any text, their groups and any width: fuzz/Digits.cpp.

TEST(QXToDigit, NumbersAreFoundGroupedAndPutIntoAField) {
  // clang-format off
  qxTools::test::Results<std::string>()
      (ToDigit("$ -1,234.50 TWD"), "-1234.50")(ToDigit("1..2"), "1.2")(ToKiloBit("-1234.5"), "-1,234.5")
      (FilterLED("1234567", 5, true), "123456")(FilterLED(".5", INT32_MIN, true), ".")
      (FilterLED("", 2, true), "  ")(Space(3) + Space(0) + Space(-3), "   ");
  // clang-format on
}

}  // namespace
