#include <qxTools/memory/QXMemTools.h>

#include <numeric>

#include "support/SlotOf.h"
#include "support/Testing.h"

namespace {

using namespace qxTools::QXMemTools;
using qxTools::GUID;
using qxTools::Integer;
using namespace qxTools::test;

constexpr char kBadSize[] = "Size cann\x60t small then 0";
constexpr char kBadCount[] = "Count cann\x60t small then 1";
constexpr char kBadIndex[] = "Index outbound";

std::string Bytes(const TMemoryOperation& block) {
  return {static_cast<const char*>(block.GetAddress()), static_cast<std::size_t>(block.GetSize())};
}

/// Size, bytes an element, count and cursor.
using Shape = std::array<Integer, 4>;
Shape ShapeOf(const TMemoryBank& bank) {
  return {bank.GetSize(), bank.GetElementSize(), bank.GetCount(), bank.GetPosition()};
}

TEST(QXMemTools, BlocksAreZeroAlignedAndKnownByTheirAddress) {
  for (const TMemorySize size : {0U, 1U, 7U, 24U, 4096U, 1000000U}) {
    auto* block = static_cast<unsigned char*>(MemCreate(size));
    EXPECT_TRUE(block != nullptr && reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t) == 0);
    EXPECT_TRUE(MemSize(block) >= size && (size != 0 || MemSize(block) == 0));
    EXPECT_EQ(std::accumulate(block, block + size, 0), 0);
    MemFree(block);
  }
  EXPECT_EQ(MemSize(nullptr), 0U);
  MemFree(nullptr);
}

TEST(QXMemTools, ReadAndWriteMoveTheCursorAndStopAtTheEnd) {
  TMemoryOperation block(8);
  EXPECT_TRUE(block.Bof());
  block.Write("abcdef", 6);
  for (const Integer none : {0, -1}) block.Write("XYZ", none);
  EXPECT_EQ(block.GetPosition(), 6);
  block.Write("ghijkl", 6);  // two fit
  EXPECT_TRUE(block.Eof());
  EXPECT_EQ(Bytes(block), "abcdefgh");

  for (const Integer all : {0, -1, 100}) {
    std::array<char, 9> buffer{};
    block.SetPosition(2);
    block.Read(buffer.data(), all);
    EXPECT_STREQ(buffer.data(), "cdefgh") << all;
    EXPECT_EQ(block.GetPosition(), 8);
  }
}

TEST(QXMemTools, ACursorOutOfRangeGoesToTheStartAndOneLeftBehindMovesNothing) {
  TMemoryOperation block(8);
  for (const auto& [value, want] : {std::pair{8, 8}, {9, 0}, {-1, 0}, {6, 6}}) {
    block.SetPosition(value);
    EXPECT_EQ(block.GetPosition(), want) << value;
  }
  block.SetSize(4);
  EXPECT_TRUE(block.Eof());
  char byte = '#';
  block.Read(&byte, 0);
  block.Write(&byte, 1);
  EXPECT_EQ(byte, '#');
  EXPECT_EQ(block.GetPosition(), 6);
}

TEST(QXMemTools, SetSizeKeepsTheFrontAndZeroesWhatGrows) {
  TMemoryOperation block(-5);
  std::string text(32, '\0');
  for (const Integer size : {32, 3, 6, 7, 100000, 100001, 100002, 104097, 104099, 140000, 5, 4300}) {
    block.SetSize(size);
    text.resize(static_cast<std::size_t>(size));
    EXPECT_EQ(Bytes(block), text) << size;
    EXPECT_EQ(block.GetHandle(), reinterpret_cast<THandle>(block.GetAddress()));
    std::ranges::fill(text, static_cast<char>('a' + size % 26));
    block.SetPosition(0);
    block.Write(text.data(), size);
  }
  EXPECT_EQ(MessageOf([&] { block.SetSize(0); }), kBadSize);
  EXPECT_EQ(Bytes(block), text);
}

TEST(QXMemTools, TheIndexIsCheckedAtBothEnds) {
  TByteBank bank;
  bank.SetCount(3);
  for (const Integer bad : {-1, 3, std::numeric_limits<Integer>::min()}) {
    EXPECT_EQ(MessageOf([&] { bank.GetValue(bad); }), kBadIndex);
    EXPECT_EQ(MessageOf([&] { bank.SetValue(bad, 1); }), kBadIndex);
    EXPECT_EQ(MessageOf([&] { bank._GetValueAddress(bad); }), kBadIndex);
  }
}

