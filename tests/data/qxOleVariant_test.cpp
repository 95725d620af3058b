#include <qxTools/data/qxOleVariant.h>

#include <array>
#include <tuple>

#include "support/SlotOf.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxOleVariant;
using namespace qxTools::test;

Variant ArrayOf(std::initializer_list<Variant> elements, Integer low = 0) {
  Variant array = Variant::NewArray(low, low + static_cast<Integer>(elements.size()) - 1);
  for (const Variant& element : elements) array.SetElement(low++, element);
  return array;
}

std::string NamesOf(const TQXOleVariant& packet) {
  std::string names;
  for (Integer i = 0; i < packet.GetCount(); ++i) names += std::string(packet.GetFields(i)->Name) + "|";
  return names;
}

TEST(qxOleVariant, FieldsTravelAsNamesAndValuesInTurn) {
  TQXOleVariant packet;
  Variant array = "kept";
  packet.SaveToOle(array);  // without fields
  EXPECT_EQ(array, Variant("kept"));
  EXPECT_EQ(MessageOf([&] { packet.GetAction(); }), "Param Action is not found.");
  packet.SetValue(u"qty", 5);
  packet.SetAction(1);
  packet.SetValue(u"Qty", "x");
  packet.SetViewIndex(2);
  packet.SetStoreProcIndex(3);
  packet.SetOption(4);
  packet.SaveToOle(array);
  EXPECT_EQ(array, ArrayOf({u"QTY", "x", u"ACTION", 1, u"VIEWINDEX", 2, u"STOREPROCINDEX", 3, u"OPTION", 4}));
  TQXOleVariant loaded;
  loaded.LoadFromOle(array);
  const std::array got{loaded.GetAction(), loaded.GetViewIndex(), loaded.GetStoreProcIndex(),
                       loaded.GetOption()};
  EXPECT_EQ(got, (std::array{1, 2, 3, 4}));
  loaded.SetValue(u"OPTION", "x");
  EXPECT_EQ(MessageOf([&] { loaded.GetOption(); }), "'x' is not a valid integer value");
}

TEST(qxOleVariant, NamesAreCapitalsCutTo20Bytes) {
  const std::u16string x19(19, u'x');
  // 小, whose second byte is a letter's, keeps it.
  const std::tuple<std::u16string, std::string, std::u16string, bool> cases[] = {
      {u"qty", "QTY", u" qty", false},
      {u"\u5C0Fa", "\xA4\x70\x41", u"\u5C0FA", true},
      {x19 + u"xy", std::string(20, 'X'), x19 + u"xy", false},
      {x19 + u"xy", std::string(20, 'X'), x19 + u"X", true},
      {x19 + u"\u5C0F", std::string(19, 'X') + "\xA4", x19 + u"\u5C0F", false},
      {std::u16string(200, u'x'), std::string(20, 'X'), x19 + u"x", true}};
  for (const auto& [name, stored, query, found] : cases) {
    TQXOleVariant packet;
    packet.SetValue(name, 1);
    EXPECT_EQ(packet.FindField(query) != nullptr, found) << stored;
    packet.SetValue(name, 1);
    EXPECT_EQ(packet.GetCount(), name.size() > 19 ? 2 : 1);  // one more, since it is not found
    Variant array;
    packet.SaveToOle(array);
    TQXOleVariant loaded;
    loaded.LoadFromOle(array);
    EXPECT_EQ(loaded.GetFields(0)->Name, stored);
  }
}

TEST(qxOleVariant, LookUpsTakeTheLastFieldOfAName) {
  TQXOleVariant packet;
  packet.LoadFromOle(ArrayOf({"a", 1, u"A", "\xA4\x70' ", "b", ArrayOf({1})}));
  EXPECT_EQ(packet.GetSqlValue(u"a"), u"'\u5C0F'''");
  packet.GetFields(2)->Name = "A";
  EXPECT_EQ(MessageOf([&] { packet.GetSqlValue(u"a"); }), "Variant has no text form");
  packet.Add()->Name = "a";  // compared as it stands, and so never found
  packet.SetValue(u"a", 4);
  EXPECT_EQ(packet.GetItems(2), Variant(4));
  EXPECT_EQ(MessageOf([&] { packet.GetValue(u"\u5C0Fc"); }), "Param \xA4\x70\x63 is not found.");
  EXPECT_EQ(MessageOf([&] { packet.GetItems(4); }), "List index out of bounds (4)");
  EXPECT_EQ(MessageOf([&] { packet.SetItems(-1, 0); }), "List index out of bounds (-1)");
  packet.AddValue(u"x", 1);
  EXPECT_EQ(packet.GetFields(4)->Name, "");
  EXPECT_TRUE(packet.GetItems(4).IsEmpty());
  packet.Clear();
  EXPECT_EQ(packet.FindField(u"a"), nullptr);
}

