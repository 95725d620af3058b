#include <qxTools/runtime/DateTime.h>
#include <qxTools/runtime/FormatSettings.h>
#include <qxTools/runtime/Variant.h>

#include <cmath>

#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::test;

class Counted : public IInterface {
 public:
  HRESULT QXTOOLS_CALL QueryInterface(const GUID&, void**) override { return E_NOINTERFACE; }
  Integer QXTOOLS_CALL _AddRef() override { return ++count; }
  Integer QXTOOLS_CALL _Release() override { return --count; }
  Integer count = 0;
};

// clang-format off
TEST(Variant, EachTypeHasItsCodeAndItsTextForm) {
  const std::string bytes("a\0b\xFF", 4);
  Rows<Variant, std::string>([](const Variant& value) { return std::to_string(value.Type()) + ": " + value.AsString(); })
      (Variant(), "0: ")(Variant::Null(), "1: ")(std::int16_t{-5}, "2: -5")(-70000, "3: -70000")
      (0.1F, "4: 0.1")(-0.0, "5: 0")(999999999999999.9, "5: 1E15")(-HUGE_VAL, "5: -INF")
      (std::nan(""), "5: NAN")(Variant::FromCurrency(INT64_MIN), "6: -922337203685477.5808")
      (Variant::FromDate(EncodeDate(2003, 1, 2) + 0.75), "7: 2003/01/02 18:00:00")
      (u"a\u4E2D", "8: a\xA4\xA4")(Variant::FromError(-2147467259), "10: -2147467259")
      (true, "11: True")(false, "11: False")(std::int8_t{-7}, "16: -7")(std::uint8_t{200}, "17: 200")
      (std::uint16_t{65535}, "18: 65535")(UINT32_MAX, "19: 4294967295")
      (INT64_MAX, "20: 9223372036854775807")(bytes, "256: " + bytes);
}

TEST(Variant, IntegersAreRoundedToEvenAndKeptWithin32Bits) {
  Rows<Variant, Integer>([](const Variant& value) { return value.AsInteger(); })
      (Variant(), 0)(Variant::Null(), 0)(true, -1)(2.5, 2)(2147483647.4, 2147483647)(u" -12", -12)
      (Variant::FromCurrency(25000), 2)(Variant::FromCurrency(-35000), -4)(Variant::FromDate(1.5), 2);
  for (const Variant& value : {Variant(2147483647.5), Variant(std::int64_t{1} << 31), Variant(std::nan(""))})
    EXPECT_THROW(value.AsInteger(), EVariantError) << value.AsString();
  EXPECT_EQ(MessageOf([] { Variant("12 ").AsInteger(); }), "'12 ' is not a valid integer value");
}
// clang-format on

TEST(Variant, WhatHasNoTextOrNumberFormSaysSo) {
  for (const Variant& value :
       {Variant::NewArray(0, 3), Variant::FromUnknown(nullptr), Variant::FromDispatch(nullptr),
        Variant::OfType(varByRef | varInteger), Variant::OfType(varVariant)}) {
    EXPECT_THROW(value.AsString(), EVariantError) << value.Type();
    EXPECT_THROW(value.AsInteger(), EVariantError) << value.Type();
  }
}

TEST(Variant, TextsAreReadByTheDecimalSeparator) {
  GetFormatSettings().DecimalSeparator = ',';
  EXPECT_EQ(Variant(-1.5).AsString(), "-1,5");
  EXPECT_EQ(Variant::FromCurrency(15000).AsString(), "1,5");
  EXPECT_EQ(Variant("1,5").AsDouble(), 1.5);
  for (const char* text : {"1.5", "inf"}) EXPECT_THROW(Variant(text).AsDouble(), EConvertError);
  GetFormatSettings() = FormatSettings();
  for (const Variant& value : {Variant(2), Variant("true"), Variant("0.5")}) EXPECT_TRUE(value.AsBoolean());
  EXPECT_FALSE(Variant("FALSE").AsBoolean() || Variant::Null().AsBoolean());
}

