#include <qxTools/memory/QXMemBank.h>

#include <limits>

#include "support/SlotOf.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXMemBank;
using namespace qxTools::test;

// Sets element 1 of a new bank through its own interface and reads it through the object.
template <class Bank, class Face, class T>
T ThroughTheInterface(T value) {
  auto* const bank = new Bank;
  void* found = nullptr;
  EXPECT_EQ(bank->QueryInterface(Face::IID, &found), S_OK);
  auto* const face = static_cast<Face*>(found);
  face->SetCount(2);
  face->SetValue(1, value);
  const T read = bank->GetValue(1);
  EXPECT_EQ(MessageOf([&] { face->GetValue(2); }), "Index outbound");
  EXPECT_EQ(face->QueryInterface(QXMemTools::IMemoryBank::IID, &found), S_OK);
  EXPECT_EQ(static_cast<IMemoryBank*>(found)->GetCount(), 2);
  EXPECT_EQ(face->_Release(), 1);
  EXPECT_EQ(static_cast<IMemoryBank*>(found)->_Release(), 0);
  return read;
}

TEST(QXMemBank, ValuesGoThroughTheInterfaces) {
  EXPECT_EQ((ThroughTheInterface<TCharBank, ICharBank>('\xA4')), '\xA4');
  EXPECT_EQ((ThroughTheInterface<TIntegerBank, IIntegerBank>(Integer{-2})), -2);
  const double tiny = std::numeric_limits<double>::denorm_min();
  EXPECT_EQ((ThroughTheInterface<TDoubleBank, IDoubleBank>(tiny)), tiny);
}

TEST(QXMemBank, APointerBankKeepsTheLowestByte) {
  void* const pointer = reinterpret_cast<void*>(std::uintptr_t{0x12345678});
  const auto kept = reinterpret_cast<void*>(std::uintptr_t{0x78});
  EXPECT_EQ((ThroughTheInterface<QXMemBank::TPointerBank, IPointerBank>(pointer)), kept);
  EXPECT_EQ(QXMemBank::TPointerBank().GetSize(), 1);
}

TEST(QXMemBank, InterfacesHaveTheirIdentifiersAndSlots) {
  EXPECT_EQ(ICharBank::IID.Data1, 0xC3CF33E7U);
  EXPECT_EQ(IIntegerBank::IID.Data1, 0x4C588B5FU);
  EXPECT_EQ(IDoubleBank::IID.Data1, 0x63ECE5EBU);
  EXPECT_EQ(IPointerBank::IID.Data1, 0x5AE88DA0U);
  EXPECT_EQ(SlotOf(&IDoubleBank::GetValue), 13U);
  EXPECT_EQ(SlotOf(&IDoubleBank::SetValue), 14U);
}

}  // namespace
