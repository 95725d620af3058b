#include <gtest/gtest.h>
#include <qxTools/data/qxIntf.h>

#include "support/SlotOf.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxIntf;

class Guarded : public TSafeInterfacedObject {
 public:
  explicit Guarded(bool& gone) : gone_(gone) {}
  ~Guarded() override { gone_ = true; }

 private:
  bool& gone_;
};

TEST(qxIntf, OnlyAReleaseWhileUnlockedDestroys) {
  bool gone = false;
  auto* object = new Guarded(gone);
  EXPECT_EQ(object->GetLocked(), 0);
  EXPECT_EQ(object->_AddRef(), -1);
  EXPECT_EQ(object->_AddRef(), -1);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(object->_Release(), -1);
  EXPECT_EQ(object->GetLocked(), -1);
  EXPECT_EQ(object->UnLock(), -1);
  EXPECT_EQ(object->GetLocked(), 0);
  object->_AddRef();  // locks again
  object->_Release();
  EXPECT_FALSE(gone);
  object->UnLock();
  EXPECT_EQ(object->_Release(), -1);
  EXPECT_TRUE(gone);
}

TEST(qxIntf, AQueryLocksOnlyWhenItFinds) {
  bool gone = false;
  Guarded object(gone);
  void* found = &gone;
  EXPECT_EQ(object.QueryInterface(MakeGuid("185AAE8D-8541-4801-B0D1-D5D3B47B30BE"), &found), E_NOINTERFACE);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(object.GetLocked(), 0);
  for (const GUID& iid : {GUID{}, IInterface::IID}) {
    EXPECT_EQ(object.QueryInterface(iid, &found), S_OK);
    EXPECT_EQ(found, static_cast<ISafeInterface*>(&object));
    EXPECT_EQ(object.GetLocked(), -1);
    object.UnLock();
  }
}

TEST(qxIntf, TheMethodsKeepTheirSlots) {
  EXPECT_EQ(test::SlotOf(&ISafeInterface::QueryInterface), 0U);
  EXPECT_EQ(test::SlotOf(&ISafeInterface::GetLocked), 3U);
  EXPECT_EQ(test::SlotOf(&ISafeInterface::UnLock), 4U);
}

}  // namespace