TEST(Variant, ArraysAreSharedUntilOneCopyIsWritten) {
  Variant first = Variant::NewArray(2, 4);
  first.SetElement(2, "two");
  first.SetElement(4, first);  // an array inside itself is a copy of what it was
  Variant second = first;
  second.SetElement(2, 22);
  EXPECT_EQ(first.GetElement(2), Variant("two"));
  EXPECT_EQ(second.GetElement(2), Variant(22));
  EXPECT_EQ(first.GetElement(4).GetElement(2), Variant("two"));
  EXPECT_NE(first, second);
  for (const Integer index : {1, 5}) {
    EXPECT_EQ(MessageOf([&] { first.GetElement(index); }), "Variant array index out of bounds");
    EXPECT_THROW(first.SetElement(index, 1), EVariantError);
  }
  EXPECT_EQ(MessageOf([] { Variant(1).GetElement(0); }), "Variant is not an array");
}

TEST(Variant, ArraysMayBeNestedDeeply) {
  const auto nest = [](Variant array, Integer holders) {
    for (int depth = 0; depth < 200000; ++depth) {
      Variant outer = Variant::NewArray(1, 2);
      for (Integer i = 1; i <= holders; ++i) outer.SetElement(i, array);
      array = std::move(outer);
    }
    return array;
  };
  const Variant chain = nest(1, 1);
  Variant copy = chain;
  EXPECT_TRUE(copy == chain);
  copy.SetElement(2, "changed");
  EXPECT_FALSE(copy == chain);
  EXPECT_TRUE(chain == nest(1, 1));
  EXPECT_FALSE(chain == nest(2, 1));
  nest(1, 2);  // deleted where each array is held twice
}

TEST(Variant, ArraysHaveDimensionsAndBytesAreBytes) {
  const std::array<VarBounds, 2> bounds{{{1, 2}, {-1, 1}}};
  Variant table = Variant::NewArray(bounds, varByte);
  EXPECT_EQ(table.Type(), varArray | varByte);
  EXPECT_EQ(table.DimCount(), 2);
  EXPECT_EQ(table.Bounds(2), bounds[1]);
  const std::array<Integer, 2> last{2, 1};
  table.SetElement(last, 0x1FF);
  EXPECT_EQ(table.GetElement(last), Variant(std::uint8_t{0xFF}));
  const Variant copy = table;
  table.Bytes()[0] = 9;
  EXPECT_EQ(copy.Bytes()[0], 0);
  EXPECT_EQ(copy.Bytes()[5], 0xFF);
  EXPECT_THROW(table.Bounds(3), EVariantError);
  EXPECT_THROW(table.GetElement(1), EVariantError);
  EXPECT_EQ(MessageOf([] { Variant::NewArray(1, -1); }), "Variant array index out of bounds");
  EXPECT_THROW(Variant::NewArray(-2147483647 - 1, 2147483647), EVariantError);
}

TEST(Variant, HoldsAReferenceToAnObject) {
  Counted object;
  {
    const Variant value = Variant::FromUnknown(&object);
    Variant copy = value;
    EXPECT_EQ(object.count, 2);
    copy = Variant();
    EXPECT_EQ(object.count, 1);
    EXPECT_EQ(value.AsInterface(), &object);
  }
  EXPECT_EQ(object.count, 0);

  struct Holder final : Counted {
    Integer QXTOOLS_CALL _Release() override {
      const Integer left = Counted::_Release();
      if (left == 0) delete this;
      return left;
    }
    Variant value = "a text";
  };
  auto* const holder = new Holder;
  Variant last = Variant::FromUnknown(holder);
  last = holder->value;  // whose holder goes with the reference
  EXPECT_EQ(last, Variant("a text"));
}

}  // namespace
