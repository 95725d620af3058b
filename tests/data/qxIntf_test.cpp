#include <qxTools/data/qxIntf.h>

#include "support/SlotOf.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxIntf;
using namespace qxTools::test;

class Watched : public TSafeInterfacedObject {
 public:
  explicit Watched(bool& gone) : gone_(gone) {}
  ~Watched() override { gone_ = true; }

 private:
  bool& gone_;
};

TEST(qxIntf, ReferencesLockAndOnlyAReleaseWhileUnlockedDestroys) {
  bool gone = false;
  auto* const object = new Watched(gone);
  const GUID unknown = MakeGuid("185AAE8D-8541-4801-B0D1-D5D3B47B30BE");
  for (const GUID& iid : {unknown, GUID{}, IInterface::IID}) {
    void* found = &gone;
    EXPECT_EQ(object->QueryInterface(iid, &found), iid == unknown ? E_NOINTERFACE : S_OK);
    EXPECT_EQ(found, iid == unknown ? nullptr : static_cast<ISafeInterface*>(object));
    EXPECT_EQ(object->GetLocked(), iid == unknown ? 0 : -1);
    EXPECT_EQ(object->_AddRef(), -1);
    for (int release = 0; release < 3; ++release) EXPECT_EQ(object->_Release(), -1);
    EXPECT_EQ(object->GetLocked(), -1);
    EXPECT_EQ(object->UnLock(), -1);
    EXPECT_EQ(object->GetLocked(), 0);
  }
  EXPECT_FALSE(gone);
  EXPECT_EQ(object->_Release(), -1);
  EXPECT_TRUE(gone);
  EXPECT_EQ(SlotOf(&ISafeInterface::GetLocked), 3U);
  EXPECT_EQ(SlotOf(&ISafeInterface::UnLock), 4U);
}

}  // namespace
