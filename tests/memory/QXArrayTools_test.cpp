#include <qxTools/memory/QXArrayTools.h>

#include "support/Testing.h"

namespace {

using namespace qxTools;

TEST(QXArrayTools, AssignCopiesBytesAndSizeOnly) {
  QXArrayTools::TMemoryBank source(2);
  source.SetCount(5);
  QXArrayTools::TMemoryBank target(4);
  target.Assign(source);
  EXPECT_EQ(target.GetSize(), 10);
  EXPECT_EQ(target.GetElementSize(), 4);
  EXPECT_EQ(target.GetCount(), 1);
}

}  // namespace
