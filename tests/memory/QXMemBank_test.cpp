#include <qxTools/memory/QXMemBank.h>

#include "support/SlotOf.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::QXMemBank;
using namespace qxTools::test;
using QXMemTools::IMemoryOperation;

template <class Bank, class... Bases>
constexpr bool kConverts = (std::is_convertible_v<Bank*, Bases*> && ...);
static_assert(kConverts<TCharBank, ICharBank, IMemoryBank, IMemoryOperation, QXMemTools::TMemoryOperation>);
static_assert(kConverts<QXMemTools::TByteBank, IMemoryBank, IMemoryOperation, IInterface>);

// Sets element 1 of a new bank through its own interface and reads it through the object.
template <class Bank, class Face, class T>
T ThroughTheInterface(std::uint32_t identifier, T value) {
  EXPECT_EQ(Face::IID.Data1, identifier);
  auto* const bank = new Bank;
  void* found = bank;
  EXPECT_EQ(bank->QueryInterface(GUID{}, &found), E_NOINTERFACE);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(bank->QueryInterface(Face::IID, &found), S_OK);
  auto* const face = static_cast<Face*>(found);
  IMemoryBank* const bankOfFace = bank;
  IMemoryOperation* const blockOfFace = bank;
  EXPECT_TRUE(bankOfFace == found && blockOfFace == found);  // one table: methods keep their slots
  face->SetCount(2);
  face->SetValue(1, value);
  const T read = bank->GetValue(1);
  EXPECT_EQ(MessageOf([&] { face->GetValue(2); }), "Index outbound");
  EXPECT_EQ(face->QueryInterface(IMemoryBank::IID, &found), S_OK);
  EXPECT_EQ(static_cast<IMemoryBank*>(found)->GetCount(), 2);
  EXPECT_EQ(face->QueryInterface(IMemoryOperation::IID, &found), S_OK);
  EXPECT_EQ(static_cast<IMemoryOperation*>(found)->GetSize(), bank->GetSize());
  for (const Integer left : {2, 1, 0}) EXPECT_EQ(face->_Release(), left);  // the last one frees it
  return read;
}

class NegativeBank : public TIntegerBank {
 public:
  Integer GetValue(Integer index) const override { return -TIntegerBank::GetValue(index); }
};

TEST(QXMemBank, ABankCanBeDerivedFrom) {
  NegativeBank bank;
  IIntegerBank* const face = &bank;
  face->SetValue(0, 7);
  EXPECT_EQ(face->GetValue(0), -7);
}

TEST(QXMemBank, ValuesGoThroughTheInterfaces) {
  EXPECT_EQ((ThroughTheInterface<TCharBank, ICharBank>(0xC3CF33E7, '\xA4')), '\xA4');
  EXPECT_EQ((ThroughTheInterface<TIntegerBank, IIntegerBank>(0x4C588B5F, Integer{-2})), -2);
  const double tiny = std::numeric_limits<double>::denorm_min();
  EXPECT_EQ((ThroughTheInterface<TDoubleBank, IDoubleBank>(0x63ECE5EB, tiny)), tiny);
  EXPECT_EQ(SlotOf(&IDoubleBank::GetValue), 13U);
  EXPECT_EQ(SlotOf(&IDoubleBank::SetValue), 14U);
  // Of a pointer, the lowest byte is kept.
  const auto pointer = [](std::uintptr_t bits) { return reinterpret_cast<void*>(bits); };
  const auto kept = ThroughTheInterface<TPointerBank, IPointerBank>(0x5AE88DA0, pointer(0x12345678));
  EXPECT_EQ(kept, pointer(0x78));
  EXPECT_EQ(TPointerBank().GetSize(), 1);
}

}  // namespace