TEST(QXMemTools, SetCountLooksAtTheOldCountAndChangesItBeforeItFails) {
  TLongintBank bank;
  EXPECT_EQ(MessageOf([&] { bank.SetCount(0); }), kBadSize);
  EXPECT_EQ(ShapeOf(bank), (Shape{4, 4, 0, 0}));
  EXPECT_EQ(MessageOf([&] { bank.SetCount(5); }), kBadCount);
  bank.Assign(TLongintBank());
  EXPECT_EQ(MessageOf([&] { bank.SetCount(0x40000000); }), kBadSize);  // the product wraps to 0
  EXPECT_EQ(bank.GetCount(), 0x40000000);
  EXPECT_EQ(MessageOf([&] { bank.GetValue(1); }), kBadIndex);  // not inside the block
  EXPECT_EQ(bank.GetValue(0), 0);
}

TEST(QXMemTools, ElementsWithoutSizeMoveNothing) {
  for (const Integer size : {0, -7}) {
    TMemoryBank bank(size);
    EXPECT_EQ(ShapeOf(bank), (Shape{32, size, 1, 0}));
    char byte = '#';
    bank._GetValue(&byte, 0);
    EXPECT_EQ(byte, '#');
    bank._SetValue(&byte, 0);
    EXPECT_EQ(bank._GetValueAddress(0), bank.GetAddress());
    EXPECT_EQ(Bytes(bank), std::string(32, '\0'));
  }
}

TEST(QXMemTools, AssignMakesAnExactCopyOfABank) {
  TWordBank source;
  source.SetCount(3);
  source.SetValue(2, 0xBEEF);
  TInt64Bank target;
  target.SetPosition(8);
  target.Assign(source);
  EXPECT_EQ(ShapeOf(target), (Shape{6, 2, 3, 8}));
  EXPECT_EQ(target.GetValue(2), 0xBEEF);  // two bytes read, the others 0
  target.SetValue(1, 0x123456789);        // two bytes written
  EXPECT_EQ(target.GetValue(1), 0x6789);
  EXPECT_EQ(target.GetValue(2), 0xBEEF);
  target.Assign(target);
  EXPECT_EQ(target.GetValue(2), 0xBEEF);
  TInt64Bank ones;
  TByteBank bytes;
  ones.SetValue(0, -1);
  bytes.Assign(ones);
  bytes.SetValue(0, 2);  // one byte written
  ones.Assign(bytes);
  EXPECT_EQ(ones.GetValue(0), -254);
  target.Assign(TMemoryOperation(5));  // no bank: bytes and size only
  EXPECT_EQ(ShapeOf(target), (Shape{5, 2, 3, 8}));
  EXPECT_EQ(MessageOf([&] { target.GetValue(2); }), kBadIndex);
}

template <class Bank, class T>
constexpr bool kHolds = std::is_same_v<decltype(Bank().GetValue(0)), T>;
static_assert(kHolds<TByteBank, std::uint8_t> && kHolds<TShortintBank, std::int8_t>);
static_assert(kHolds<TWordBank, std::uint16_t> && kHolds<TSmallintBank, std::int16_t>);
static_assert(kHolds<TCardinalBank, std::uint32_t> && kHolds<TIntegerBank, std::int32_t>);

TEST(QXMemTools, TypedBanksKeepWholeValues) {
  TInt64Bank numbers;
  TPointerBank pointers;
  numbers.SetValue(0, std::numeric_limits<std::int64_t>::min());
  pointers.SetValue(0, this);
  EXPECT_EQ(numbers.GetValue(0), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(pointers.GetValue(0), this);
}

TEST(QXMemTools, InterfacesHaveTheirIdentifiersAndSlots) {
  constexpr GUID written{0x185AAE8D, 0x8541, 0x4801, {0xB0, 0xD1, 0xD5, 0xD3, 0xB4, 0x7B, 0x30, 0xBE}};
  EXPECT_EQ(IMemoryOperation::IID, written);
  EXPECT_EQ(IMemoryBank::IID.Data1, 0x260EDC51U);
  const std::uintptr_t slots[] = {
      SlotOf(&IMemoryBank::_Release),   SlotOf(&IMemoryBank::GetMemory), SlotOf(&IMemoryBank::SetMemory),
      SlotOf(&IMemoryBank::Read),       SlotOf(&IMemoryBank::Write),     SlotOf(&IMemoryBank::GetHandle),
      SlotOf(&IMemoryBank::GetAddress), SlotOf(&IMemoryBank::GetSize),   SlotOf(&IMemoryBank::SetSize),
      SlotOf(&IMemoryBank::GetCount),   SlotOf(&IMemoryBank::SetCount),
  };
  std::uintptr_t want = 2;
  for (const std::uintptr_t slot : slots) EXPECT_EQ(slot, want++);
}

}  // namespace