TEST(qxOleVariant, LoadingReadsFromIndex0Whatever) {
  const char* const done = "(nothing thrown)";
  const char* const outside = "Variant array index out of bounds";
  const VarBounds square[] = {{0, 1}, {0, 1}};
  const std::tuple<Variant, const char*, const char*> cases[] = {
      {ArrayOf({"a", 1, "b"}), done, "A|"},
      {ArrayOf({1.5, "x", true, 2, "a", 0, "a", 0}), done, "1.5|TRUE|A|A|"},
      {ArrayOf({"a"}), done, ""},
      {"no array", done, "OLD|"},
      {ArrayOf({}, 5), done, "OLD|"},
      {ArrayOf({"a", 1, "b", 2}, 1), outside, ""},
      {ArrayOf({"a", 1, "b", 2}, -1), outside, "1|"},
      {Variant::NewArray(square), outside, ""},
      {ArrayOf({"a", ArrayOf({"n", 1}), ArrayOf({"n"}), 1}), "Variant has no text form", "A|"}};
  for (const auto& [array, message, names] : cases) {
    TQXOleVariant packet;
    packet.SetValue(u"old", 0);
    EXPECT_EQ(MessageOf([&, loaded = array] { packet.LoadFromOle(loaded); }), message);
    EXPECT_EQ(NamesOf(packet), names);
  }
  TQXOleVariant packet;
  packet.SetValue(u"own", ArrayOf({"a", ArrayOf({"deep", 1})}));
  for (int i = 0; i < 2; ++i) packet.LoadFromOle(packet.GetFields(0)->Value);
  packet.SaveToOle(packet.GetFields(0)->Value);
  EXPECT_EQ(packet.GetItems(0), ArrayOf({u"DEEP", 1}));
}

TEST(qxOleVariant, TheInterfaceTurnsExceptionsIntoACode) {
  auto* const packet = new TQXOleVariant;
  void* found = nullptr;
  ASSERT_EQ(packet->QueryInterface(GUID{}, &found), S_OK);
  auto* const face = static_cast<IQXOleVariant*>(found);
  Integer number = 9;
  Variant value = 9;
  TOleVariantField unlisted;
  TOleVariantField* field = &unlisted;
  EXPECT_EQ(face->GetFields(7, field), E_UNEXPECTED);
  EXPECT_EQ(field, nullptr);
  EXPECT_EQ(face->GetAction(number), E_UNEXPECTED);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(face->GetValue(u"none", value), E_UNEXPECTED);
  EXPECT_TRUE(value.IsEmpty());
  EXPECT_EQ(face->LoadFromOle(ArrayOf({1, 2}, 1)), E_UNEXPECTED);
  EXPECT_EQ(face->SetOption(2), S_OK);
  EXPECT_EQ(face->SaveToOle(value), S_OK);
  EXPECT_EQ(value, ArrayOf({u"OPTION", 2}));
  EXPECT_EQ(face->QueryInterface(IInterface::IID, &found), S_OK);
  EXPECT_EQ(found, static_cast<IInterface*>(packet));
  face->_Release();
  packet->UnLock();
  face->_Release();  // destroys the packet
  EXPECT_EQ(SlotOf(&IQXOleVariant::GetFields), 3U);
  EXPECT_EQ(SlotOf(&IQXOleVariant::SetAction), 12U);
  EXPECT_EQ(SlotOf(&IQXOleVariant::Add), 18U);
  EXPECT_EQ(SlotOf(&IQXOleVariant::FindField), 23U);
}

}  // namespace
